#pragma once

#include <QLabel>

/// A line of text of which a part is left out where it is too long: the middle, as for the path of a file, or another.
class ElidedLabel : public QLabel {
  public:
    using QLabel::QLabel;
    void setElideMode(Qt::TextElideMode mode) { mode_ = mode; }
    QString shownText() const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Qt::TextElideMode mode_ = Qt::ElideMiddle;
};
