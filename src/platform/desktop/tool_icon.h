#pragma once

#include <QIcon>

class QColor;

/// The icon of a tool-bar image key, `:/icons/<key>.svg`; an empty icon where there is none. Its strokes are as light
/// or dark as the ground behind it needs, it fades into that ground when it is switched off, and it is drawn anew for
/// every size.
QIcon toolIcon(const QString& imageKey, const QColor& ground);
