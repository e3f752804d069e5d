#pragma once

#include <QIcon>

/// The ground behind an icon.
enum class IconGround { light, dark };

/// The icon of a tool-bar image key, `:/icons/<key>.svg`; an empty icon where there is none. On a dark ground the dark
/// ink of the drawing becomes light.
QIcon toolIcon(const QString& imageKey, IconGround ground = IconGround::light);
