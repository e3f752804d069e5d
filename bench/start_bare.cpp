// The smallest program with a window: what starting the album is measured against. With a text as argument the window
// shows it in a menu, in the font of the album.

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
