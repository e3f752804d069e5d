#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <optional>

/// A group that can be dragged by its title within its parent. There it grows and moves with the parent, and stays
/// inside. A title of several lines is shown in one.
class MovableGroup : public QGroupBox {
  public:
    explicit MovableGroup(QWidget* parent);

  protected:
    bool event(QEvent* event) override;
    void initStyleOption(QStyleOptionGroupBox* option) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void childEvent(QChildEvent* event) override;

  private:
    /// As near to that place as it is wholly on its parent.
    void moveTo(QPoint place);

    std::optional<QPoint> grip_;  ///< Where it is held while it is dragged.
};

/// A line of text that breaks anywhere, as the path of a file needs it.
class PathLabel : public QLabel {
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
