#include "catalogue/backup_file.h"

#include "catalogue/album_tables.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/database/records/own_values.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUuid>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString identityName = u"catalogue.id"_s;

QString valueIn(const Database& database, const QString& name) {
    return OwnValues(database).value(name).value_or(QString());
}

QList<BackupFile> ownOnes(QList<BackupFile> older, const QString& catalogue) {
    older.removeIf([&](const BackupFile& one) { return catalogue.isEmpty() || one.catalogue != catalogue; });
    std::ranges::stable_sort(older, {}, [](const BackupFile& one) { return std::pair(one.number, one.made); });
    return older;
}

}  // namespace

QString identityOf(const Database& catalogue) {
    return valueIn(catalogue, identityName);
}

void giveIdentity(const Database& catalogue) {
    if (identityOf(catalogue).isEmpty())
        OwnValues(catalogue).setValue(identityName, QUuid::createUuid().toString(QUuid::WithoutBraces));
}

BackupFile describedBackup(const QString& path, bool counts) {
    const Database database = OpenDatabase(path);
    if (!database.isOurs()) throw Error(u"文件“%1”不是图册数据库。"_s.arg(path));
    BackupFile file{path, identityOf(database), valueIn(database, backupNumberName).toLongLong()};
    file.made = QDateTime::fromString(valueIn(database, backupTimeName), Qt::ISODate);
    if (!file.made.isValid() || file.number == 0) file.made = FileDateTime(path);
    file.size = FileLen(path);
    if (!counts) return file;
    for (const QString& album : albumTables(database)) {
        ++file.albums;
        attempt([&] { file.pictures += database.OpenRecordset(album).rowCount(); });
    }
    return file;
}

QString datedPath(const QString& newest, const QDateTime& made) {
    const QFileInfo file(newest);
    const QString start = file.path() + u'/' + file.completeBaseName() + made.toString(u"-yyyy-MM-dd-HHmm"_s);
    const QString ending = u'.' + file.suffix();
    QString path = start + ending;
    for (int i = 2; QFileInfo::exists(path); ++i) path = start + u'-' + QString::number(i) + ending;
    return path;
}

QStringList datedNames(const QString& newest) {
    const QFileInfo file(newest);
    const auto plain = [](const QString& text) { return QRegularExpression::escape(text); };
    const QRegularExpression dated(QRegularExpression::anchoredPattern(
        plain(file.completeBaseName()) + uR"(-\d{4}-\d\d-\d\d-\d{4}(-\d+)?\.)"_s + plain(file.suffix())));
    QStringList names = QDir(file.path()).entryList(QDir::Files | QDir::NoSymLinks, QDir::Name | QDir::Reversed);
    names.removeIf([&](const QString& name) { return !dated.match(name).hasMatch(); });
    return names;
}

QList<BackupFile> datedBeside(const QString& newest, bool counts) {
    const QString folder = QFileInfo(newest).path();
    QList<BackupFile> found;
    for (const QString& name : datedNames(newest)) {
        const QString path = folder + u'/' + name;
        if (!isSameFile(path, newest)) attempt([&] { found << describedBackup(path, counts); });
    }
    return found;
}

QList<BackupFile> backupsBeside(const QString& newest, bool counts) {
    QList<BackupFile> found;
    if (fileExists(newest)) attempt([&] { found << describedBackup(newest, counts); });
    return found + datedBeside(newest, counts);
}

QList<BackupFile> surplusBackups(QList<BackupFile> older, const QString& catalogue, int keep) {
    const QList<BackupFile> own = ownOnes(std::move(older), catalogue);
    return own.first(std::max<qsizetype>(0, own.size() - keep));
}

QList<BackupFile> makingWay(QList<BackupFile> older, const QString& catalogue, qint64 needed, qint64 free) {
    QList<BackupFile> way;
    for (const BackupFile& one : ownOnes(std::move(older), catalogue)) {
        if (free >= needed) break;
        free += one.size;
        way << one;
    }
    return free >= needed ? way : QList<BackupFile>();
}
