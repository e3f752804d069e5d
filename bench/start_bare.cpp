// The smallest program with a window, which the start of the album stands beside. A text as argument is shown in its
// menu, in the font of the album.

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
