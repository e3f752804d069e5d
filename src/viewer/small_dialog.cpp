#include "viewer/small_dialog.h"

#include "platform/desktop/placing.h"

using namespace Qt::Literals::StringLiterals;

Surface* makeSmallDialog(QWidget* form, const QString& name, int width, int height) {
    auto* dialog = make<Surface>(form, name);
    dialog->setDraggable(true);
    dialog->setAutoFillBackground(true);
    dialog->setStyleSheet(
        u"Surface#%1 { background: #fdfcf9; border: 1px solid #a9a192; border-radius: 6px; }"_s.arg(name));
    place(dialog, 0, 0, width, height);
    dialog->hide();
    return dialog;
}

QLabel* makeDialogLabel(Surface* dialog, const QString& name, const QString& text, int left, int top, int width) {
    auto* label = make<QLabel>(dialog, name);
    label->setText(text);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    place(label, left, top, width, 300);
    return label;
}

QPushButton* makeDialogButton(Surface* dialog, const QString& name, const QString& caption, int left, int top,
                              int width) {
    auto* button = make<QPushButton>(dialog, name);
    button->setText(caption);
    place(button, left, top, width, 405);
    return button;
}

QPushButton* makeCloseButton(Surface* dialog, const QString& name) {
    auto* button = makeDialogButton(dialog, name, u"×"_s, widthOf(dialog) - 405, 75, 330);
    place(button, widthOf(dialog) - 405, 75, 330, 330);
    button->setToolTip(u"关闭"_s);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}
