#pragma once

#include <QString>
#include <array>
#include <optional>

/// What the four boxes hold of a selection button, in their order: 序号, 编号, 名称, 图册.
using ButtonTexts = std::array<QString, 4>;

/// Whether a button with this code belongs to the system: nobody changes or deletes it.
bool isPreset(const QString& code);

/// Place of the first box without a text; nothing when all are filled.
std::optional<int> firstEmpty(const ButtonTexts& texts);

// Sentences for the user ----------------------------------------------------------------------------------------------

inline const QString presetButton = QStringLiteral("系统预设的按钮，不能修改！");
inline const QString albumsFirst = QStringLiteral("请先建立图册。");
inline const QString pictureLater =
    QStringLiteral("按钮图片没录入，如果以后另行录入，请按“确定”；\n\n如果现在录入，请按“取消”。");
inline const QString pictureHint = QStringLiteral("操作提示：按钮图片可在“图片处理”中制作");

/// The box at `place` is empty.
QString notFilled(int place);
/// `typed` may be another letter than the code: of the same in both sizes there is only one.
QString codeInUse(const QString& name, const QString& code, const QString& typed);
QString numberInUse(const QString& name, int number);
/// The other button would get `old`.
QString exchangeQuestion(const QString& name, int number, const QString& old);
/// `albums`: how many offer the button.
QString buttonDeletionQuestion(const ButtonTexts& button, int albums);
/// A button of one's own gets a code of the system's.
QString presetCodeQuestion(const QString& code);
/// The button for all pictures gets another code.
QString allPicturesLeaveQuestion(const QString& code);
