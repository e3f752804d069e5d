#pragma once

#include "platform/database/records/database.h"

#include <QString>

/// The selection button "v", which lists all pictures. Like other buttons it can be given another code or be deleted;
/// it can be put back at any time.

bool hasAllPicturesButton(const Database& catalogue);

/// The question before it is put back.
inline const QString allPicturesMissing = QStringLiteral(
    "编号为“v”的按钮（全部图片）没有了，新图册无法登记。\n\n现在放回这个按钮，让它列出所有图册，按《确定》；否则按《取"
    "消》，"
    "图册不建立。");

/// Adds the button, with a picture, for all albums of the directory. Throws `Error`.
void putBackAllPicturesButton(const Database& catalogue);
