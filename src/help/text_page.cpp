#include "help/text_page.h"

#include "platform/desktop/placing.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr QSize usualSize(560, 420);
}  // namespace

TextPage::TextPage(const QString& title, QWidget* parent)
    : QDialog(parent),
      txtNr(make<QTextBrowser>(this, u"txtNr"_s)),
      cmdFz(make<QPushButton>(this, u"cmdFz"_s, u"复制(&C)"_s)),
      cmdGb(make<QPushButton>(this, u"cmdGb"_s, u"关闭"_s)) {
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    txtNr->setAccessibleName(title);
    cmdGb->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(cmdFz);
    buttons->addStretch();
    buttons->addWidget(cmdGb);
    auto* all = new QVBoxLayout(this);
    all->addWidget(txtNr);
    all->addLayout(buttons);
    resize(usualSize);
    connect(cmdFz, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(txtNr->toPlainText()); });
    connect(cmdGb, &QPushButton::clicked, this, &QWidget::close);
}

void TextPage::showText(const QString& text) {
    txtNr->setPlainText(text);
}

void TextPage::showMarkdown(const QString& text) {
    txtNr->setMarkdown(text);
}
