// Times the picture editor on a photograph of 12 megapixels, with the nearest operation of the toolkit as peer, and
// measures the memory of a session. Run by hand: bench_editor [rounds]

#include "../tests/editor/editor_window.h"
#include "catalogue/picture_field.h"
#include "editor/pixels/painting.h"
#include "editor/pixels/rotation.h"
#include "memory.h"
#include "platform/desktop/look.h"
#include "scene.h"
#include "table.h"
#include "timing.h"

#include <QFile>
#include <QTransform>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "editor";
constexpr double degrees = 33;
constexpr int quality = 80;

void report(const char* what, double time, const char* peer, double peerTime) {
    row(topic, {.what = what, .measured = time, .peer = peer, .peerMeasured = peerTime});
}

void timePixels(const std::function<double(const std::function<void()>&)>& time) {
    const QImage picture = photograph();
    const QRect whole = picture.rect();
    const QRgb background = qRgb(255, 255, 255);
    const auto paint = [&](const QRect& source, QSize target, Mirror mirror) {
        return time([&] { painted(picture, source, target, mirror, background); });
    };
    const auto scaled = [&](double factor, Qt::TransformationMode mode) {
        return time([&] { (void)picture.scaled(picture.size() * factor, Qt::IgnoreAspectRatio, mode); });
    };

    const QSize turned = rotatedSize(picture.size(), degrees);
    report("rotation by 33", time([&] { rotated(picture, turned, degrees, background); }), "QImage::transformed, fast",
           time([&] { (void)picture.transformed(QTransform().rotate(-degrees), Qt::FastTransformation); }));

    const double copy = time([&] { (void)picture.copy(); });
    const QRect middle = whole.adjusted(200, 150, -200, -150);
    report("horizontal flip", paint(whole, picture.size(), Mirror::horizontal), "plain copy", copy);
    report("vertical flip", paint(whole, picture.size(), Mirror::vertical), "plain copy", copy);
    report("crop", paint(middle, middle.size(), Mirror::none), "plain copy", copy);

    report("scale by 0.5", paint(whole, picture.size() * 0.5, Mirror::none), "QImage::scaled, fast",
           scaled(0.5, Qt::FastTransformation));
    for (const auto& [name, factor] : {std::pair("scale by 0.37", 0.37), std::pair("scale by 1.5", 1.5)})
        report(name, paint(whole, picture.size() * factor, Mirror::none), "QImage::scaled, smooth",
               scaled(factor, Qt::SmoothTransformation));
}

void storeTwice(const QByteArray& picture) {
    Recordset album = mekTp::catalogue.OpenRecordset(u"tc01"_s);
    for (int i = 0; i < 2; ++i, album.MoveNext()) {
        album.Edit();
        storePictureBytes(album.Fields(u"图片"_s), picture);
        album.Update();
    }
}

void openFromAlbum(const EditorWindow& editor) {
    editor.trigger(u"mnuCs"_s);
    auto* albums = editor.find<QComboBox>(u"cboBm"_s);
    albums->setCurrentIndex(albums->findText(u"tc01"_s, Qt::MatchStartsWith));
    Q_EMIT albums->activated(albums->currentIndex());
    editor.click(u"cmdQd"_s);
    QApplication::processEvents();
}

void timeSteps(EditorWindow& editor, const QByteArray& picture,
               const std::function<double(const std::function<void()>&)>& time) {
    const QImage image = editor.picYu().picture();
    auto& document = *editor.find<Document>({});
    report("recording an undo step", time([&] { document.record({}, 0); }), "encoding, quality 80",
           time([&] { encodeJpeg(image, quality); }));
    document.clearSteps();

    const double decoding = time([&] { LoadPicture(picture, u"photograph"_s); });
    Recordset album = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tc01 ORDER BY [序号]"_s);
    report("reading from the album", time([&] { pictureFromField(album, u"图片"_s); }), "decoding", decoding);
    report("opening", time([&] { editor.trigger(u"mnuTy"_s); }), "decoding", decoding);
}

/// Opening, then every operation at the size of the photograph, and back.
void tellMemory(EditorWindow& editor) {
    forgetPeak();
    const double before = memory("VmRSS:");
    const auto tell = [&](const std::string& after) {
        QApplication::processEvents();
        row(topic, {.what = "memory after " + after, .measured = memory("VmRSS:") - before, .unit = "MB"});
    };
    openFromAlbum(editor);
    tell("opening");
    editor.trigger(u"mnuFs"_s);
    tell("a flip");
    editor.scale(u"1"_s);
    tell("scaling to its own size");
    editor.trigger(u"mnuFc"_s);
    editor.trigger(u"mnuCx"_s);
    tell("taking a step back");
    editor.trigger(u"mnuTy"_s);
    tell("opening again");
    editor.rotate(QString::number(degrees));
    tell("a rotation to 23 million");
    row(topic, {.what = "the most of it", .measured = memory("VmHWM:") - before, .unit = "MB"});
}

/// A turn of the wheel with Ctrl, and what the window paints for it.
void turnWheel(const EditorWindow& editor, int angle) {
    auto* picGd = editor.find(u"picGd"_s);
    const QPointF at(700, 400);
    QWheelEvent wheel(at, picGd->mapToGlobal(at), {}, {0, angle}, Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(picGd, &wheel);
    QApplication::processEvents();
}

void drag(const EditorWindow& editor, QEvent::Type type, QPoint at) {
    const bool held = type != QEvent::MouseButtonRelease;
    QMouseEvent event(type, at, at, type == QEvent::MouseMove ? Qt::NoButton : Qt::MiddleButton,
                      held ? Qt::MiddleButton : Qt::NoButton, {});
    QApplication::sendEvent(editor.find(u"picGd"_s), &event);
    QApplication::processEvents();
}

/// The slowest step from the whole picture to three times its size and back, and the slowest of a drag. Each step is
/// the median of its rounds.
void timeZoom(EditorWindow& editor, const QImage& picture, const std::string& name, double atMost, int rounds) {
    editor.find<Document>({})->open(PictureFile{u"photograph"_s, 0, {}}, Picture(picture), {});
    editor.window->resize(1920, 1080);
    QApplication::processEvents();

    constexpr int steps = 16;
    std::vector<std::vector<double>> zoom(2 * steps), move(steps);
    for (int round = 0; round < rounds; ++round) {
        for (size_t i = 0; i < zoom.size(); ++i)
            zoom[i].push_back(milliseconds([&] { turnWheel(editor, i < steps ? 120 : -120); }));
        turnWheel(editor, 480);
        drag(editor, QEvent::MouseButtonPress, {900, 500});
        for (size_t i = 0; i < move.size(); ++i)
            move[i].push_back(milliseconds([&] {
                drag(editor, QEvent::MouseMove, {900 - 20 * int(i), 500 - 10 * int(i)});
            }));
        drag(editor, QEvent::MouseButtonRelease, {600, 350});
        turnWheel(editor, -4800);
    }
    const auto slowest = [](const std::vector<std::vector<double>>& times) {
        double most = 0;
        for (const auto& step : times) most = std::max(most, median(step));
        return most;
    };
    row(topic,
        {.what = "slowest step of zooming at 1920 x 1080, " + name, .measured = slowest(zoom), .atMost = atMost});
    row(topic, {.what = "slowest step of moving at 1920 x 1080, " + name, .measured = slowest(move), .atMost = atMost});
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 15;
    const auto time = [&](const std::function<void()>& work) { return medianMilliseconds(rounds, work); };

    const QByteArray picture = encodeJpeg(photograph(), quality);
    EditorWindow editor;
    editor.reply = u"不保存"_s;
    storeTwice(picture);
    tellMemory(editor);
    openFromAlbum(editor);
    timeSteps(editor, picture, time);
    timePixels(time);
    timeZoom(editor, photograph(), "12 megapixels", 16, rounds);
    timeZoom(editor, photograph().scaled(11600, 8700), "100 megapixels", 33, rounds);
}
