#include "platform/desktop/colour_dialog.h"

#include <QColorDialog>
#include <QPointer>

using namespace Qt::Literals::StringLiterals;

namespace {
std::function<std::optional<QColor>(const QColor&)>& answer() {
    static std::function<std::optional<QColor>(const QColor&)> function;
    return function;
}
}  // namespace

std::optional<QColor> askColour(QWidget* parent, const QString& name, const QColor& present) {
    if (const auto answers = answer()) return answers(present);
    // The nested event loop may take the parent, and the dialog with it.
    const QPointer<QColorDialog> dialog = new QColorDialog(present, parent);
    dialog->setObjectName(name);
    dialog->setWindowTitle(u"选择颜色"_s);
    dialog->setOption(QColorDialog::DontUseNativeDialog);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog) return {};
    const QColor chosen = dialog->selectedColor();
    delete dialog;
    return accepted && chosen.isValid() ? std::optional(chosen) : std::nullopt;
}

void answerColourDialogsWith(std::function<std::optional<QColor>(const QColor&)> function) {
    answer() = std::move(function);
}
