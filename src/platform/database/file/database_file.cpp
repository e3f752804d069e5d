#include "platform/database/file/database_file.h"

#include "platform/base/error.h"
#include "platform/base/files.h"

#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

void requireDatabaseFile(const QString& path) {
    const QFileInfo place(path);
    if (fileExists(path)) return;
    if (place.isDir()) throw Error(u"数据库文件“%1”不能打开：它是一个文件夹。"_s.arg(path));
    if (place.exists()) throw Error(u"数据库文件“%1”不能打开：它是设备或管道，不是文件。"_s.arg(path));
    if (place.isSymLink())
        throw Error(
            u"数据库文件“%1”不能打开：它是一个链接，所指的“%2”不存在，或不能到达。"_s.arg(path, place.symLinkTarget()));
    throw Error(u"数据库文件“%1”不存在。"_s.arg(path));
}
