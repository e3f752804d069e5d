// Measures the memory of the program while it pages through an album. Run by hand: bench_memory [pages]

#include "memory.h"

#include "../tests/viewer/viewer_window.h"
#include "filling.h"
#include "platform/desktop/look.h"
#include "table.h"

#include <QBuffer>
#include <QImageWriter>
#include <QPainter>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "memory";
constexpr int columns = 6;
constexpr int firstPages = 100;

/// Each has a colour of its own.
QByteArray picture(int number) {
    static QImage image(640, 480, QImage::Format_RGB32);
    QLinearGradient light(0, 0, image.width(), image.height());
    light.setColorAt(0, Qt::white);
    light.setColorAt(1, QColor::fromHsv(number % 360, 200, 120 + number % 100));
    QPainter(&image).fillRect(image.rect(), light);
    QBuffer buffer;
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(85);
    writer.write(image);
    return buffer.data();
}

/// The cells behind the first are emptied when a page is begun.
bool isComplete(const ViewerWindow& viewer) {
    for (int cell = 1; cell < columns * columns; ++cell)
        if (viewer.image(element(u"imgXs"_s, cell))->picture().isNull()) return false;
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
    const int pages = argc > 1 ? std::max(firstPages + 1, std::atoi(argv[1])) : 1000;
    ViewerWindow viewer([&] {
        mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
        fillAlbum(mekTp::catalogue, u"tc01"_s, pages * columns * columns, picture);
    });
    viewer.window->resize(1280, 900);
    viewer.openAlbum(1);
    viewer.chooseColumns(columns);
    viewer.chooseButton(0);
    forgetPeak();
    double early = 0;
    int emptyPages = 0;
    for (int page = 2; page <= pages; ++page) {
        viewer.key(u"xy"_s)->click();
        QApplication::processEvents();  // as after each click of a person; events that nobody takes would pile up
        if (!QTest::qWaitFor([&] { return isComplete(viewer); })) ++emptyPages;
        if (page == firstPages) early = memory("VmRSS:");
    }
    const std::string last = "page " + std::to_string(pages);
    row(topic, {.what = "memory at " + last + " of 36",
                .measured = emptyPages == 0 ? memory("VmRSS:") : failed,
                .unit = "MB",
                .peer = "at page " + std::to_string(firstPages),
                .peerMeasured = early,
                .atMost = 150,
                .timesPeer = 1.05});
    row(topic, {.what = "its peak up to there", .measured = memory("VmHWM:"), .unit = "MB", .atMost = 150});
}
