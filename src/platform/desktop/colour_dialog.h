#pragma once

#include <QColor>
#include <functional>
#include <optional>

class QWidget;

/// Asks for a colour with a QColorDialog of the object name `name`, in its non-native form, that starts from `present`;
/// nothing when cancelled. The `parent` may be gone when this returns.
std::optional<QColor> askColour(QWidget* parent, const QString& name, const QColor& present);

/// Lets `answer` take the place of all colour dialogs, for tests. An empty function brings them back.
void answerColourDialogsWith(std::function<std::optional<QColor>(const QColor& present)> answer);
