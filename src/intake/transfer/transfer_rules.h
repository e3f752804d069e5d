#pragma once

#include "settings/frame/run_words.h"

#include <QString>

/// Texts of the page 图片转存.

/// The way in which pictures leave an album: "复制" or "移动".
QString operationText(bool move);

/// How its run is spoken of.
RunWords transferWords(bool move);

/// Caption of the button that chooses the whole album.
inline const QString chooseAllCaption = QStringLiteral("本像册全部选中");

QString chosenText(int count);

/// The album's title as the messages name it.
QString albumNameOfLine(const QString& line);

/// What the name dialog asks for; the first time without a colon.
QString nameQuestion(const QString& album, const QString& number, bool first);

QString countLine(const QString& album, int count);
QString countLine(const QString& album, const QString& code, int count);

QString startQuestion(bool move);
QString toFilesQuestion();
QString copiedText(const QString& album, int count);
QString madeIntoFilesText(int count);

/// Asked when a picture could not be written to a file for no fault of its name.
QString retryQuestion(bool move, const QString& number, const QString& reason);
