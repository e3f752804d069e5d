#pragma once

#include <QString>
#include <QStringList>

/// What the contents of the manual hold, and how captions lead to one another. Lengths are twips.

/// Captions of the top level, which are headings of the manual.
const QStringList& chapterCaptions();

/// The chapter without a second level.
inline constexpr int introduction = 0;

inline constexpr int entryPitch = 240;
/// What the top level takes up.
inline constexpr int chaptersHeight = 4140;

/// Rest position of chapter `index` in the list.
int chapterTop(int index);

/// Key of the second level: what stands before the first blank of the caption's first three characters.
QString sectionKey(const QString& caption);

/// The statement that brings the second level of a key.
QString sectionsSql(const QString& key);

/// How far the list can be scrolled, 0 when all of it shows.
int contentsOverhang(int viewportHeight, int sectionsHeight);
