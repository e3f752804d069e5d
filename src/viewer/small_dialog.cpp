#include "viewer/small_dialog.h"

#include "platform/desktop/placing.h"

using namespace Qt::Literals::StringLiterals;

SmallDialog::SmallDialog(QWidget* form, const QString& name, int width, int height) : Surface(form) {
    setObjectName(name);
    setDraggable(true);
    setAutoFillBackground(true);
    beDialog();
    place(this, 0, 0, width, height);
    hide();
}

void SmallDialog::openAt(int left, int top) {
    place(this, left, top);
    show();
    raise();
}

QLabel* SmallDialog::addLabel(const QString& name, const QString& text, int left, int top, int width) {
    auto* label = make<QLabel>(this, name);
    label->setText(text);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    place(label, left, top, width, 300);
    return label;
}

QPushButton* SmallDialog::addButton(const QString& name, const QString& caption, int left, int top, int width) {
    auto* button = make<QPushButton>(this, name);
    button->setText(caption);
    place(button, left, top, width, 405);
    return button;
}

void SmallDialog::addCloseButton(const QString& name) {
    QPushButton* button = addButton(name, u"×"_s, 0, 0, 0);
    place(button, widthOf(this) - 405, 75, 330, 330);
    button->setToolTip(u"关闭"_s);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QPushButton::clicked, this, &QWidget::hide);
}
