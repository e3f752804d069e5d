#pragma once

#include "platform/desktop/text_box.h"

/// A caption over a picture. It shows as many lines of its text as there is room for. A text that does not fit ends in
/// "…", and the tool tip shows all of it.
class Caption : public CaptionBox {
  public:
    explicit Caption(QWidget* parent = nullptr);

    /// Lines that the whole text takes in a caption of that many pixels.
    int lineCountFor(int width) const;
    int heightOfLines(int count) const;  ///< Pixels.

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    int margin() const { return int(document()->documentMargin()); }
    int lineHeight() const { return fontMetrics().height(); }
    int linesThatFit() const;
    QStringList linesFor(int width) const;
    void updateToolTip();
};

/// A tool tip that shows a text of the catalogue as it is, whatever it looks like.
QString plainToolTip(const QString& text);
