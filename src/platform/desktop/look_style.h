#pragma once

#include <QProxyStyle>

/// The style of the program: Fusion, with signs of its own in message boxes and folder lists that stay sharp on any
/// screen, and with borders that are seen on dark grounds.
class LookStyle : public QProxyStyle {
    Q_OBJECT

  public:
    LookStyle();

    QIcon standardIcon(StandardPixmap sign, const QStyleOption* option, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
    QPixmap standardPixmap(StandardPixmap sign, const QStyleOption* option, const QWidget* widget) const override;
};
