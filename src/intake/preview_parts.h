#pragma once

#include <QCheckBox>
#include <QLabel>

/// A line of text that breaks anywhere, as the path of a file needs it.
class PathLabel : public QLabel {
  public:
    using QLabel::QLabel;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A line of text of which the middle is left out where it is too long, as for the path of a file.
class ElidedLabel : public QLabel {
  public:
    using QLabel::QLabel;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

/// A check box whose caption breaks beside its mark when the box is narrow.
class NarrowCheckBox : public QCheckBox {
  public:
    using QCheckBox::QCheckBox;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool hitButton(const QPoint& position) const override { return rect().contains(position); }
};
