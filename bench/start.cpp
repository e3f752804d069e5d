// Times the start of the album, from the start of its process until its event loop is idle for the first time. It opens
// the shipped catalogue with 20 more albums, 100,000 pictures in total. The peer is a bare window; a second one with a
// word shows how much of the time goes into finding fonts. Run by hand: bench_start [rounds]

#include "catalogue/album_directory.h"
#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "filling.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "table.h"
#include "timing.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int albums = 20;
constexpr int picturesPerAlbum = 5000;

void copy(const QString& from, const QString& to) {
    if (!QFile::copy(from, to)) throw Error(u"%1 → %2"_s.arg(from, to));
}

/// The last album that was open is one of the new ones.
void makeCatalogue(const QString& folder) {
    setProgramFolder(folder);
    copy(QStringLiteral(LUNQ_FRESH_CATALOGUE), mekTp::cataloguePath());
    QFile::setPermissions(mekTp::cataloguePath(), QFile::ReadOwner | QFile::WriteOwner);
    mekTp::openCatalogue();
    const QByteArray picture(3000, 'p');
    const int shipped = int(allAlbums(mekTp::catalogue).size());
    for (int number = shipped; number < shipped + albums; ++number) {
        const Album album{QString::number(number + 1), albumTableName(number), u"第%1册"_s.arg(number), {}};
        createAlbum(mekTp::catalogue, album);
        fillAlbum(mekTp::catalogue, album.table, picturesPerAlbum, [&](int) { return picture; });
    }
    Recordset settings = mekTp::catalogue.OpenRecordset(u"tcsz"_s);
    settings.Edit();
    settings.Fields(u"当前像册"_s).SetValue(albumTableName(shipped).mid(2));
    settings.Update();
    settings = {};
    mekTp::catalogue = {};
}

struct Start {
    double clock;    ///< Measured outside the program, until it says that it is idle.
    double process;  ///< From within, the loading of its libraries not counted.
};

Start start(const QString& program, const QStringList& arguments = {}) {
    QProcess process;
    QElapsedTimer timer;
    timer.start();
    process.start(program, arguments);
    if (!process.waitForReadyRead()) throw Error(program);
    const double clock = double(timer.nsecsElapsed()) / 1e6;
    const double within = process.readLine().toDouble();
    process.waitForFinished();
    return {clock, within};
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QCoreApplication application(argc, argv);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 21;
    const QTemporaryDir folder;
    makeCatalogue(folder.path());
    const QString album = folder.filePath(u"start_album"_s);
    copy(QCoreApplication::applicationDirPath() + u"/start_album"_s, album);
    const QString bare = QCoreApplication::applicationDirPath() + u"/start_bare"_s;

    std::vector<double> clock, process, bareClock, bareProcess, wordClock;
    for (int i = 0; i < rounds; ++i) {  // in turn, so that other work of the machine slows all of them alike
        const Start one = start(album), other = start(bare);
        clock.push_back(one.clock);
        process.push_back(one.process);
        bareClock.push_back(other.clock);
        bareProcess.push_back(other.process);
        wordClock.push_back(start(bare, {u"打开图册"_s}).clock);
    }
    const char* peer = "bare Qt window";
    row("start", {.what = "start to first idle, 20 albums, 100,000 pictures",
                  .measured = median(clock),
                  .peer = peer,
                  .peerMeasured = median(bareClock),
                  .timesPeer = 1.5});
    row("start", {.what = "the same beside a window that shows a word",
                  .measured = median(clock),
                  .peer = "bare Qt window with one word",
                  .peerMeasured = median(wordClock)});
    row("start", {.what = "without the loading of libraries",
                  .measured = median(process),
                  .peer = peer,
                  .peerMeasured = median(bareProcess)});
}
