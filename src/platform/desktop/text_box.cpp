#include "platform/desktop/text_box.h"

#include <QApplication>
#include <QMouseEvent>
#include <algorithm>
#include <limits>

namespace {
/// The picture below a caption shimmers through.
constexpr int captionOpacity = 215;

/// Whether the focus goes elsewhere for a while only: to another window, a menu or a list that has popped up.
bool comesBack(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
}

/// Whether the key puts a character into a text box.
bool types(const QKeyEvent& event) {
    const QString text = event.text();
    return !text.isEmpty() && (text.front().isPrint() || text.front().isSurrogate());
}

/// The beginning of a text, which ends with a whole character.
QString beginningOf(const QString& text, qsizetype length) {
    if (length < text.size() && length > 0 && text.at(length).isLowSurrogate()) --length;
    return text.left(length);
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

/// How many characters may still be typed in place of those that are selected.
qsizetype TextBox::room() const {
    if (typingLimit_ == 0) return std::numeric_limits<qsizetype>::max();
    return std::max<qsizetype>(0, typingLimit_ - (text().size() - selectedText().size()));
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    if (types(*event) && event->text().size() > room()) {
        event->accept();
        return;
    }
    QLineEdit::keyPressEvent(event);
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return;
    event->accept();
    Q_EMIT enterPressed();
}

// An input method hands over whole words.
void TextBox::inputMethodEvent(QInputMethodEvent* event) {
    const qsizetype whole = event->commitString().size();
    const QString fitting = beginningOf(event->commitString(), std::min(whole, room()));
    if (fitting.size() == whole) {
        QLineEdit::inputMethodEvent(event);
        return;
    }
    QInputMethodEvent cut(event->preeditString(), event->attributes());
    cut.setCommitString(fitting, event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&cut);
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
    wearGround();
}

void CaptionBox::wearGround() {
    QColor ground = QApplication::palette().color(QPalette::Base);
    ground.setAlpha(captionOpacity);
    if (palette().color(QPalette::Base) == ground) return;
    QPalette colours = palette();
    colours.setColor(QPalette::Base, ground);
    setPalette(colours);
}

void CaptionBox::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) wearGround();
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
