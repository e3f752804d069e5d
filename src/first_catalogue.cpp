#include "first_catalogue.h"

#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/system_reason.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

void placeFirstCatalogue() {
    const QString shipped = joinedPath(joinedPath(programFolder(), u"fresh"_s), u"lunq.mdb"_s);
    const QString catalogue = joinedPath(programFolder(), u"lunq.mdb"_s);
    const QString journal = catalogue + u"-journal"_s;
    if (QFileInfo::exists(catalogue) || QFileInfo(catalogue).isSymLink() || !fileExists(shipped)) return;
    // The way back of pictures that somebody has moved: beside another lunq.mdb it would be lost.
    if (fileExists(journal) && FileLen(journal) > 0)
        throw Error(
            u"像册文件“%1”不见了，但“%2”还在：它是修复像册要用的。请把 lunq.mdb 放回它旁边；确实不要了，再删除它。"_s
                .arg(catalogue, journal));

    const QString part = catalogue + u".part"_s;
    QFile::remove(part);
    QFile copy(shipped);
    if (!copy.copy(part))
        throw Error(u"新的像册文件“%1”不能写入：%2。"_s.arg(catalogue, systemReason(copy.errorString())));
    QFile placed(part);
    placed.setPermissions(placed.permissions() | QFile::ReadOwner | QFile::WriteOwner);
    // Gets its name when it is whole, and on the disk: a power cut must not leave an empty file of this name, which
    // would never be replaced. And only where no other file bears it.
    const bool opened = placed.open(QIODevice::ReadWrite);
    if (opened) syncToDisk(placed);
    placed.close();
    if (!opened) throw Error(u"新的像册文件“%1”不能写入：%2。"_s.arg(catalogue, writeFailure(placed)));
    if (!renameNew(part, catalogue)) throw Error(u"像册文件“%1”刚刚由别的程序建立。"_s.arg(catalogue));
    syncFolderToDisk(programFolder());
}
