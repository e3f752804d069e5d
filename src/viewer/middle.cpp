#include "viewer/middle.h"

Picture middleFor(QSize place, const Picture& picture) {
    const QSize size = picture.image().size();
    const QSize part = place.scaled(size, Qt::KeepAspectRatio);
    if (part.isEmpty() || part == size) return picture;
    return {picture.image().copy(QRect({(size.width() - part.width()) / 2, (size.height() - part.height()) / 2}, part)),
            picture.pixels()};
}
