#include "catalogue/mektp.h"

#include "catalogue/album_rules.h"
#include "catalogue/bin.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/database/records/own_values.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

QString& chosenCatalogue() {
    static QString path;
    return path;
}

}  // namespace

namespace mekTp {

Database catalogue;
QString currentTable = demoTable;
int titleBarExtra = 0;

QString cataloguePath() {
    return chosenCatalogue().isEmpty() ? joinedPath(programFolder(), u"lunq.mdb"_s) : chosenCatalogue();
}

void setCataloguePath(const QString& path) {
    chosenCatalogue() = path;
}

QString lockPath() {
    const QFileInfo file(QFileInfo(cataloguePath()).canonicalFilePath());
    return joinedPath(file.isFile() ? file.path() : programFolder(), u"lunq.lock"_s);
}

void openCatalogue() {
    catalogue = {};
    catalogue = OpenDatabase(cataloguePath());
    attempt([] { OwnValues(catalogue).prepare(Bin::tables()); });
}

}  // namespace mekTp
