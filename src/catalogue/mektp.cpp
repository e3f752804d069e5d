#include "catalogue/mektp.h"

#include "catalogue/album_rules.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/database/own_values.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace mekTp {

Database catalogue;
QString currentTable = demoTable;
int titleBarExtra = 0;

QString cataloguePath() {
    return joinedPath(programFolder(), u"lunq.mdb"_s);
}

QString lockPath() {
    const QFileInfo file(QFileInfo(cataloguePath()).canonicalFilePath());
    return joinedPath(file.isFile() ? file.path() : programFolder(), u"lunq.lock"_s);
}

void openCatalogue() {
    catalogue = {};
    catalogue = OpenDatabase(cataloguePath());
    attempt([] { OwnValues(catalogue).prepare(); });
}

}  // namespace mekTp
