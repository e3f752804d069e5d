#include "start/damage_notice.h"

#include "catalogue/mektp.h"
#include "catalogue/settings_row.h"
#include "platform/base/conversion.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "settings/backup/backup_files.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

QString storedBackupPath() {
    QString path;
    const bool isRead = attempt([&] { path = setting(u"备份路径"_s).textOr(); });
    return isRead ? path : targetOfScript(textOfScript(backupScriptPath()));
}

/// The journal is next to the file itself, not next to a link to it.
QString journalLeft() {
    const QString journal = QFileInfo(mekTp::cataloguePath()).canonicalFilePath() + u"-journal"_s;
    return fileExists(journal) && FileLen(journal) > 0 ? journal : QString();
}

}  // namespace

bool isCatalogueCheckable() {
    if (mekTp::catalogue.isOpen()) return !mekTp::catalogue.isForeign();
    bool isJet = true;
    attempt([&] { isJet = isJetDatabase(mekTp::cataloguePath()); });
    return !isJet;
}

Rescue rescueOfCatalogue() {
    Rescue rescue{.catalogue = mekTp::cataloguePath(),
                  .backup = storedBackupPath(),
                  .copied = {},
                  .script = {},
                  .journal = journalLeft()};
    if (rescue.backup.isEmpty()) return rescue;
    attempt([&] { rescue.copied = FileDateTime(rescue.backup); });
    if (const QString script = restoreScriptPath(rescue.backup); fileExists(script)) rescue.script = script;
    return rescue;
}

QString damageText(const Rescue& rescue) {
    const QString damage =
        u"图册数据库“%1”有损坏的地方，其中有些图片和资料可能已经不能显示。\n\n"
        "请不要再录入、修改或删除图片，也不要再备份，以免损坏扩大，或换掉完好的备份。\n\n"_s.arg(rescue.catalogue);
    const QString keep =
        u"请退出本软件，先把损坏的文件另外复制一份留着（以后可在“图片录入”中选“数据库”，取回其中的图片），再"_s;
    // Beside another file it would damage that, too; with the damaged one it may still be of use.
    const QString withJournal = u"把它旁边的“%1”与损坏的文件一起移走，然后"_s.arg(rescue.journal);
    const QString byHand = (rescue.journal.isEmpty() ? QString() : withJournal) +
                           u"把找到的那一份复制到“%1”的位置。"_s.arg(rescue.catalogue);
    if (rescue.backup.isEmpty())
        return damage + u"备份路径没有设置。请找出以前复制的 lunq.mdb，例如在移动硬盘或另一台电脑上。\n\n"_s + keep +
               byHand;

    const QString way = rescue.script.isEmpty() ? byHand : u"运行“%1”，用备份恢复。"_s.arg(rescue.script);
    const QString copy =
        rescue.copied.isValid()
            ? u"备份在“%1”，是 %2 的。\n\n"_s.arg(rescue.backup, dateText(rescue.copied, u"yyyy-mm-dd hh:mm"))
            : u"备份路径是“%1”，但那里现在没有备份：请接上放备份的磁盘，或找出以前复制的 lunq.mdb。\n\n"_s.arg(
                  rescue.backup);
    return damage + copy + keep + way;
}
