#include "help/rich_text_box.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>

RichTextBox::RichTextBox(QWidget* parent) : QTextBrowser(parent) {
    setUndoRedoEnabled(false);
    setOpenLinks(false);
}

int RichTextBox::Find(const QString& text, int start) {
    const QTextCursor hit = document()->find(text, start);
    if (hit.isNull()) return -1;
    setTextCursor(hit);
    const QAbstractTextDocumentLayout* layout = document()->documentLayout();
    layout->documentSize();  // lays out what lies below, on which the range of the scroll bar depends
    const double top = layout->blockBoundingRect(hit.block()).top() - document()->documentMargin();
    verticalScrollBar()->setValue(int(top));
    return hit.selectionStart();
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
