#include "platform/desktop/text_box.h"

#include <QMouseEvent>

namespace {
/// What lies below a caption shimmers through.
constexpr int captionOpacity = 215;

/// Whether the focus goes elsewhere for a while only: to another window, a menu or a list that has popped up.
bool comesBack(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
}
}  // namespace

TextBox::TextBox(QWidget* parent) : QLineEdit(parent) {}

void TextBox::setLocked(bool on) {
    setReadOnly(on);
}

void TextBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (holdsFocus_) return;
    holdsFocus_ = true;
    Q_EMIT gotFocus();
}

void TextBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (!holdsFocus_ || comesBack(event->reason())) return;
    holdsFocus_ = false;
    Q_EMIT lostFocus();
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    QLineEdit::keyPressEvent(event);
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return;
    event->accept();
    Q_EMIT enterPressed();
}

void TextBox::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) Q_EMIT clicked();
}

CaptionBox::CaptionBox(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setTextInteractionFlags(Qt::NoTextInteraction);
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setFrameShape(QFrame::NoFrame);
    document()->setDocumentMargin(1);
    viewport()->setCursor(Qt::ArrowCursor);
    QPalette colours = palette();
    QColor ground = colours.color(QPalette::Base);
    ground.setAlpha(captionOpacity);
    colours.setColor(QPalette::Base, ground);
    setPalette(colours);
}

void CaptionBox::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

void CaptionBox::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() == Qt::LeftButton && viewport()->rect().contains(event->position().toPoint())) Q_EMIT clicked();
}

void CaptionBox::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
}

void CaptionBox::wheelEvent(QWheelEvent* event) {
    event->ignore();
}
