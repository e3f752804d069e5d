// Times how pictures of other formats become JPEG, as they are taken in, and how a JPEG is turned without loss:
// bench_formats [rounds]

#include "../tests/platform/picture/formats/format_samples.h"
#include "jpeg_library.h"
#include "platform/picture/formats/any_picture.h"
#include "platform/picture/lossless_turn.h"
#include "png_library.h"
#include "scene.h"
#include "table.h"

#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "formats";
constexpr int quality = 92;
constexpr int pictures = 8;

/// Ours and the other one in turn, so that other work of the machine slows both alike.
void compare(const std::string& what, int rounds, const QByteArray& bytes, const std::string& peer,
             const std::function<void()>& byPeer) {
    std::vector<double> own, others;
    for (int i = 0; i < rounds; ++i) {
        own.push_back(milliseconds(
            [&] { onAllProcessors(pictures, [&](int) { jpegOf(readAnyPicture(bytes, u"picture"_s), quality); }); }));
        others.push_back(milliseconds([&] { onAllProcessors(pictures, [&](int) { byPeer(); }); }));
    }
    row(topic, {.what = what, .measured = median(own), .peer = peer, .peerMeasured = median(others), .timesPeer = 1.2});
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) qFatal("cannot read");
    return file.readAll();
}

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("cannot write");
}

/// From file to file.
void compareTurns(int rounds, const QString& folder) {
    constexpr Orientation rightwards = 6;
    const QString from = folder + u"/upright.jpg"_s, to = folder + u"/turned.jpg"_s;
    write(from, encodeJpeg(photograph().copy(0, 0, 4000, 2992), quality));  // sides of whole blocks
    std::vector<double> own, others;
    for (int i = 0; i < rounds; ++i) {
        own.push_back(milliseconds([&] { write(to, turnedJpeg(bytesOf(from), rightwards).value()); }));
        others.push_back(milliseconds([&] {
            if (QProcess::execute(u"jpegtran"_s, {u"-rotate"_s, u"90"_s, u"-outfile"_s, to, from}) != 0)
                qFatal("jpegtran cannot be run");
        }));
    }
    row(topic, {.what = "lossless turn of a JPEG of 12 MP",
                .measured = median(own),
                .peer = "jpegtran -rotate 90",
                .peerMeasured = median(others),
                .timesPeer = 1.2});
}

}  // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 3;
    const QByteArray png = pngBytes(photograph().copy(0, 0, 3264, 2448));
    compare("8 PNG of 8 MP into JPEG, all processors", rounds, png, "libpng and libjpeg-turbo in a row",
            [&] { jpegByLibraries(png, quality); });

    const QTemporaryDir folder;
    const QString file = folder.filePath(u"picture.heic"_s);
    const QByteArray heic = heifBytes(photograph());
    write(file, heic);
    std::atomic<int> number = 0;
    compare("8 HEIC of 12 MP into JPEG, all processors", rounds, heic, "heif-convert, same quality", [&] {
        const QString to = folder.filePath(u"%1.jpg"_s.arg(++number));
        if (QProcess::execute(u"heif-convert"_s, {u"-q"_s, QString::number(quality), file, to}) != 0)
            qFatal("heif-convert cannot be run");
    });
    compareTurns(5 * rounds, folder.path());
}
