#include "soak/staged_catalogue.h"

#include "catalogue/backup_file.h"
#include "catalogue/bin.h"
#include "catalogue/runs/proof_run.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "soak/inspection.h"
#include "soak/samples.h"

#include <QFile>
#include <memory>

using namespace Qt::Literals::StringLiterals;

void makeKnownCatalogue(const QString& freshCatalogue, const QString& path) {
    constexpr int longPictures = 100;
    makeCatalogue(freshCatalogue, path, longPictures);
    {
        const Database database = OpenDatabase(path);
        OwnValues(database).prepare(Bin::tables());
        giveIdentity(database);
    }
    RunWatch watch;
    if (const RunReport report = proveCatalogue(path, watch); !report.cameToEnd || !report.items.empty())
        throw Error(u"the catalogue cannot be proved"_s);
}

void changeCatalogue(const QString& path) {
    const Database database = OpenDatabase(path);
    Recordset rows = database.OpenRecordset(longAlbum);
    rows.Delete();
}

Found contentOf(const QString& path) {
    QStringList ignored;
    return contentOf(path, ignored);
}

Found contentOf(const QString& path, QStringList& faults) {
    return lookIntoCatalogue(path, {}, faults);
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) throw Error(file.errorString());
}

void copyFile(const QString& from, const QString& to) {
    QFile::remove(to);
    if (!QFile::copy(from, to)) throw Error(u"%1 cannot be copied to %2"_s.arg(from, to));
}

void answerBoxesFor(const QString& way) {
    chooseInBoxesWith([way, isTaken = std::make_shared<bool>(false)](const BoxText& box) {
        const bool takes = !*isTaken && box.answers.contains(way);
        *isTaken = *isTaken || takes;
        return takes || !box.answers.contains(u"退出"_s) ? 0 : int(box.answers.size()) - 1;
    });
}
