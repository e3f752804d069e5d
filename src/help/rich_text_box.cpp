#include "help/rich_text_box.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextFrame>
#include <algorithm>

namespace {
constexpr int lineRoom = 60;  ///< Pixels for a heading and its air.
}

RichTextBox::RichTextBox(QWidget* parent) : QTextBrowser(parent) {
    setUndoRedoEnabled(false);
    setOpenLinks(false);
}

int RichTextBox::Find(const QString& text, int start) {
    const QTextCursor hit = document()->find(text, start);
    if (hit.isNull()) return -1;
    setTextCursor(hit);
    const QAbstractTextDocumentLayout* layout = document()->documentLayout();
    layout->documentSize();  // lays out the rest of the text: the range of the scroll bar depends on it
    const double top = layout->blockBoundingRect(hit.block()).top() - document()->documentMargin();
    verticalScrollBar()->setValue(int(top));
    return hit.selectionStart();
}

void RichTextBox::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    // Room below the end, so that the last headings come to the top of the view as well.
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
