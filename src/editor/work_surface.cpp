#include "editor/work_surface.h"

#include "editor/operations/operation.h"
#include "editor/pixels/row_blocks.h"
#include "platform/base/error.h"
#include "platform/base/twips.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

WorkSurface::WorkSurface(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void WorkSurface::setPicture(const QImage& picture, const QByteArray& profile) {
    picture_.set(picture.isNull() ? QImage() : inEditorFormat(picture));
    transform_ = ColourTransform::of(profile, ColourKind::lights);
    if (transform_ && transform_->changesNothing()) transform_.reset();
    update();
}

void WorkSurface::setScale(double scale) {
    if (scale == scale_) return;
    scale_ = scale;
    update();
}

QRgb WorkSurface::Point(int x, int y) const {
    return picture().valid(x, y) ? picture().pixel(x, y) : pictureBackground;
}

QRect WorkSurface::onSurface(const QRect& part) const {
    const auto place = [this](int x, int y) { return QPoint(roundHalfEven(x * scale_), roundHalfEven(y * scale_)); };
    const QPoint corner = place(part.x(), part.y());
    const QPoint end = place(part.x() + part.width(), part.y() + part.height());
    return {corner, QSize(end.x() - corner.x(), end.y() - corner.y())};
}

void WorkSurface::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect covered = event->rect() & onSurface(picture().rect());
    if (covered != event->rect()) painter.fillRect(event->rect(), QColor(pictureBackground));
    if (!covered.isEmpty() && !attempt([&] { drawPart(painter, covered); }))
        painter.fillRect(covered, QColor(pictureBackground));  // there is no memory for it
}

/// Every pixel of the screen is computed for itself, so what is painted in pieces fits together.
void WorkSurface::drawPart(QPainter& painter, const QRect& part) {
    const double ratio = devicePixelRatioF(), onScreen = scale_ * ratio;
    const QSize target(std::max(1, roundHalfEven(picture().width() * onScreen)),
                       std::max(1, roundHalfEven(picture().height() * onScreen)));
    const QRectF exact(QPointF(part.topLeft()) * ratio, QSizeF(part.size()) * ratio);
    const QRect pixels = exact.toAlignedRect() & QRect(QPoint(), target);
    if (pixels.isEmpty()) return;
    const QRectF place(QPointF(pixels.topLeft()) / ratio, QSizeF(pixels.size()) / ratio);
    if (target == picture().size() && !transform_)
        painter.drawImage(place, picture(), pixels);
    else
        painter.drawImage(place, partForScreen(target, pixels));
}

QImage WorkSurface::partForScreen(QSize target, const QRect& part) {
    QImage image = target == picture().size() ? picture().copy(part) : picture_.part(target, part);
    if (!transform_ || image.isNull()) return image;
    const PixelRows rows(image);
    forRowBlocks(image.size(), [&](int first, int end) {
        for (int y = first; y < end; ++y) transform_->apply(rows[y], image.width());
    });
    return image;
}

QPoint WorkSurface::twipsOf(const QMouseEvent& event) const {
    const QPoint pixel = event.position().toPoint();
    return {twipsFromPixels(roundHalfEven(pixel.x() / scale_)), twipsFromPixels(roundHalfEven(pixel.y() / scale_))};
}

void WorkSurface::mousePressEvent(QMouseEvent* event) {
    event->accept();
    const QPoint at = twipsOf(*event);
    if (event->button() == Qt::LeftButton) Q_EMIT pressed(at.x(), at.y());
}

void WorkSurface::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    const QPoint at = twipsOf(*event);
    Q_EMIT moved(at.x(), at.y());
}

void WorkSurface::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    const QPoint at = twipsOf(*event);
    if (event->button() == Qt::LeftButton) Q_EMIT released(at.x(), at.y());
}

void WorkSurface::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() == Qt::LeftButton) Q_EMIT doubleClicked();
}
