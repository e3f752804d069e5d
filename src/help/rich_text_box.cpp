#include "help/rich_text_box.h"

#include <QAbstractTextDocumentLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <algorithm>

namespace {
constexpr int lineRoom = 60;       ///< Pixels for a heading and its air.
constexpr int pictureWidth = 340;  ///< Of all pictures in the text, in logical pixels.

QImage decoded(const QUrl& name) {
    const QString text = name.toString();
    return QImage::fromData(QByteArray::fromBase64(text.mid(text.indexOf(u',') + 1).toLatin1()));
}
}  // namespace

RichTextBox::RichTextBox(QWidget* parent) : QTextBrowser(parent) {
    setUndoRedoEnabled(false);
    setOpenLinks(false);
}

void RichTextBox::showText(const QString& html) {
    const int view = verticalScrollBar()->value();
    setText(html);
    makeRoomBelowEnd();
    if (view == 0) return;
    layOutText();
    verticalScrollBar()->setValue(view);
}

int RichTextBox::Find(const QString& text, int start) {
    const QTextCursor hit = document()->find(text, start);
    if (hit.isNull()) return -1;
    setTextCursor(hit);
    layOutText();
    const QRectF place = document()->documentLayout()->blockBoundingRect(hit.block());
    const double top = place.top() - document()->documentMargin();
    verticalScrollBar()->setValue(int(top));
    return hit.selectionStart();
}

void RichTextBox::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    makeRoomBelowEnd();
}

void RichTextBox::layOutText() const {
    document()->documentLayout()->documentSize();  // asks for all of it
}

void RichTextBox::makeRoomBelowEnd() {
    QTextFrame* all = document()->rootFrame();
    QTextFrameFormat format = all->frameFormat();
    const int room = std::max(viewport()->height() - lineRoom, int(document()->documentMargin()));
    if (int(format.bottomMargin()) == room) return;
    format.setBottomMargin(room);
    all->setFrameFormat(format);
}

int RichTextBox::SelStart() const {
    return textCursor().selectionStart();
}

int RichTextBox::SelLength() const {
    return textCursor().selectionEnd() - textCursor().selectionStart();
}

void RichTextBox::setSelLength(int characters) {
    const QPoint view(horizontalScrollBar()->value(), verticalScrollBar()->value());
    QTextCursor cursor = textCursor();
    cursor.setPosition(SelStart());
    cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor, characters);
    setTextCursor(cursor);
    horizontalScrollBar()->setValue(view.x());
    verticalScrollBar()->setValue(view.y());
}

int RichTextBox::topPosition() const {
    return cursorForPosition(QPoint(viewport()->width() / 2, lineRoom)).position();
}

// ------------------------------------------------------------------------------------------------------------ pictures

// A text draws its pictures pixel by pixel: they get as many as the screen has at their place.
QVariant RichTextBox::loadResource(int type, const QUrl& name) {
    if (type != QTextDocument::ImageResource || name.scheme() != u"data") return QTextBrowser::loadResource(type, name);
    const QImage whole = decoded(name);
    if (whole.isNull()) return {};
    const int pixels = int(pictureWidth * devicePixelRatioF());
    return pixels < whole.width() ? whole.scaledToWidth(pixels, Qt::SmoothTransformation) : whole;
}

std::optional<QTextImageFormat> RichTextBox::pictureAt(QPoint point) const {
    const QPointF inText = point + QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
    const int position = document()->documentLayout()->hitTest(inText, Qt::ExactHit);
    if (position < 0) return {};
    // The format of a place in the text is that of the character before it.
    QTextCursor cursor(document());
    cursor.setPosition(position + 1);
    const QTextCharFormat format = cursor.charFormat();
    return format.isImageFormat() ? std::optional(format.toImageFormat()) : std::nullopt;
}

std::optional<QTextImageFormat> RichTextBox::firstPictureInView() const {
    const int top = cursorForPosition({}).position();
    const int bottom = cursorForPosition(viewport()->rect().bottomRight()).position();
    for (QTextBlock block = document()->findBlock(top); block.isValid() && block.position() <= bottom;
         block = block.next())
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            if (format.isImageFormat()) return format.toImageFormat();
        }
    return {};
}

void RichTextBox::choose(const QTextImageFormat& picture) {
    Q_EMIT pictureChosen(decoded(QUrl(picture.name())), picture.stringProperty(QTextFormat::ImageAltText));
}

void RichTextBox::mouseMoveEvent(QMouseEvent* event) {
    QTextBrowser::mouseMoveEvent(event);
    if (event->buttons() == Qt::NoButton)
        viewport()->setCursor(pictureAt(event->pos()) ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

void RichTextBox::mouseReleaseEvent(QMouseEvent* event) {
    QTextBrowser::mouseReleaseEvent(event);
    const bool isClick = event->button() == Qt::LeftButton && !textCursor().hasSelection();
    const auto picture = isClick ? pictureAt(event->pos()) : std::nullopt;
    if (picture) choose(*picture);
}

void RichTextBox::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const auto picture = isEnter ? firstPictureInView() : std::nullopt;
    if (picture)
        choose(*picture);
    else
        QTextBrowser::keyPressEvent(event);
}
