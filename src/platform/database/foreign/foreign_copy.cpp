#include "platform/database/foreign/foreign_copy.h"

#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/helper_program.h"
#include "platform/base/system_reason.h"
#include "platform/database/foreign/jet_outcome.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <mutex>
#include <system_error>
#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 largestFile = qint64{2} << 30;

JetReader& chosenReader() {
    static JetReader reader;
    return reader;
}

/// By the real path of a database.
struct ChosenCodePages {
    std::mutex mutex;
    QHash<QString, int> pages;
};

ChosenCodePages& chosenCodePages() {
    static ChosenCodePages chosen;
    return chosen;
}

int chosenCodePage(const QString& path) {
    const std::lock_guard lock(chosenCodePages().mutex);
    return chosenCodePages().pages.value(QFileInfo(path).canonicalFilePath());
}

QString readerProgram() {
    if (!chosenReader().program.isEmpty()) return chosenReader().program;
#ifdef Q_OS_WIN
    return QCoreApplication::applicationDirPath() + u"/lunq-jet.exe"_s;
#else
    return QCoreApplication::applicationDirPath() + u"/lunq-jet"_s;
#endif
}

QString reason(JetOutcome outcome) {
    switch (outcome) {
        case JetOutcome::password:
            return u"它有数据库密码，不能读取。请先用建立它的软件取消密码"_s;
        case JetOutcome::unknownVersion:
            return u"它的版本未知，只能读取 Jet 3 和 Jet 4 数据库（97 至 2003 版的 .mdb 文件）"_s;
        case JetOutcome::incomplete:
            return u"它不完整，后面的部分缺失。请重新复制一份"_s;
        case JetOutcome::damaged:
            return u"它已损坏，不能读取"_s;
        case JetOutcome::limitExceeded:
            return u"读取它超出了时间、内存或大小的限制，它可能已损坏"_s;
        case JetOutcome::diskFull:
            return u"读取它要用的临时文件夹“%1”空间不足或不能写入"_s.arg(QDir::toNativeSeparators(QDir::tempPath()));
        case JetOutcome::unreadable:
            return u"它不能打开"_s;
        default:
            return u"读取它的程序“lunq-jet”与本软件的版本不符，请重新安装本软件"_s;
    }
}

Error failure(const QString& path, const QString& why) {
    return Error(u"数据库文件“%1”不能使用：%2。"_s.arg(path, why));
}

/// An empty file without a name, which nobody else can read: its content may be private.
int newUnnamedFile(const QString& path) {
    QByteArray name = QFile::encodeName(QDir::tempPath() + u"/lunq-jet-XXXXXX"_s);
    const int file = mkostemp(name.data(), O_CLOEXEC);
    if (file < 0) throw failure(path, reason(JetOutcome::diskFull));
    unlink(name.constData());
    return file;
}

}  // namespace

void setJetReader(const JetReader& reader) {
    chosenReader() = reader;
}

void chooseCodePage(const QString& path, int codePage) {
    const std::lock_guard lock(chosenCodePages().mutex);
    chosenCodePages().pages[QFileInfo(path).canonicalFilePath()] = codePage;
}

bool ForeignCopy::isJetFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Error(u"数据库文件“%1”不能打开：%2。"_s.arg(path, systemReason(file.errorString())));
    const QByteArray start = file.read(19);
    return start == QByteArray("\0\1\0\0Standard Jet DB", 19) || start == QByteArray("\0\1\0\0Standard ACE DB", 19);
}

ForeignCopy::ForeignCopy(const QString& path, LongValues longValues) : path_(path), codePage_(chosenCodePage(path)) {
    const QFileInfo original(path);
    size_ = original.size();
    changed_ = original.lastModified();
    if (size_ > largestFile) throw failure(path, u"它超过 2 GB，不能读取"_s);
    file_ = newUnnamedFile(path);
    try {
        read(longValues);
    } catch (...) {
        close(file_);
        throw;
    }
}

/// The system gives the space of a large copy back before it returns: no window is to wait for that.
ForeignCopy::~ForeignCopy() {
    try {
        std::thread([file = file_] { close(file); }).detach();
    } catch (const std::system_error&) {
        close(file_);
    }
}

QString ForeignCopy::file() const {
    return u"/proc/self/fd/%1"_s.arg(file_);
}

bool ForeignCopy::isCurrent() const {
    const QFileInfo original(path_);
    return original.size() == size_ && original.lastModified() == changed_ && chosenCodePage(path_) == codePage_;
}

void ForeignCopy::read(LongValues longValues) {
    QStringList arguments{QFileInfo(path_).absoluteFilePath(), file()};
    const bool wantsHashes = longValues == LongValues::hashes;
    if (codePage_ != 0 || wantsHashes) arguments << QString::number(codePage_);
    if (wantsHashes) arguments << u"hashes"_s;
    const HelperEnd end = runHelper({readerProgram(), arguments, {file_}, chosenReader().patienceMs});
    if (!end.obstacle.isEmpty()) throw failure(path_, end.obstacle);
    const auto outcome = end.isOutOfTime ? JetOutcome::limitExceeded : JetOutcome(end.code);
    if (outcome != JetOutcome::done) throw failure(path_, reason(outcome));
}
