#include "platform/base/system_reason.h"

#include <QtGlobal>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Reason {
    int error;
    const char16_t* text;
};

constexpr auto full = u"磁盘空间不足";
constexpr auto readOnly = u"磁盘是只读的，不能修改";
constexpr auto notAllowed = u"没有访问权限";
constexpr auto gone = u"文件所在的磁盘或网络文件夹已经断开";
constexpr auto silent = u"磁盘或网络文件夹没有响应，可能已断开或损坏";
constexpr auto busy = u"文件正被使用";
constexpr auto tooManyFiles = u"打开的文件太多";

constexpr std::array reasons{
    Reason{ENOSPC, full},
    Reason{EROFS, readOnly},
    Reason{EACCES, notAllowed},
    Reason{EPERM, notAllowed},
    Reason{EFBIG, u"磁盘放不下这么大的文件"},
    Reason{EIO, silent},
    Reason{ETIMEDOUT, silent},
    Reason{ENOENT, u"文件或文件夹不存在"},
    Reason{ENOTDIR, u"文件或文件夹不存在"},
    Reason{EEXIST, u"同名的文件或文件夹已存在"},
    Reason{EISDIR, u"那里有一个同名的文件夹"},
    Reason{ENAMETOOLONG, u"名称太长"},
    Reason{EINVAL, u"那里的磁盘不接受"},
    Reason{EILSEQ, u"名称中有那里的磁盘不接受的字符"},
    Reason{EXDEV, u"它在另一个磁盘上"},
    Reason{EBUSY, busy},
    Reason{EMFILE, tooManyFiles},
    Reason{ENFILE, tooManyFiles},
    Reason{ENOMEM, u"内存不足"},
    Reason{ENODEV, gone},
    Reason{ENXIO, gone},
    Reason{ENOTCONN, gone},
    Reason{EHOSTUNREACH, gone},
    Reason{ENETUNREACH, gone},
#ifdef Q_OS_UNIX
    Reason{ESTALE, gone},
    Reason{EHOSTDOWN, gone},
    Reason{ENETDOWN, gone},
    Reason{EDQUOT, u"磁盘的限额已经用完"},
    Reason{ETXTBSY, busy},
#endif
};

}  // namespace

QString systemReason(int error) {
    const auto* const found = std::ranges::find(reasons, error, &Reason::error);
    return found != reasons.end() ? QString::fromUtf16(found->text) : QString::fromLocal8Bit(std::strerror(error));
}

QString systemReason(const QString& words) {
    const auto* const found = std::ranges::find_if(reasons, [&](const Reason& reason) {
        return words == qt_error_string(reason.error) || words == QString::fromLocal8Bit(std::strerror(reason.error));
    });
    return found != reasons.end() ? QString::fromUtf16(found->text) : words;
}
