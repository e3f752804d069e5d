#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

// render_icon DRAWING.svg FOLDER SIDE...: writes FOLDER/SIDE.png for each side, in pixels.
int main(int argc, char** argv) {
    const QStringList words = QCoreApplication(argc, argv).arguments();
    QSvgRenderer drawing(words.value(1));
    if (!drawing.isValid() || words.size() < 4) {
        std::fputs("usage: render_icon DRAWING.svg FOLDER SIDE...\n", stderr);
        return 1;
    }
    for (const QString& word : words.sliced(3)) {
        const int side = word.toInt();
        QImage icon(side, side, QImage::Format_ARGB32);
        icon.fill(Qt::transparent);
        QPainter painter(&icon);
        drawing.render(&painter);
        painter.end();
        const QString file = u"%1/%2.png"_s.arg(words[2], word);
        if (!icon.save(file)) {
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}
