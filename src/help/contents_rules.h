#pragma once

#include <QString>
#include <QStringList>
#include <vector>

/// The contents of the manual: its chapters, and the sections that belong to each. Lengths are twips.

/// Captions of the top level, which are headings of the manual.
const QStringList& chapterCaptions();

/// The chapter without a second level.
inline constexpr int introduction = 0;

inline constexpr int entryPitch = 240;
/// Height of the top level.
inline constexpr int chaptersHeight = 4140;

/// How far an entry is indented by its level: "3" less than "3.1", and "3.1.1" most.
int indentOf(const QString& caption);

/// The last of the chapters that begin before a place in the text, or the first one. `starts`: where each begins, -1
/// for one that the text does not have.
int chapterAt(const std::vector<int>& starts, int position);

/// Rest position of chapter `index` in the list.
int chapterTop(int index);

/// Key of the second level: the part of the caption's first three characters before the first blank.
QString sectionKey(const QString& caption);

/// The statement for the second level of a key.
QString sectionsSql(const QString& key);

/// How far the list can be scrolled, 0 when all of it shows.
int contentsOverhang(int viewportHeight, int sectionsHeight);
