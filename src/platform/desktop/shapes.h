#pragma once

#include <QColor>
#include <QWidget>

/// A rectangle that decorates a form: border, and fill where a fill colour is set. Mouse events pass through it.
class ShapeBox : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor borderColor READ borderColor WRITE setBorderColor)
    Q_PROPERTY(QColor fillColor READ fillColor WRITE setFillColor)

  public:
    explicit ShapeBox(QWidget* parent = nullptr);

    QColor borderColor() const { return borderColor_; }
    void setBorderColor(const QColor& colour);
    QColor fillColor() const { return fillColor_; }  ///< Invalid: not filled.
    void setFillColor(const QColor& colour);
    void setBorderWidth(int pixels);
    void setCornerRadius(int pixels);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor borderColor_ = Qt::black;
    QColor fillColor_;
    int borderWidth_ = 1;
    int cornerRadius_ = 0;
};

/// A straight line on a form between two points in twips, horizontal or vertical or slanting. Mouse events pass
/// through.
class LineBox : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor color READ color WRITE setColor)

  public:
    explicit LineBox(QWidget* parent = nullptr);

    void setEnds(int x1, int y1, int x2, int y2);  ///< Twips, in the parent's coordinates.
    QColor color() const { return color_; }
    void setColor(const QColor& colour);

    int x1() const { return x1_; }
    int y1() const { return y1_; }
    int x2() const { return x2_; }
    int y2() const { return y2_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    int x1_ = 0, y1_ = 0, x2_ = 0, y2_ = 0;
    QColor color_ = Qt::black;
};
