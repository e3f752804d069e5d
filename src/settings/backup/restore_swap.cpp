#include "settings/backup/restore_swap.h"

#include "catalogue/album_tables.h"
#include "catalogue/backup_file.h"
#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/system_reason.h"
#include "platform/database/file/file_check.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>
#include <QThread>
#include <filesystem>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString journalEnding = u"-journal"_s;
bool isPlanned = false;

/// A link keeps its place; what it leads to is exchanged.
QString realCatalogue() {
    const QString path = mekTp::cataloguePath(), real = QFileInfo(path).canonicalFilePath();
    return real.isEmpty() ? path : real;
}

std::filesystem::path native(const QString& path) {
    return QFileInfo(path).filesystemFilePath();
}

/// Where the journal of the catalogue that goes waits; by the name `resumeRestore` knows whose it is. A journal and its
/// file are worth nothing without each other, and beside the catalogue that comes it would damage that.
QString asideOf(const QString& kept) {
    return preparedRestorePath() + u'.' + QFileInfo(kept).fileName() + journalEnding;
}

/// The files whose journals a kill has left there.
QStringList keptWithJournalAside() {
    const QFileInfo prepared(preparedRestorePath());
    const QString start = prepared.fileName() + u'.';
    QStringList all;
    for (const QString& name : QDir(prepared.path()).entryList(QDir::Files))
        if (name.startsWith(start) && name.endsWith(journalEnding))
            all << prepared.path() + u'/' + name.mid(start.size()).chopped(journalEnding.size());
    return all;
}

void setJournalAside(const QString& catalogue, const QString& kept) {
    const QString journal = catalogue + journalEnding;
    if (!QFileInfo::exists(journal)) return;
    const bool isGone = FileLen(journal) == 0 ? QFile::remove(journal) : QFile::rename(journal, asideOf(kept));
    if (!isGone) throw Error(u"文件“%1”不能移开，没有恢复，现在的图册数据库不变。"_s.arg(journal));
}

bool areTwoFiles(const QString& kept, const QString& catalogue) {
    return QFileInfo::exists(kept) && QFileInfo::exists(catalogue) && !isSameFile(kept, catalogue);
}

/// The second name of the catalogue becomes its first one, or goes again. A kill in between leaves what this can be
/// called for once more.
void putBack(const QString& kept, const QString& catalogue) {
    if (QFileInfo::exists(kept) && !QFileInfo::exists(catalogue)) QFile::rename(kept, catalogue);
    const QString owner = areTwoFiles(kept, catalogue) ? kept : catalogue;
    if (QFileInfo::exists(asideOf(kept)) && !QFile::rename(asideOf(kept), owner + journalEnding)) return;
    if (isSameFile(kept, catalogue)) QFile::remove(kept);
}

/// It tells that the exchange was not done, as long as a journal is to go back.
void removePrepared() {
    if (keptWithJournalAside().isEmpty()) QFile::remove(preparedRestorePath());
}

void putAllBack(const QString& catalogue) {
    for (const QString& kept : keptWithJournalAside()) putBack(kept, catalogue);
    for (const QString& name : datedNames(catalogue)) {
        const QString path = QFileInfo(catalogue).path() + u'/' + name;
        if (isSameFile(path, catalogue)) putBack(path, catalogue);
    }
}

/// Of a catalogue that has lost its name to the dated one. Beside a journal that nobody has set aside nothing is safe.
void giveName(const QString& prepared, const QString& catalogue) {
    if (QFileInfo(catalogue + journalEnding).size() > 0) return;
    const bool isWhole = FileCheck(prepared).run() == FileCheck::Outcome::whole;
    if (!isWhole || !QFile::rename(prepared, catalogue)) putAllBack(catalogue);
}

/// At the end of the exchange.
void giveJournalsToKept(const QString& catalogue) {
    for (const QString& kept : keptWithJournalAside())
        if (areTwoFiles(kept, catalogue)) QFile::rename(asideOf(kept), kept + journalEnding);
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
        removePrepared();
    });
    if (hasOld) {
        setJournalAside(catalogue, kept);
        std::filesystem::create_hard_link(native(catalogue), native(kept), failed);
        if (failed) std::filesystem::rename(native(catalogue), native(kept), failed);
    }
    if (!failed) std::filesystem::rename(native(prepared), native(catalogue), failed);
    if (failed)
        throw Error(
            u"“%1”不能替换：%2。没有恢复，现在的图册数据库不变。"_s.arg(catalogue, systemReason(failed.value())));
    giveUp.dismiss();
    giveJournalsToKept(catalogue);
    syncFolderToDisk(QFileInfo(catalogue).path());
    return hasOld ? kept : QString();
}

void resumeRestore() {
    const QString catalogue = realCatalogue(), prepared = preparedRestorePath();
    if (!QFileInfo::exists(prepared)) {
        giveJournalsToKept(catalogue);
        return;
    }
    if (QFileInfo::exists(catalogue)) {
        putAllBack(catalogue);
        removePrepared();
        return;
    }
    attempt([&] {
        giveName(prepared, catalogue);
        if (!QFileInfo::exists(prepared)) giveJournalsToKept(catalogue);
        syncFolderToDisk(QFileInfo(catalogue).path());
    });
}
