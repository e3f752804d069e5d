// A catalogue that an older version has made gets the tables in which this one remembers things.

#include "catalogue/mektp.h"
#include "platform/base/files.h"
#include "soak/samples.h"
#include "soak/stage.h"
#include "soak/staged_catalogue.h"
#include "start/start_up.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace {

QString catalogueIn(const QString& folder) {
    return QDir(folder).filePath(u"lunq.mdb"_s);
}

int versionOf(const QString& file) {
    SQLite::Database database(file.toStdString(), SQLite::OPEN_READWRITE);
    return database.execAndGet("PRAGMA user_version").getInt();
}

class RaisingStage : public Stage {
  public:
    RaisingStage(QString folder, const QString& fresh)
        : folder_(std::move(folder)), template_(QDir(folder_).filePath(u"../raising-begin.mdb"_s)) {
        makeKnownCatalogue(fresh, template_);
        own_ = ownParts(template_);
        makeOld();
        content_ = contentOf(template_);
    }
    ~RaisingStage() override { removeCatalogue(template_); }
    RaisingStage(const RaisingStage&) = delete;
    RaisingStage& operator=(const RaisingStage&) = delete;

    void beginAnew() override { copyFile(template_, catalogue()); }

    /// The engine takes back what was not finished, before anything else is looked at.
    QStringList look(bool isThrough) override {
        QStringList faults;
        Found now = contentOf(catalogue(), faults);
        now.remove(u"lunq_bin"_s);
        if (now != content_) faults << u"the albums changed"_s;
        const int version = versionOf(catalogue());
        const QStringList parts = ownParts(catalogue());
        const bool isWhole = (version == 1 && parts.isEmpty()) || (version == 2 && parts == own_);
        if (!isWhole) faults << u"version %1 has %2"_s.arg(version).arg(parts.join(u' '));
        if (isThrough && version != 2) faults << u"it was not raised"_s;
        return faults;
    }
    bool isDone() const override { return versionOf(catalogue()) == 2; }
    bool isEngineAlone() const override { return true; }

  private:
    QString catalogue() const { return catalogueIn(folder_); }

    static QStringList ownParts(const QString& file) {
        SQLite::Database database(file.toStdString(), SQLite::OPEN_READWRITE);
        SQLite::Statement list(database, "SELECT name FROM sqlite_schema WHERE name LIKE 'lunq%' ORDER BY name");
        QStringList names;
        while (list.executeStep()) names << QString::fromStdString(list.getColumn(0).getString());
        return names;
    }

    void makeOld() const {
        SQLite::Database database(template_.toStdString(), SQLite::OPEN_READWRITE);
        for (const char* part : {"TRIGGER lunq_bin_keeps", "TRIGGER lunq_bin_deleted", "TRIGGER lunq_hashes_deleted",
                                 "TABLE lunq_bin", "TABLE lunq_hashes", "TABLE lunq_values"})
            database.exec(std::string("DROP ") + part);
        database.exec("PRAGMA user_version = 1");
    }

    QString folder_, template_;
    QStringList own_;
    Found content_;
};

bool raise(const QString& folder) {
    setProgramFolder(folder);
    answerBoxesFor({});
    StartUp start;
    // It starts also where the disk has no room for that.
    const bool isReady = start.isReady();
    mekTp::catalogue = {};
    return isReady && versionOf(catalogueIn(folder)) == 2;
}

}  // namespace

StageKind raisingStage() {
    return {u"raising"_s,
            [](const QString& folder, const QString& fresh) { return std::make_unique<RaisingStage>(folder, fresh); },
            raise};
}
