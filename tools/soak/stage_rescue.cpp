// What is whole of a damaged catalogue is taken out, and takes its place.

#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "platform/base/files.h"
#include "soak/samples.h"
#include "soak/stage.h"
#include "soak/staged_catalogue.h"
#include "start/start_up.h"
#include "start/ways_out.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace {

class RescueStage : public Stage {
  public:
    RescueStage(QString folder, const QString& fresh) : folder_(std::move(folder)), fresh_(fresh) {
        const QString whole = QDir(folder_).filePath(u"../rescue-begin.mdb"_s);
        makeKnownCatalogue(fresh, whole);
        content_ = albumsOf(contentOf(whole));
        damaged_ = cutOff(whole);
        removeCatalogue(whole);
    }

    void beginAnew() override {
        QDir(folder_).mkdir(u"fresh"_s);
        copyFile(fresh_, file(u"fresh/lunq.mdb"_s));
        writeBytes(file(u"lunq.mdb"_s), damaged_);
    }

    QStringList look(bool isThrough) override {
        QStringList faults;
        QStringList names = QDir(folder_).entryList({u"lunq*.mdb"_s}, QDir::Files);
        const bool isDamagedThere =
            std::ranges::any_of(names, [this](const QString& name) { return bytesOf(file(name)) == damaged_; });
        if (!isDamagedThere) faults << u"the damaged catalogue is gone"_s;
        if (!names.contains(u"lunq.mdb"_s) && !names.contains(u"lunq-取出好.mdb"_s))
            faults << u"there is no catalogue"_s;
        if (isThrough && !isDone()) faults << u"it was not taken out"_s;
        for (const QString& name : {u"lunq.mdb"_s, u"lunq-取出好.mdb"_s}) {
            if (!names.contains(name) || bytesOf(file(name)) == damaged_) continue;
            if (albumsOf(contentOf(file(name), faults)) != content_) faults << name + u" has other pictures"_s;
        }
        return faults;
    }
    bool isDone() const override { return bytesOf(file(u"lunq.mdb"_s)) != damaged_; }

  private:
    QString file(const QString& name) const { return QDir(folder_).filePath(name); }

    /// The new catalogue has a bin of its own.
    static Found albumsOf(Found found) {
        found.remove(u"lunq_bin"_s);
        return found;
    }

    /// The last pages are those of a step of the editor, which nobody will miss.
    static QByteArray cutOff(const QString& path) {
        {
            Samples samples(1);
            Recordset steps = OpenDatabase(path).OpenRecordset(u"tccx"_s);
            steps.AddNew();
            storePictureBytes(steps.Fields(u"图片"_s), samples.large());
            steps.Update();
        }
        const QByteArray whole = bytesOf(path);
        constexpr qsizetype pages = 40, pageSize = 16384;
        return whole.first(whole.size() - pages * pageSize);
    }

    QString folder_, fresh_;
    Found content_;
    QByteArray damaged_;
};

bool rescue(const QString& folder) {
    setProgramFolder(folder);
    answerBoxesFor(takesOutWhole);
    StartUp start;
    const bool isDone = start.isReady();
    mekTp::catalogue = {};
    return isDone;
}

}  // namespace

StageKind rescueStage() {
    return {u"rescue"_s,
            [](const QString& folder, const QString& fresh) { return std::make_unique<RescueStage>(folder, fresh); },
            rescue};
}
