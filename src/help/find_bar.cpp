#include "help/find_bar.h"

#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <QHBoxLayout>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

FindBar::FindBar(RichTextBox* text, QWidget* parent) : QWidget(parent), text_(text) {
    txtCz = make<TextBox>(this, u"txtCz"_s);
    txtCz->setAccessibleName(u"要找的词"_s);
    txtCz->setPlaceholderText(u"在说明中查找，按回车"_s);
    txtCz->setClearButtonEnabled(true);
    auto* cmdCz = make<QPushButton>(this, u"cmdCz"_s, u"查找下一处"_s);
    lblCz = make<QLabel>(this, u"lblCz"_s);

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    row->addWidget(txtCz, 2);
    row->addWidget(cmdCz);
    row->addWidget(lblCz, 1);
    txtCz->setFixedHeight(23);
    cmdCz->setFixedSize(84, 23);

    connect(txtCz, &TextBox::enterPressed, this, guarded(this, [this] { findNext(); }));
    connect(cmdCz, &QPushButton::clicked, this, guarded(this, [this] { findNext(); }));
    connect(txtCz, &TextBox::textChanged, lblCz, &QLabel::clear);
}

void FindBar::takeFocus() {
    txtCz->setFocus(Qt::ShortcutFocusReason);
    txtCz->selectAll();
}

void FindBar::findNext() {
    const QString words = txtCz->text();
    if (words.isEmpty()) return;
    const bool isHit = text_->Find(words, text_->SelStart() + text_->SelLength()) >= 0 || text_->Find(words, 0) >= 0;
    lblCz->setText(isHit ? QString() : u"没有找到"_s);
}
