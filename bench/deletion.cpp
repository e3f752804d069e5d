// Times the deletion of 1,000 pictures of 3 MB by the pages of the settings window, until the file is small again. The
// peer is the deletion of 1,000 files. Run by hand: bench_deletion [pictures]

#include "../tests/settings/editing_window.h"
#include "filling.h"
#include "platform/base/error.h"
#include "platform/desktop/look.h"
#include "table.h"
#include "timing.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "deletion";
constexpr int mostMilliseconds = 3000;
constexpr int patience = 60000;
constexpr qint64 pictureLength = 3000000;

/// A small picture, filled up with zeros to the length of a photograph.
QByteArray picture() {
    QByteArray bytes = pictureBytes({400, 300}, Qt::darkGreen);
    return bytes.append(QByteArray(pictureLength - bytes.size(), 'x'));
}

qint64 fileLength() {
    return QFileInfo(mekTp::cataloguePath()).size();
}

void makeAlbum(int pictures) {
    mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
    fillAlbum(mekTp::catalogue, u"tc01"_s, pictures, [bytes = picture()](int) { return bytes; });
}

/// How long the deletion takes until the file holds hardly more than it does without the pictures.
double untilSpaceIsBack(const std::function<void()>& deletion) {
    bool isBack = false;
    const double time = milliseconds([&] {
        deletion();
        isBack = QTest::qWaitFor([] { return fileLength() < 10 * pictureLength; }, patience);
    });
    return isBack ? time : failed;
}

/// The page's own way with an album: chosen, "删 除", "确定".
double albumDeleted(SettingsWindow& window) {
    window.tabs().setCurrentIndex(1);
    window.choose(u"cboFc"_s, u"tc01"_s);
    return milliseconds([&] { window.click(u"cmdFs"_s); });
}

double filesDeleted(int count) {
    const QTemporaryDir folder;
    const QByteArray bytes = picture();
    for (int i = 0; i < count; ++i) {
        QFile file(folder.filePath(QString::number(i)));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) throw Error(file.errorString());
    }
    QProcess::execute(u"sync"_s, QStringList());
    return milliseconds([&] {
        QProcess::execute(u"rm"_s, {u"-r"_s, folder.path()});
        QProcess::execute(u"sync"_s, QStringList());
    });
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
    const int pictures = argc > 1 ? std::max(20, std::atoi(argv[1])) : 1000;
    const std::string these = std::to_string(pictures) + " pictures of 3 MB";
    const double files = filesDeleted(pictures);
    {
        SettingsWindow window;
        makeAlbum(pictures);
        double click = 0;
        const double all = untilSpaceIsBack([&] { click = albumDeleted(window); });
        row(topic, {.what = "delete an album of " + these + ", space given back",
                    .measured = all,
                    .peer = "rm and sync of such files",
                    .peerMeasured = files,
                    .atMost = mostMilliseconds});
        row(topic, {.what = "of it the click itself", .measured = click});
    }
    {
        EditingWindow window(QString{});
        makeAlbum(pictures);
        window.choose(u"cboBm"_s, u"tc01"_s);
        std::vector<double> clicks;
        const double all = untilSpaceIsBack([&] {
            for (int i = 0; i < pictures; ++i) clicks.push_back(milliseconds([&] { window.click(u"cmdSc"_s); }));
        });
        row(topic, {.what = "delete one of " + these + ", by its record", .measured = median(clicks), .atMost = 33});
        row(topic, {.what = "delete all " + std::to_string(pictures) + " so, space given back",
                    .measured = all,
                    .peer = "rm and sync of such files",
                    .peerMeasured = files});
    }
}
