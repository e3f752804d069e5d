#include "editor/hint_box.h"

#include "editor/document/hints.h"
#include "platform/desktop/accessibility.h"
#include "platform/desktop/placing.h"

#include <QMouseEvent>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int hintHeight = 270;
constexpr int hintFrame = 2;                     // pixels, on both sides
constexpr int hintFont = 12, leastHintFont = 8;  // pixels
}  // namespace

/// The half cells of 6 pixels leave no room for anything but the frame.
void dressHint(TextBox* box) {
    box->setLocked(true);
    box->setFocusPolicy(Qt::NoFocus);
    box->setAlignment(Qt::AlignCenter);
    box->setTextMargins(-2, 0, -2, 0);
    box->setCursor(Qt::ArrowCursor);
    box->setContextMenuPolicy(Qt::NoContextMenu);
    box->setStyleSheet(
        u"QLineEdit { background: #fffbea; border: 1px solid #d9b65c; border-radius: 3px; padding: 0px; "
        "color: #4a3d17; }"_s);
    box->hide();
}

/// Half a cell is narrow for the digits and letters of some fonts: they get smaller until the text is whole.
void setHint(TextBox* box, const QString& text, int mostWidth) {
    box->setText(text);
    box->setCursorPosition(0);
    const int width = pixelsFromTwips(std::min(hintWidth(text), mostWidth));
    QFont font = box->font();
    const auto isWhole = [&] { return QFontMetrics(font).horizontalAdvance(text) <= width - hintFrame; };
    font.setPixelSize(hintFont);
    while (font.pixelSize() > leastHintFont && !isWhole()) font.setPixelSize(font.pixelSize() - 1);
    if (font != box->font()) box->setFont(font);
    box->setToolTip(isWhole() ? QString() : text.toHtmlEscaped());
    box->resize(width, pixelsFromTwips(hintHeight));
}

HintBox::HintBox(QWidget* form, const QWidget* viewport) : QObject(form), form_(form), viewport_(viewport) {
    txtTs_ = make<TextBox>(form, u"txtTs"_s);
    txtTs_->setAccessibleName(u"操作提示"_s);
    dressHint(txtTs_);
    connect(txtTs_, &TextBox::clicked, txtTs_, &QWidget::hide);
    form->installEventFilter(this);
}

void HintBox::tscz(const QString& code) {
    const QString hint = hintFor(code);
    if (!hint.isEmpty()) txtTs_->setText(hint);
    lay();
    txtTs_->raise();
    txtTs_->setVisible(isOn_);
    if (isOn_) announce(txtTs_);
    Q_EMIT raised();
}

void HintBox::notice(const QString& text) {
    txtTs_->setText(text);
    lay();
    reveal();
    announce(txtTs_);
    Q_EMIT raised();
}

void HintBox::reveal() {
    txtTs_->show();
    txtTs_->raise();
}

void HintBox::lay() {
    setHint(txtTs_, txtTs_->text(), widthOf(form_));
    place(txtTs_, (widthOf(form_) - widthOf(txtTs_)) / 2, topOf(viewport_));
}

void HintBox::clickedThrough(QPoint global) {
    if (txtTs_->isVisible() && txtTs_->rect().contains(txtTs_->mapFromGlobal(global))) txtTs_->hide();
}

bool HintBox::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease)
        clickedThrough(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
    return QObject::eventFilter(watched, event);
}
