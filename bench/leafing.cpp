// Times leafing and zooming in the full view: photographs of 12 megapixels in a window of 1920 x 1080. Run by hand:
// bench_leafing [rounds]

#include "filling.h"
#include "platform/desktop/look.h"
#include "scene.h"
#include "table.h"
#include "viewed_pages.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "leafing";
constexpr int pictures = 18;
constexpr double oneFrame = 33;
constexpr int restMs = 300;

/// A window of 1920 x 1080 with a picture of its first page in view.
class View {
  public:
    View() {
        window_.resize(1920, 1080);
        window_.show();
        window_.findChild<QAction*>(u"mnuCd(1)"_s)->trigger();
        window_.findChild<TextBox*>(u"txtLs"_s)->setText(u"3列"_s);
        Q_EMIT window_.findChild<ImageBox*>(u"imgAn(0)"_s)->clicked();
        Q_EMIT window_.findChild<ImageBox*>(u"imgXs(6)"_s)->doubleClicked();
        rest(restMs);
    }

    void key(Qt::Key key, Qt::KeyboardModifiers with = {}) { QTest::keyClick(target(), key, with, 0); }
    static void paint() { QApplication::processEvents(); }
    bool isSharp() const {
        const ImageBox* shown = picture();
        return shown->picture().image().size() == shown->targetSize();
    }
    bool waitForSharpness() const {
        QElapsedTimer timer;
        timer.start();
        while (!isSharp() && !timer.hasExpired(ViewedPages::patience))
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return isSharp();
    }
    void drag(QPoint way) {
        QWidget* panel = window_.findChild<QWidget*>(u"pic0"_s);
        const QPoint from = panel->mapTo(&window_, panel->rect().center());
        QTest::mousePress(window_.windowHandle(), Qt::LeftButton, {}, from, 0);
        QTest::mouseMove(window_.windowHandle(), from + way, 0);
        QTest::mouseRelease(window_.windowHandle(), Qt::LeftButton, {}, from + way, 0);
    }

  private:
    QWidget* black() const {
        auto* found = window_.findChild<QWidget*>(u"frmQp"_s);
        return found != nullptr && found->isVisible() ? found : nullptr;
    }
    QWidget* target() { return black() != nullptr ? black() : window_.centralWidget(); }
    const ImageBox* picture() const {
        return window_.findChild<ImageBox*>(black() != nullptr ? u"imgQp"_s : u"img0"_s);
    }

    RecordingWindows windows_;
    frmTp window_{windows_};
};

/// A leaf until it is painted, sharp.
double timeLeafing(View& view, int rounds, Qt::Key key, int restBefore) {
    return medianMilliseconds(
        rounds,
        [&] {
            view.key(key);
            View::paint();
        },
        [&] { rest(restBefore); }, [&] { return view.isSharp(); });
}

double timeZooming(View& view, int rounds) {
    return medianMilliseconds(rounds, [&] {
        view.key(Qt::Key_Plus, Qt::ControlModifier);
        View::paint();
    });
}

double timeDragging(View& view, int rounds) {
    return medianMilliseconds(rounds, [&] {
        view.drag({-90, -60});
        View::paint();
    });
}

double timeSharpness(View& view, int rounds) {
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        view.key(Qt::Key_0, Qt::ControlModifier);
        rest(restMs);
        times.push_back(milliseconds([&] {
            view.key(Qt::Key_1, Qt::ControlModifier);
            if (!view.waitForSharpness()) times.push_back(failed);
            View::paint();
        }));
    }
    return median(times);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 6;
    const SampleCatalogue catalogue;
    mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
    fillAlbum(mekTp::catalogue, u"tc01"_s, pictures, [&](int number) { return coded(photograph(number)); });
    for (Recordset album = mekTp::catalogue.OpenRecordset(u"tc01"_s); !album.Eof(); album.MoveNext()) {
        album.Edit();
        album.Fields(u"规格"_s).SetValue(u"4000 * 3000"_s);
        album.Update();
    }

    View view;
    row(topic, {.what = "next picture after 0.3 s of rest, over the end of the page",
                .measured = timeLeafing(view, rounds, Qt::Key_Right, restMs),
                .atMost = oneFrame});
    row(topic, {.what = "previous picture after 0.3 s of rest",
                .measured = timeLeafing(view, rounds, Qt::Key_Left, restMs),
                .atMost = oneFrame});
    row(topic, {.what = "next picture without rest", .measured = timeLeafing(view, rounds, Qt::Key_Right, 0)});
    row(topic, {.what = "one to one, until it is sharp", .measured = timeSharpness(view, rounds)});
    row(topic, {.what = "a step of dragging", .measured = timeDragging(view, rounds)});
    view.key(Qt::Key_0, Qt::ControlModifier);
    row(topic, {.what = "a step of zooming", .measured = timeZooming(view, rounds)});
    view.key(Qt::Key_0, Qt::ControlModifier);
    view.key(Qt::Key_F11);
    row(topic, {.what = "on black over the whole screen, previous picture after rest",
                .measured = timeLeafing(view, rounds, Qt::Key_Left, restMs),
                .atMost = oneFrame});
}
