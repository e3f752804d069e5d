// The smallest program with a window, the peer for the start of the album. It shows its argument in its menu, in the
// font of the album.

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(920, 690);
    if (argc > 1) {
        QFont font(QStringLiteral("Noto Sans CJK SC"));
        font.setPixelSize(12);
        QApplication::setFont(font);
        window.menuBar()->addAction(QString::fromUtf8(argv[1]));
    }
    window.show();
    return QApplication::exec();
}
