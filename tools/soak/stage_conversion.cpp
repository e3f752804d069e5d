// An old catalogue of another format is converted when the program starts.

#include "catalogue/mektp.h"
#include "jet_maker/old_catalogue.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "soak/stage.h"
#include "soak/staged_catalogue.h"
#include "start/start_up.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QRandomGenerator>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int pictures = 60;

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

class ConversionStage : public Stage {
  public:
    ConversionStage(QString folder, QString fresh) : folder_(std::move(folder)), fresh_(std::move(fresh)) {
        for (int i = 0; i < pictures; ++i) pictures_ << pictureOf(i);
        const QByteArray button = pictureOf(0);
        old_ = jet::database(jet::oldCatalogueTables({.albums = {{u"tc01"_s, u"旅行"_s, pictures_.mid(0, pictures / 2)},
                                                                 {u"tc02"_s, u"生日"_s, pictures_.mid(pictures / 2)}},
                                                      .buttonPicture = button,
                                                      .screenPicture = button}));
    }

    void beginAnew() override {
        QDir(folder_).mkdir(u"fresh"_s);
        writeBytes(file(u"lunq.mdb"_s), old_);
        copyFile(fresh_, file(u"fresh/lunq.mdb"_s));
    }

    QStringList look(bool isThrough) override {
        QStringList faults;
        const QStringList names = QDir(folder_).entryList(QDir::Files);
        bool isOldThere = false;
        for (const QString& name : {u"lunq.mdb"_s, u"lunq-旧.mdb"_s})
            isOldThere = isOldThere || bytesOf(file(name)) == old_;
        if (!isOldThere) faults << u"the old catalogue is gone: "_s + names.join(u' ');
        if (isDone()) lookInto(u"lunq.mdb"_s, faults);
        if (isThrough && !isDone()) faults << u"it was not converted: "_s + names.join(u' ');
        if (names.contains(u"lunq-转换好.mdb"_s)) lookInto(u"lunq-转换好.mdb"_s, faults);
        if (!names.contains(u"lunq.mdb"_s) && !names.contains(u"lunq-转换好.mdb"_s))
            faults << u"there is no catalogue: "_s + names.join(u' ');
        return faults;
    }
    bool isDone() const override { return bytesOf(file(u"lunq.mdb"_s)).startsWith("SQLite"); }

  private:
    QString file(const QString& name) const { return QDir(folder_).filePath(name); }

    /// A new catalogue has to be whole, whenever there is one.
    void lookInto(const QString& name, QStringList& faults) const {
        try {
            const Database made = OpenDatabase(file(name));
            QList<QByteArray> found;
            for (const QString& album : {u"tc01"_s, u"tc02"_s})
                for (Recordset rows = made.OpenRecordset(album); !rows.Eof(); rows.MoveNext())
                    found << rows.Fields(u"图片"_s).Value().toBytes();
            if (found != pictures_) faults << name + u" has other pictures"_s;
            if (made.OpenRecordset(u"tcbm"_s).rowCount() != 2) faults << name + u" has other albums"_s;
        } catch (const std::exception& failure) {
            faults << name + u": "_s + QString::fromUtf8(failure.what());
        }
    }

    QString folder_, fresh_;
    QList<QByteArray> pictures_;
    QByteArray old_;
};

bool convert(const QString& folder) {
    setProgramFolder(folder);
    answerBoxesFor(u"转换"_s);
    StartUp start;
    const bool isDone = start.isReady() && mekTp::catalogue.isOurs();
    mekTp::catalogue = {};
    return isDone;
}

}  // namespace

StageKind conversionStage() {
    return {
        u"conversion"_s,
        [](const QString& folder, const QString& fresh) { return std::make_unique<ConversionStage>(folder, fresh); },
        convert};
}
