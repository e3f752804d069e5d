#include "soak/conversion_kills.h"

#include "catalogue/mektp.h"
#include "jet_maker/old_catalogue.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/message_box.h"
#include "start/start_up.h"

#include <QBuffer>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRandomGenerator>
#include <QTextStream>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int pictures = 60;
constexpr int patienceMs = 60'000;

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) throw Error(path);
}

/// Bytes that begin and end as a photograph does.
QByteArray pictureOf(int number) {
    QImage image(480, 360, QImage::Format_RGB32);
    QRandomGenerator noise(quint32(number + 1));
    for (int y = 0; y < image.height(); ++y)
        noise.generate(reinterpret_cast<quint32*>(image.scanLine(y)),
                       reinterpret_cast<quint32*>(image.scanLine(y)) + image.width());
    QBuffer buffer;
    image.save(&buffer, "JPG", 90);
    return buffer.data();
}

class Kills {
  public:
    explicit Kills(const KillOrder& order) : order_(order), random_(order.seed) {
        for (int i = 0; i < pictures; ++i) pictures_ << pictureOf(i);
        const QByteArray button = pictureOf(0);
        old_ = jet::database(jet::oldCatalogueTables({.albums = {{u"tc01"_s, u"旅行"_s, pictures_.mid(0, pictures / 2)},
                                                                 {u"tc02"_s, u"生日"_s, pictures_.mid(pictures / 2)}},
                                                      .buttonPicture = button,
                                                      .screenPicture = button}));
    }

    int run() {
        QElapsedTimer clock;
        clock.start();
        beginAnew();
        const qint64 length = live(patienceMs);
        look(true);
        for (int kill = 0; kill < order_.kills && clock.elapsed() < order_.minutes * 60'000LL; ++kill) {
            if (kill % 3 == 0 || isConverted()) beginAnew();
            live(random_.bounded(int(length + length / 10 + 1)));
            ++kills_;
            look(false);
            constexpr int oneIn = 5;
            if (random_.bounded(oneIn) != 0) continue;
            live(patienceMs);
            ++goneOn_;
            look(true);
        }
        QTextStream(stdout)
            << u"conversion of %1 ms: %2 kills, %3 of them found it converted, %4 went on, %5 faults\n"_s.arg(length)
                   .arg(kills_)
                   .arg(converted_)
                   .arg(goneOn_)
                   .arg(faults_);
        return faults_ == 0 ? 0 : 1;
    }

  private:
    QString file(const QString& name) const { return QDir(order_.folder).filePath(name); }
    bool isConverted() const { return contentOf(file(u"lunq.mdb"_s)).startsWith("SQLite"); }

    void beginAnew() const {
        QDir(order_.folder).removeRecursively();
        QDir().mkpath(file(u"fresh"_s));
        write(file(u"lunq.mdb"_s), old_);
        if (!QFile::copy(order_.freshCatalogue, file(u"fresh/lunq.mdb"_s))) throw Error(u"no fresh catalogue"_s);
    }

    /// Lets the program live for so long, or until it has ended. Returns the time that it lived.
    qint64 live(int most) const {
        QProcess program;
        program.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        QElapsedTimer clock;
        clock.start();
        program.start(order_.program, {u"--convert"_s, order_.folder});
        if (!program.waitForStarted()) throw Error(program.errorString());
        if (!program.waitForFinished(most)) program.kill();
        program.waitForFinished();
        return clock.elapsed();
    }

    void look(bool mustBeConverted) {
        const QStringList names = QDir(order_.folder).entryList(QDir::Files);
        bool isOldThere = false;
        for (const QString& name : {u"lunq.mdb"_s, u"lunq-旧.mdb"_s})
            isOldThere = isOldThere || contentOf(file(name)) == old_;
        if (!isOldThere) complain(u"the old catalogue is gone: "_s + names.join(u' '));
        if (isConverted()) {
            ++converted_;
            lookInto(u"lunq.mdb"_s);
        } else if (mustBeConverted) {
            complain(u"it was not converted: "_s + names.join(u' '));
        }
        if (names.contains(u"lunq-转换好.mdb"_s)) lookInto(u"lunq-转换好.mdb"_s);
        if (!names.contains(u"lunq.mdb"_s) && !names.contains(u"lunq-转换好.mdb"_s))
            complain(u"there is no catalogue: "_s + names.join(u' '));
    }

    /// A new catalogue has to be whole, whenever there is one.
    void lookInto(const QString& name) {
        try {
            const Database made = OpenDatabase(file(name));
            QList<QByteArray> found;
            for (const QString& album : {u"tc01"_s, u"tc02"_s})
                for (Recordset rows = made.OpenRecordset(album); !rows.Eof(); rows.MoveNext())
                    found << rows.Fields(u"图片"_s).Value().toBytes();
            if (found != pictures_) complain(name + u" has other pictures"_s);
            if (made.OpenRecordset(u"tcbm"_s).rowCount() != 2) complain(name + u" has other albums"_s);
        } catch (const std::exception& failure) {
            complain(name + u": "_s + QString::fromUtf8(failure.what()));
        }
    }

    void complain(const QString& fault) {
        ++faults_;
        QTextStream(stdout) << u"FAULT after kill %1: "_s.arg(kills_) << fault << u'\n';
    }

    const KillOrder& order_;
    QRandomGenerator random_;
    QList<QByteArray> pictures_;
    QByteArray old_;
    int kills_ = 0, goneOn_ = 0, converted_ = 0, faults_ = 0;
};

}  // namespace

int convertOnce(const QString& folder) {
    setProgramFolder(folder);
    chooseInBoxesWith([](const BoxText&) { return 0; });
    StartUp start;
    const bool isDone = start.isReady() && mekTp::catalogue.isOurs();
    mekTp::catalogue = {};
    return isDone ? 0 : 1;
}

int killConversions(const KillOrder& order) {
    return Kills(order).run();
}
