// The catalogue is copied to another disk and verified; the last copies are kept under dated names.

#include "backup/catalogue_copy.h"
#include "catalogue/backup_file.h"
#include "platform/base/error.h"
#include "soak/samples.h"
#include "soak/stage.h"
#include "soak/staged_catalogue.h"

#include <QDir>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

QString catalogueIn(const QString& folder) {
    return QDir(folder).filePath(u"lunq.mdb"_s);
}

QString backupIn(const QString& folder) {
    return QDir(folder).filePath(u"disk/lunq.mdb"_s);
}

class BackupStage : public Stage {
  public:
    BackupStage(QString folder, const QString& fresh)
        : folder_(std::move(folder)), template_(QDir(folder_).filePath(u"../backup-begin.mdb"_s)) {
        makeKnownCatalogue(fresh, template_);
    }
    ~BackupStage() override { removeCatalogue(template_); }
    BackupStage(const BackupStage&) = delete;
    BackupStage& operator=(const BackupStage&) = delete;

    void beginAnew() override {
        QDir(folder_).mkdir(u"disk"_s);
        copyFile(template_, catalogueIn(folder_));
        states_ = {contentOf(template_)};
        kept_.clear();
    }

    /// After each backup the catalogue changes, so that no two are the same.
    QStringList look(bool isThrough) override {
        QStringList faults;
        if (contentOf(catalogueIn(folder_), faults) != states_.last()) faults << u"the catalogue itself changed"_s;
        const QList<int> there = backups(faults);
        lookAtKept(there, isThrough, faults);
        kept_ = there;
        if (there.value(0, -1) == int(states_.size()) - 1) {
            changeCatalogue(catalogueIn(folder_));
            states_ << contentOf(catalogueIn(folder_));
        }
        return faults;
    }
    bool isDone() const override { return false; }
    QString removable() const override { return QDir(folder_).filePath(u"disk"_s); }

  private:
    /// For each file that is called a backup the number of its state; the newest name comes first.
    QList<int> backups(QStringList& faults) const {
        QList<int> numbers;
        const QDir disk(removable());
        for (const QString& name :
             disk.entryList({u"lunq.mdb"_s}, QDir::Files) + disk.entryList({u"lunq-*.mdb"_s}, QDir::Files)) {
            const auto state = states_.indexOf(contentOf(disk.filePath(name), faults));
            if (state < 0) faults << name + u" is no state of the catalogue"_s;
            numbers << int(state);
        }
        if (!numbers.isEmpty() && !disk.exists(u"lunq.mdb"_s)) faults << u"the newest backup has no name"_s;
        return numbers;
    }

    /// A new backup takes the place of the newest one, which goes on as the first of the older ones.
    void lookAtKept(const QList<int>& there, bool isThrough, QStringList& faults) const {
        QList<int> before = kept_;
        std::ranges::sort(before, std::greater());
        before.erase(std::unique(before.begin(), before.end()), before.end());
        const bool isNew = !there.isEmpty() && there.front() == int(states_.size()) - 1;
        for (const int state :
             before.first(std::min<qsizetype>(before.size(), isNew ? olderBackups : olderBackups + 1)))
            if (!there.contains(state)) faults << u"the backup %1 is lost"_s.arg(state);
        if (!isThrough) return;
        if (!isNew) faults << u"the newest backup is an old one"_s;
        if (there.size() > olderBackups + 1) faults << u"there are %1 backups"_s.arg(there.size());
        for (const int state : there)
            if (there.count(state) > 1) faults << u"the backup %1 is there twice"_s.arg(state);
        for (const QString& name : QDir(removable()).entryList(QDir::Files))
            if (!name.endsWith(u".mdb")) faults << name + u" was left"_s;
    }

    QString folder_, template_;
    QList<Found> states_;
    QList<int> kept_;
};

bool copy(const QString& folder) {
    try {
        copyCatalogue(catalogueIn(folder), backupIn(folder));
        return true;
    } catch (const Error&) {
        return false;
    }
}

}  // namespace

StageKind backupStage() {
    return {u"backup"_s,
            [](const QString& folder, const QString& fresh) { return std::make_unique<BackupStage>(folder, fresh); },
            copy};
}
