// A backup takes the place of the catalogue, which stays beside it under a dated name.

#include "catalogue/runs/backup_return.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "settings/backup/restore_swap.h"
#include "soak/samples.h"
#include "soak/stage.h"
#include "soak/staged_catalogue.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace {

class RestoreStage : public Stage {
  public:
    RestoreStage(QString folder, const QString& fresh)
        : folder_(std::move(folder)), template_(QDir(folder_).filePath(u"../restore-begin.mdb"_s)) {
        makeKnownCatalogue(fresh, template_);
        backup_ = contentOf(template_);
    }
    ~RestoreStage() override { removeCatalogue(template_); }
    RestoreStage(const RestoreStage&) = delete;
    RestoreStage& operator=(const RestoreStage&) = delete;

    void beginAnew() override {
        copyFile(template_, file(u"backup/lunq.mdb"_s));
        copyFile(template_, file(u"lunq.mdb"_s));
        changeCatalogue(file(u"lunq.mdb"_s));
        old_ = contentOf(file(u"lunq.mdb"_s));
    }

    QStringList look(bool isThrough) override {
        QStringList faults;
        const Found now = contentOf(file(u"lunq.mdb"_s), faults);
        if (now != old_ && now != backup_) faults << u"the catalogue is neither the old one nor the backup"_s;
        if (isThrough && now != backup_) faults << u"the backup was not restored"_s;
        bool isOldThere = now == old_;
        for (const QString& name : QDir(folder_).entryList({u"lunq-*.mdb"_s}, QDir::Files)) {
            const Found kept = contentOf(file(name), faults);
            isOldThere = isOldThere || kept == old_;
            if (kept != old_ && kept != backup_) faults << name + u" is no catalogue that was there"_s;
        }
        if (!isOldThere) faults << u"the old catalogue is lost"_s;
        if (contentOf(file(u"backup/lunq.mdb"_s), faults) != backup_) faults << u"the backup changed"_s;
        if (isThrough && QFile::exists(file(u"lunq.mdb.restore"_s))) faults << u"the prepared copy was left"_s;
        return faults;
    }
    bool isDone() const override { return contentOf(file(u"lunq.mdb"_s)) == backup_; }
    QString removable() const override { return file(u"backup"_s); }

  private:
    QString file(const QString& name) const {
        QDir(folder_).mkdir(u"backup"_s);
        return QDir(folder_).filePath(name);
    }

    QString folder_, template_;
    Found backup_, old_;
};

bool restore(const QString& folder) {
    setProgramFolder(folder);
    try {
        RunWatch watch;
        const RunReport report =
            prepareRestore(QDir(folder).filePath(u"backup/lunq.mdb"_s), preparedRestorePath(), watch);
        if (!report.cameToEnd) return false;
        carryOutRestore();
        return true;
    } catch (const Error&) {
        return false;
    }
}

}  // namespace

StageKind restoreStage() {
    return {u"restore"_s,
            [](const QString& folder, const QString& fresh) { return std::make_unique<RestoreStage>(folder, fresh); },
            restore};
}
