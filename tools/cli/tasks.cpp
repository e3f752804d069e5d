#include "cli/tasks.h"

#include "backup/catalogue_copy.h"
#include "catalogue/album_directory.h"
#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/picture_proof.h"
#include "catalogue/runs/file_transfer.h"
#include "cli/writer_watch.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/database/file/file_check.h"
#include "platform/database/records/value_hashes.h"

#include <QDir>
#include <QFileInfo>
#include <QThread>
#include <algorithm>
#include <iterator>
#include <set>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int pauseMs = 200;
/// An album that never rests that long cannot be looked through.
constexpr int mostTries = 3000;

/// The file is looked through anew after each change that somebody makes meanwhile.
FileCheck::Outcome lookThrough(const QString& catalogue) {
    for (int tried = 0; tried < mostTries; ++tried) {
        FileCheck check(catalogue);
        const WriterWatch watch(catalogue, [&check] { check.interrupt(); });
        const FileCheck::Outcome outcome = check.run();
        if (outcome != FileCheck::Outcome::interrupted) return outcome;
        QThread::msleep(pauseMs);
    }
    throw Error(u"像册文件“%1”一直在改动，没有检查完。"_s.arg(catalogue));
}

struct PictureCount {
    qsizetype same = 0;
    qsizetype changed = 0;  ///< Or unreadable.
    qsizetype unknown = 0;  ///< Without a fingerprint yet.
};

/// What has a fingerprint is read and compared with it; what has none is only read.
std::vector<ToProve> picturesToCompare(const Database& catalogue) {
    std::vector<ToProve> pictures = allPictures(catalogue);
    for (ToProve& picture : pictures) picture.decodes = false;
    return pictures;
}

/// What was not read though it is in the catalogue still. All others have been deleted meanwhile.
std::vector<Proven> unreadIn(const Database& catalogue, const std::vector<ToProve>& pictures,
                             const std::vector<Proven>& read) {
    std::set<qint64> open;
    for (const ToProve& picture : pictures) open.insert(picture.picture);
    for (const Proven& one : read) open.erase(one.picture);
    if (open.empty()) return {};
    std::vector<Proven> unread;
    for (const ToProve& picture : allPictures(catalogue))
        if (open.erase(picture.picture) > 0) unread.push_back({picture.picture, Fault::unreadable});
    return unread;
}

/// A catalogue of the first version keeps no fingerprints.
qsizetype countWithoutPrints(const Database& catalogue) {
    qsizetype count = 0;
    for (const QString& album : albumTables(catalogue))
        count += qsizetype(ValueHashes(catalogue).without(album, u"图片"_s).size());
    return count;
}

PictureCount comparePictures(const QString& file, QTextStream& out) {
    const Database catalogue = OpenDatabase(file);
    if (!ValueHashes(catalogue).areKept()) return {.unknown = countWithoutPrints(catalogue)};
    const std::vector<ToProve> pictures = picturesToCompare(catalogue);
    std::vector<Proven> found = proveAll(file, pictures, [](qsizetype, qint64) { return true; });
    std::ranges::move(unreadIn(catalogue, pictures, found), std::back_inserter(found));
    PictureCount count;
    for (const Proven& one : found) {
        if (one.fault != Fault::none)
            out << textOf(placeOf(catalogue, one.picture)) << u'：' << textOf(one.fault) << u'\n';
        ++(one.fault != Fault::none ? count.changed : one.isNew ? count.unknown : count.same);
    }
    return count;
}

Album albumCalled(const Database& catalogue, const QString& called) {
    if (const auto found = findAlbum(catalogue, called)) return *found;
    if (const auto found = findTitle(catalogue, called)) return *found;
    QStringList lines;
    for (const Album& album : allAlbums(catalogue)) lines << albumLine(album.table, album.title);
    throw Error(u"没有图册“%1”。像册里的图册：\n  %2"_s.arg(called, lines.join(u"\n  "_s)));
}

QStringList numbersOf(const Database& catalogue, const QString& album) {
    const Recordset rows = catalogue.OpenRecordset(u"SELECT * FROM %1 ORDER BY [序号]"_s.arg(album));
    QStringList numbers;
    for (int row = 0; row < rows.rowCount(); ++row) numbers << rows.valueAt(row, u"序号"_s).textOr();
    return numbers;
}

/// A picture that fails keeps no other from its file.
class PassingOver : public RunWatch {
  public:
    bool passesOver(const RunItem&) override { return true; }
};

}  // namespace

Exit checkCatalogue(const QString& catalogue, QTextStream& out) {
    if (isJetDatabase(catalogue)) throw Error(u"“%1”不是本软件的像册文件，不能检查。"_s.arg(catalogue));
    // What a power cut has left half changed is repaired by opening it for writing; the check only reads.
    attempt([&] { (void)OpenDatabase(catalogue).TableDefs(); });
    const bool isWhole = lookThrough(catalogue) == FileCheck::Outcome::whole;
    out << (isWhole ? u"像册文件“%1”完整。\n"_s : u"像册文件“%1”有损坏的地方。请不要再改动它，用备份恢复。\n"_s)
               .arg(catalogue);
    out.flush();
    try {
        const PictureCount count = comparePictures(catalogue, out);
        out << u"图片：%1 张与收进来时一样，%2 张不同或不能读取，%3 张还没有登记。\n"_s.arg(count.same)
                   .arg(count.changed)
                   .arg(count.unknown);
        return isWhole && count.changed == 0 ? Exit::good : Exit::bad;
    } catch (const Error& failure) {
        if (isWhole) throw;
        out << u"图片没有核对完：%1\n"_s.arg(failure.text());
        return Exit::bad;
    }
}

Exit backUp(const QString& catalogue, const QString& copy, QTextStream& out) {
    const QString path = QFileInfo(copy).absoluteFilePath();
    copyCatalogue(catalogue, path);
    out << u"像册“%1”已备份到“%2”。\n"_s.arg(catalogue, path);
    return Exit::good;
}

Exit exportAlbum(const QString& catalogue, const QString& album, const QString& folder, QTextStream& out) {
    const Database database = OpenDatabase(catalogue);
    const QString table = albumCalled(database, album).table;
    const QString path = QFileInfo(folder).absoluteFilePath();
    if (!folderExists(path) && !QDir().mkpath(path)) throw Error(u"文件夹“%1”不能建立。"_s.arg(path));
    const QStringList numbers = numbersOf(database, table);
    PassingOver watch;
    const RunReport report = transferToFiles(database, table, numbers, path, watch);
    for (const RunItem& item : report.items)
        if (item.fate != Fate::taken) out << u"没有写成：序号 %1 %2：%3\n"_s.arg(item.name, item.file, item.reason);
    if (!report.failure.isEmpty()) throw Error(report.failure);
    out << u"像册“%1”的图册 %2 有 %3 张图片，%4 张已在“%5”里。\n"_s.arg(catalogue, table)
               .arg(numbers.size())
               .arg(report.count)
               .arg(path);
    return report.count == numbers.size() ? Exit::good : Exit::bad;
}
