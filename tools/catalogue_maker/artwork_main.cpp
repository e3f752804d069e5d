#include "drawing/album_art.h"

#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

QImage handCursor(const QString& drawing) {
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(drawing).render(&painter);
    return image;
}

}  // namespace

/// make_artwork FOLDER: makes the pictures in assets/ that are checked in because the build does not draw them.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: make_artwork FOLDER\n", stderr);
        return 2;
    }
    const QDir assets(QString::fromLocal8Bit(argv[1]));
    const bool saved = startPicture({1600, 1200}).save(assets.filePath(u"pictures/start.jpg"_s), "JPG", 84) &&
                       editorPicture({1890, 1240}).save(assets.filePath(u"pictures/editor.jpg"_s), "JPG", 84) &&
                       turnedPageCorner().mirrored(true, true).save(assets.filePath(u"pictures/xy.jpg"_s), "JPG", 96) &&
                       handCursor(assets.filePath(u"s1.svg"_s)).save(assets.filePath(u"s1.ico"_s), "ICO");
    if (!saved) std::fputs("make_artwork: a picture could not be written.\n", stderr);
    return saved ? 0 : 1;
}
