#include "platform/desktop/tool_icon.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto darkInk = "#33475B", lightInk = "#DCE4EC";

QIcon withLightInk(QByteArray drawing) {
    QSvgRenderer renderer(drawing.replace(darkInk, lightInk));
    QIcon icon;
    for (const int side : {16, 24, 32, 48, 64}) {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace

QIcon toolIcon(const QString& imageKey, IconGround ground) {
    const QString path = u":/icons/"_s + imageKey + u".svg"_s;
    QFile file(path);
    if (!file.exists()) return {};
    if (ground == IconGround::light || !file.open(QIODevice::ReadOnly)) return QIcon(path);
    return withLightInk(file.readAll());
}
