#include "platform/database/file/engine_errors.h"

#include "platform/base/system_reason.h"

#include <sqlite3.h>

#include <array>
#include <cerrno>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The name in a message such as `no such column: t.序号`, without that of the table before it; empty in another
/// message.
QString missingColumn(const QString& message) {
    const QString start = u"no such column: "_s;
    return message.startsWith(start) ? message.sliced(start.size()).section(u'.', -1) : QString();
}

/// The text of a failed statement: only the wording says which failure it is.
QString statementFailure(const QString& message, const QString& table) {
    const QString column = missingColumn(message);
    if (!column.isEmpty() && !table.isEmpty()) return u"表“%1”中没有列“%2”"_s.arg(table, column);
    struct Wording {
        QString start;
        QString end;
        QString chinese;
    };
    static const std::array wordings{
        Wording{u"no such table: "_s, {}, u"表“%1”不存在"_s},
        Wording{u"no such column: "_s, {}, u"列“%1”不存在"_s},
        Wording{u"no such function: "_s, {}, u"函数“%1”不存在"_s},
        Wording{u"table "_s, u" already exists"_s, u"表“%1”已存在"_s},
        Wording{u"duplicate column name: "_s, {}, u"列“%1”重复"_s},
        Wording{u"near "_s, u": syntax error"_s, u"语句在 %1 处有错"_s},
        Wording{u"unrecognized token: "_s, {}, u"语句在 %1 处有错"_s},
        Wording{u"wrong number of arguments to function "_s, {}, u"函数 %1 的参数个数不对"_s},
        Wording{u"object name reserved for internal use: "_s, {}, u"表名“%1”是保留的，不能使用"_s},
    };
    if (message == u"incomplete input") return u"语句不完整"_s;
    for (const Wording& wording : wordings) {
        if (!message.startsWith(wording.start) || !message.endsWith(wording.end)) continue;
        QString name = message.sliced(wording.start.size());
        name.chop(wording.end.size());
        if (name.startsWith(u"main.")) name.remove(0, 5);
        return wording.chinese.arg(name);
    }
    return u"语句不能执行（%1）"_s.arg(message);
}

/// What has happened to the file or the disk: it often explains what the engine only calls a failed read or write.
QString diskReason(int systemError) {
    switch (systemError) {
        case 0:
            return u"读写文件失败"_s;
        case ENOENT:
        case ENOTDIR:
            return systemReason(ENODEV);  // a file that was open does not go alone
        default:
            return systemReason(systemError);
    }
}

QString reason(int code, const QString& message, int systemError, const QString& table) {
    if (code == SQLITE_READONLY_DBMOVED) return u"文件已被移走、删除或替换，或者磁盘已经断开，不能修改"_s;
    switch (code & 0xff) {
        case SQLITE_FULL:
            return u"磁盘已满"_s;
        case SQLITE_READONLY:
            return u"文件或文件夹是只读的，不能修改"_s;
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return u"没有访问权限"_s;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return u"文件正被使用，请稍后再试"_s;
        case SQLITE_CORRUPT:
            return u"文件已损坏"_s;
        case SQLITE_NOTADB:
            return u"文件不是数据库，或已损坏"_s;
        case SQLITE_IOERR:
            return diskReason(systemError);
        case SQLITE_CANTOPEN:
            return u"文件不能打开"_s;
        case SQLITE_NOMEM:
            return u"内存不足"_s;
        case SQLITE_TOOBIG:
            return u"数据过大"_s;
        case SQLITE_CONSTRAINT:
            return u"数据不符合表的约束（%1）"_s.arg(message);
        case SQLITE_ERROR:
            return statementFailure(message, table);
        default:
            return u"操作失败（%1）"_s.arg(message);
    }
}

}  // namespace

Error engineError(const QString& path, int code, const QString& message, int systemError, const QString& table) {
    const int kind = code & 0xff;
    return Error(u"数据库文件“%1”：%2。"_s.arg(path, reason(code, message, systemError, table)),
                 kind == SQLITE_CORRUPT || kind == SQLITE_NOTADB ? Error::Kind::damage : Error::Kind::usual);
}
