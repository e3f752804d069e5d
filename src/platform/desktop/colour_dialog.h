#pragma once

#include <QColor>
#include <functional>
#include <optional>

class QWidget;

/// Asks for a colour with a QColorDialog called `name`, in its non-native form, that starts from `present`; nothing
/// when cancelled. `parent` may be gone then.
std::optional<QColor> askColour(QWidget* parent, const QString& name, const QColor& present);

/// Puts `answer` in place of all colour dialogs until called again with an empty function.
void answerColourDialogsWith(std::function<std::optional<QColor>(const QColor& present)> answer);
