#include "start/first_catalogue.h"

#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/system_reason.h"
#include "platform/base/unnamed_file.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 pieceSize = 1 << 20;

}  // namespace

QString shippedCatalogue() {
    return joinedPath(joinedPath(programFolder(), u"fresh"_s), u"lunq.mdb"_s);
}

void placeFirstCatalogue() {
    const QString shipped = shippedCatalogue();
    const QString catalogue = joinedPath(programFolder(), u"lunq.mdb"_s);
    const QString journal = catalogue + u"-journal"_s;
    if (QFileInfo::exists(catalogue) || QFileInfo(catalogue).isSymLink() || !fileExists(shipped)) return;
    // The way back of pictures that somebody has moved: beside another lunq.mdb it would be lost.
    if (fileExists(journal) && FileLen(journal) > 0)
        throw Error(
            u"像册文件“%1”不见了，但“%2”还在：它是修复像册要用的。请把 lunq.mdb 放回它旁边；确实不要了，再删除它。"_s
                .arg(catalogue, journal));

    QFile copy(shipped);
    if (!copy.open(QIODevice::ReadOnly))
        throw Error(u"随软件的像册文件“%1”不能读取：%2。"_s.arg(shipped, systemReason(copy.errorString())));
    // Gets its name when it is whole, and on the disk: a power cut must not leave an empty file of this name, which
    // would never be replaced. And only where no other file bears it.
    UnnamedFile placed(catalogue, u"新的像册文件“%1”不能写入：%2。"_s);
    for (QByteArray piece = copy.read(pieceSize); !piece.isEmpty(); piece = copy.read(pieceSize)) placed.write(piece);
    if (copy.error() != QFileDevice::NoError)
        throw Error(u"随软件的像册文件“%1”不能读取：%2。"_s.arg(shipped, systemReason(copy.errorString())));
    placed.sync();
    if (!placed.takeNewName()) throw Error(u"像册文件“%1”刚刚由别的程序建立。"_s.arg(catalogue));
    syncFolderToDisk(programFolder());
}
