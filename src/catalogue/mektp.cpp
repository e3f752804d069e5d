#include "catalogue/mektp.h"

#include "catalogue/album_rules.h"
#include "platform/base/files.h"

using namespace Qt::Literals::StringLiterals;

namespace mekTp {

Database catalogue;
QString currentTable = demoTable;
int titleBarExtra = 0;

QString cataloguePath() {
    return joinedPath(programFolder(), u"lunq.mdb"_s);
}

void openCatalogue() {
    catalogue = {};
    catalogue = OpenDatabase(cataloguePath());
}

}  // namespace mekTp
