#pragma once

#include <QTextBrowser>
#include <optional>

/// A box that shows rich text and finds places in it. Read only; its text can be selected and copied. A picture in the
/// text is larger than its place there, and can be chosen to be seen whole.
class RichTextBox : public QTextBrowser {
    Q_OBJECT

  public:
    explicit RichTextBox(QWidget* parent = nullptr);

    /// Shows a rich text in place of the one before. The view stays where it is.
    void showText(const QString& html);

    /// Looks for `text` from the character at `start` on, ignoring case; a hit does not span two paragraphs. Selects
    /// the hit, brings its paragraph to the top of the view and returns its position. -1 when there is none: then
    /// selection and view stay as they are.
    int Find(const QString& text, int start);

    int SelStart() const;
    int SelLength() const;
    void setSelLength(int characters);

    /// The character at the upper edge of the view.
    int topPosition() const;

  Q_SIGNALS:
    /// A picture was clicked, or is the first in view when Enter is pressed.
    void pictureChosen(const QImage& picture, const QString& name);

  protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void resizeEvent(QResizeEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    /// So that the last headings come to the top of the view as well.
    void makeRoomBelowEnd();
    /// The whole text; the range of the scroll bar depends on it.
    void layOutText() const;
    std::optional<QTextImageFormat> pictureAt(QPoint point) const;
    std::optional<QTextImageFormat> firstPictureInView() const;
    void choose(const QTextImageFormat& picture);
};
