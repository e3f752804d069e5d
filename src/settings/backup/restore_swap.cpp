#include "settings/backup/restore_swap.h"

#include "catalogue/album_tables.h"
#include "catalogue/backup_file.h"
#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/system_reason.h"
#include "platform/database/file/file_check.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QThread>
#include <filesystem>

using namespace Qt::Literals::StringLiterals;

namespace {

bool isPlanned = false;

/// A link keeps its place; what it leads to is exchanged.
QString realCatalogue() {
    const QString path = mekTp::cataloguePath(), real = QFileInfo(path).canonicalFilePath();
    return real.isEmpty() ? path : real;
}

std::filesystem::path native(const QString& path) {
    return QFileInfo(path).filesystemFilePath();
}

/// One that is not empty belongs to the catalogue that goes, and would damage the one that comes. It follows when that
/// one has its second name: by it `resumeRestore` finds both.
void takeJournalAlong(const QString& from, const QString& to) {
    const QString journal = from + u"-journal"_s;
    if (!QFileInfo::exists(journal)) return;
    const bool isGone = FileLen(journal) == 0 ? QFile::remove(journal) : QFile::rename(journal, to + u"-journal"_s);
    if (!isGone) throw Error(u"文件“%1”不能移开，没有恢复，现在的图册数据库不变。"_s.arg(journal));
}

/// The second name of the catalogue goes again, or becomes its first one.
void putBack(const QString& kept, const QString& catalogue) {
    if (QFileInfo::exists(kept)) QFileInfo::exists(catalogue) ? QFile::remove(kept) : QFile::rename(kept, catalogue);
    if (QFileInfo::exists(kept + u"-journal"_s)) QFile::rename(kept + u"-journal"_s, catalogue + u"-journal"_s);
}

void giveUpSecondName(const QString& catalogue) {
    for (const QString& name : datedNames(catalogue)) {
        const QString path = QFileInfo(catalogue).path() + u'/' + name;
        if (isSameFile(path, catalogue)) putBack(path, catalogue);
    }
}

/// The name that the catalogue has got last.
QString lastDated(const QString& catalogue) {
    const QStringList names = datedNames(catalogue);
    if (names.isEmpty()) return datedPath(catalogue, QDateTime::currentDateTime());
    return QFileInfo(catalogue).path() + u'/' + names.first();
}

}  // namespace

QString preparedRestorePath() {
    return realCatalogue() + u".restore"_s;
}

void planRestore() {
    isPlanned = true;
    if (QThread::currentThread()->loopLevel() > 0) QCoreApplication::exit();
}

bool isRestorePlanned() {
    return isPlanned;
}

QString carryOutRestore() {
    isPlanned = false;
    const QString catalogue = realCatalogue(), prepared = preparedRestorePath();
    const QString kept = datedPath(catalogue, QDateTime::currentDateTime());
    std::error_code failed;
    const bool hasOld = QFileInfo::exists(catalogue);
    auto giveUp = qScopeGuard([&] {
        putBack(kept, catalogue);
        QFile::remove(prepared);
    });
    if (hasOld) {
        std::filesystem::create_hard_link(native(catalogue), native(kept), failed);
        if (failed) std::filesystem::rename(native(catalogue), native(kept), failed);
        if (!failed) takeJournalAlong(catalogue, kept);
    }
    if (!failed) std::filesystem::rename(native(prepared), native(catalogue), failed);
    if (failed)
        throw Error(
            u"“%1”不能替换：%2。没有恢复，现在的图册数据库不变。"_s.arg(catalogue, systemReason(failed.value())));
    giveUp.dismiss();
    syncFolderToDisk(QFileInfo(catalogue).path());
    return hasOld ? kept : QString();
}

void resumeRestore() {
    const QString catalogue = realCatalogue(), prepared = preparedRestorePath();
    if (!QFileInfo::exists(prepared)) return;
    if (QFileInfo::exists(catalogue)) {
        giveUpSecondName(catalogue);
        QFile::remove(prepared);
        return;
    }
    attempt([&] {
        if (FileCheck(prepared).run() != FileCheck::Outcome::whole) return;
        takeJournalAlong(catalogue, lastDated(catalogue));
        if (QFile::rename(prepared, catalogue)) syncFolderToDisk(QFileInfo(catalogue).path());
    });
}
