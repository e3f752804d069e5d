#include "platform/base/odd_names.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <vector>

#ifdef Q_OS_UNIX
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QStringDecoder>
#include <QStringEncoder>
#include <memory>
#include <optional>
#endif

using namespace Qt::Literals::StringLiterals;

namespace {

std::vector<QRegularExpression> matchers(const QStringList& patterns) {
    std::vector<QRegularExpression> all;
    for (const QString& pattern : patterns)
        all.push_back(QRegularExpression::fromWildcard(pattern, Qt::CaseInsensitive));
    return all;
}

bool matchesOne(const std::vector<QRegularExpression>& patterns, const QString& name) {
    return std::ranges::any_of(patterns, [&](const auto& pattern) { return pattern.match(name).hasMatch(); });
}

}  // namespace

#ifdef Q_OS_UNIX

namespace {

constexpr auto oldEncoding = "GB18030";
const QString byteMark = u"‹%1›"_s;

/// The text of UTF-8 bytes; nothing when they are none.
std::optional<QString> textOf(const QByteArray& bytes) {
    using Flag = QStringDecoder::Flag;
    QStringDecoder decode(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    const QString text = decode(bytes);
    if (decode.hasError()) return std::nullopt;
    return text;
}

/// What the bytes mean in the encoding that Chinese systems had; nothing when they are no text there, or not one that
/// leads back to them.
std::optional<QString> oldTextOf(const QByteArray& name) {
    QStringDecoder decode(oldEncoding);
    QStringEncoder encode(oldEncoding);
    if (!decode.isValid() || !encode.isValid()) return std::nullopt;
    const QString text = decode(name);
    const bool isReadable = std::ranges::all_of(
        text, [](QChar letter) { return letter.isPrint() && letter != QChar::ReplacementCharacter; });
    if (decode.hasError() || !isReadable || QByteArray(encode(text)) != name) return std::nullopt;
    return text;
}

/// What is text stays so; every other byte is spelt out.
QString spelt(const QByteArray& name) {
    constexpr qsizetype longestLetter = 4;
    QString text;
    for (qsizetype at = 0; at < name.size();) {
        qsizetype length = 1;
        while (length <= longestLetter && !textOf(name.mid(at, length))) ++length;
        const bool isText = length <= longestLetter;
        text +=
            isText ? *textOf(name.mid(at, length)) : byteMark.arg(uint(quint8(name[at])), 2, 16, QChar(u'0')).toUpper();
        at += isText ? length : 1;
    }
    return text;
}

/// The bytes of the name that a stand-in replaces.
QByteArray bytesOf(const QString& standIn) {
    static const QRegularExpression mark(u"‹([0-9A-F]{2})›"_s);
    if (!standIn.contains(mark)) {
        QStringEncoder encode(oldEncoding);
        return encode.isValid() ? QByteArray(encode(standIn)) : QByteArray();
    }
    QByteArray bytes;
    qsizetype from = 0;
    for (auto found = mark.globalMatch(standIn); found.hasNext();) {
        const QRegularExpressionMatch one = found.next();
        bytes +=
            standIn.mid(from, one.capturedStart() - from).toUtf8() + QByteArray::fromHex(one.captured(1).toLatin1());
        from = one.capturedEnd();
    }
    return bytes + standIn.mid(from).toUtf8();
}

QByteArray joined(const QString& folder, const QByteArray& name) {
    return QFile::encodeName(folder) + '/' + name;
}

/// Whether the path, links followed, leads to something of this kind (`S_IFREG` …).
bool isOfKind(const QByteArray& path, mode_t kind) {
    struct stat facts {};
    return stat(path.constData(), &facts) == 0 && (facts.st_mode & S_IFMT) == kind;
}

bool isOfKind(const QString& folder, const dirent& entry, mode_t kind) {
    if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) return mode_t(DTTOIF(entry.d_type)) == kind;
    return isOfKind(joined(folder, entry.d_name), kind);
}

/// The names of what is of a kind in a folder, but for the hidden ones.
QList<QByteArray> namesIn(const QString& folder, mode_t kind) {
    QList<QByteArray> names;
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(opendir(QFile::encodeName(folder).constData()), closedir);
    if (!listing) return names;
    while (const dirent* entry = readdir(listing.get()))
        if (entry->d_name[0] != '.' && isOfKind(folder, *entry, kind)) names << QByteArray(entry->d_name);
    return names;
}

QList<FolderEntry> entriesIn(const QString& folder, mode_t kind) {
    QList<FolderEntry> entries;
    QSet<QString> taken;
    QList<QByteArray> odd;
    for (const QByteArray& name : namesIn(folder, kind)) {
        if (const auto text = textOf(name)) {
            entries.push_back({*text});
            taken << *text;
        } else {
            odd << name;
        }
    }
    for (const QByteArray& name : std::as_const(odd)) {
        const auto text = oldTextOf(name);
        entries.push_back({text && !taken.contains(*text) ? *text : spelt(name), true});
    }
    return entries;
}

/// The bytes of a path that ends in a stand-in; empty for any other.
QByteArray oddPath(const QString& path) {
    const QFileInfo info(path);
    if (info.exists() || info.isSymLink()) return {};
    const QByteArray name = bytesOf(info.fileName());
    if (name.isEmpty() || textOf(name)) return {};
    const QByteArray whole = joined(info.path(), name);
    return isOfKind(whole, S_IFREG) ? whole : QByteArray();
}

}  // namespace

QList<FolderEntry> filesIn(const QString& folder, const QStringList& patterns) {
    const auto wanted = matchers(patterns);
    QList<FolderEntry> entries = entriesIn(folder, S_IFREG);
    entries.removeIf([&](const FolderEntry& entry) { return !matchesOne(wanted, entry.name); });
    return entries;
}

QStringList oddFoldersIn(const QString& folder) {
    QStringList names;
    for (const FolderEntry& entry : entriesIn(folder, S_IFDIR))
        if (entry.isStandIn) names << entry.name;
    return names;
}

bool isStandIn(const QString& path) {
    return !oddPath(path).isEmpty();
}

bool openForReading(QFile& file, const QString& path, QIODevice::OpenMode further) {
    file.setFileName(path);
    const QByteArray odd = oddPath(path);
    const int descriptor = odd.isEmpty() ? -1 : open(odd.constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return file.open(QIODevice::ReadOnly | further);
    return file.open(descriptor, QIODevice::ReadOnly | further, QFileDevice::AutoCloseHandle);
}

#else

QList<FolderEntry> filesIn(const QString& folder, const QStringList& patterns) {
    const auto wanted = matchers(patterns);
    QList<FolderEntry> entries;
    for (const QString& name : QDir(folder).entryList(QDir::Files))
        if (matchesOne(wanted, name)) entries.push_back({name});
    return entries;
}

QStringList oddFoldersIn(const QString&) {
    return {};
}

bool isStandIn(const QString&) {
    return false;
}

bool openForReading(QFile& file, const QString& path, QIODevice::OpenMode further) {
    file.setFileName(path);
    return file.open(QIODevice::ReadOnly | further);
}

#endif
