#pragma once

#include "platform/desktop/text_box.h"
#include "viewer/clock.h"

/// The title of the collection on its coloured ground. Letters that would be hard to read there have an outline.
class TitleBox : public TextBox {
    Q_OBJECT

  public:
    explicit TitleBox(QWidget* parent = nullptr);

    void setColours(const TitleColours& colours);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    TitleColours colours_ = stillTitleColours();
};
