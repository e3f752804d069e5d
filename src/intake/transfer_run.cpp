#include "intake/transfer_run.h"

#include "catalogue/mektp.h"
#include "intake/database_copy.h"
#include "intake/picture_export.h"
#include "platform/base/error.h"
#include "platform/base/files.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictureColumn = u"图片"_s;
const QString vanished = u"记录已不在图册中，序号"_s;
const QString nameIsTaken = u"同名文件已存在，没有改动"_s;

/// The record of a 序号; of several records with the same number the one behind `earlier` others. `Eof` when there is
/// none.
Recordset recordOf(const QString& table, const QString& number, int earlier) {
    Recordset records = mekTp::catalogue.OpenRecordset(allRecordsSql(table) + u" WHERE 序号 = "_s + number);
    for (int i = 0; i < earlier && !records.Eof(); ++i) records.MoveNext();
    return records;
}

/// The record of a number that is copied for the second time: the second of its kind, or the only one once more.
Recordset recordToCopy(const QString& table, const QString& number, int earlier) {
    Recordset records = recordOf(table, number, 0);
    if (records.rowCount() > 0) records.moveToRow(std::min(earlier, records.rowCount() - 1));
    return records;
}

QString withoutEnd(QString sentence) {
    if (sentence.endsWith(u'。')) sentence.chop(1);
    return sentence;
}

QString reasonOf(const std::exception& failure) {
    const auto* error = dynamic_cast<const Error*>(&failure);
    return withoutEnd(error != nullptr ? error->text() : QString::fromLocal8Bit(failure.what()));
}

/// Tells why there is no file.
bool wasWritten(Exported outcome, const QString& path, const QString& number, NotDone& notDone) {
    if (outcome == Exported::nameTaken) notDone.add(nameIsTaken, QFileInfo(path).fileName());
    if (outcome == Exported::noPicture) notDone.add(u"记录没有图片，序号"_s, number);
    return outcome == Exported::written;
}

/// The pictures of many lines on their way into a folder.
class FileTransfer {
  public:
    FileTransfer(const QString& table, const QString& folder, NotDone& notDone)
        : table_(table), folder_(folder), notDone_(notDone), group_(folder) {}

    void write(const QString& number) {
        try {
            Recordset record = recordToCopy(table_, number, seen_[number]++);
            if (record.Eof()) {
                notDone_.add(vanished, number);
                return;
            }
            QString path = joinedPath(folder_, defaultPictureName(record.Fields(u"编号"_s).Value(),
                                                                  record.Fields(u"序号"_s).Value().toInteger()));
            if (wasWritten(group_.write(record, path), path, number, notDone_)) numbers_ << number;
        } catch (const std::exception& failure) {
            notDone_.add(reasonOf(failure) + u"，序号"_s, number);
        }
        if (group_.isFull()) giveNames();
    }

    void giveNames() {
        const QStringList numbers = std::exchange(numbers_, {});
        try {
            for (const auto& [path, reason] : group_.giveNames()) {
                const bool isTaken = reason.isEmpty();
                notDone_.add(isTaken ? nameIsTaken : withoutEnd(reason), QFileInfo(path).fileName());
            }
        } catch (const std::exception& failure) {
            for (const QString& number : numbers) notDone_.add(reasonOf(failure) + u"，序号"_s, number);
        }
    }

  private:
    QString table_, folder_;
    NotDone& notDone_;
    PictureGroup group_;
    QStringList numbers_;  ///< Whose files wait for their names.
    QHash<QString, int> seen_;
};

/// The records go in groups. Each is one change of the target, so that the disk is waited for once a group.
class TableTransfer {
  public:
    TableTransfer(const QString& table, const QStringList& lines, const TransferTarget& target, bool move,
                  NotDone& notDone)
        : table_(table),
          lines_(lines),
          target_(target),
          move_(move),
          notDone_(notDone),
          takesPictures_(std::any_of(
              std::ranges::next(target.mapping.begin(), 1, target.mapping.end()), target.mapping.end(),
              [](const FieldPair& pair) { return pair.target == pictureColumn && !pair.source.isEmpty(); })),
          rows_(target.database.OpenRecordset(allRecordsSql(target.table))),
          next_(nextNumber(rows_)) {}

    void run(const Progress& progress) {
        while (index_ < lines_.size()) {
            group_.clear();
            try {
                storeGroup(progress);
            } catch (const std::exception& failure) {
                giveUp(reasonOf(failure));
                return;
            }
            if (move_) deleteGroup();
        }
    }

  private:
    struct Copied {
        QString line;
        Recordset record;
    };
    static constexpr qint64 groupBytes = 48 << 20;
    static constexpr std::size_t groupRecords = 64;

    void storeGroup(const Progress& progress) {
        Transaction together(target_.database);
        for (qint64 bytes = 0; index_ < lines_.size() && bytes < groupBytes && group_.size() < groupRecords; ++index_) {
            bytes += append(lines_[index_]);
            progress(static_cast<int>((index_ + 1) * 100 / lines_.size()));
        }
        together.commit();
    }

    /// Returns the bytes of the pictures. A record that cannot be copied does not keep the others from it.
    qint64 append(const QString& line) {
        try {
            Recordset record = recordToTake(line);
            if (record.Eof()) {
                notDone_.add(vanished, line);
                return 0;
            }
            if (losesPicture(record)) {
                notDone_.add(u"图片没有对应字段，序号"_s, line);
                return 0;
            }
            const qint64 bytes = write(record);
            group_.push_back({line, std::move(record)});
            return bytes;
        } catch (const std::exception& failure) {
            attempt([&] { rows_.CancelUpdate(); });
            notDone_.add(reasonOf(failure) + u"，序号"_s, line);
            return 0;
        }
    }

    Recordset recordToTake(const QString& line) {
        if (!move_) return recordToCopy(table_, line, seen_[line]++);
        const auto inGroup = std::ranges::count(group_, line, &Copied::line);
        return recordOf(table_, line, static_cast<int>(inGroup));
    }

    /// A move into a table to which no picture goes would delete the only one there is.
    bool losesPicture(const Recordset& record) const {
        return move_ && !takesPictures_ && record.Fields(pictureColumn).FieldSize() > 0;
    }

    qint64 write(Recordset& record) {
        if (next_ > std::numeric_limits<qint32>::max()) throw Error(u"目标表的序号已用完"_s);
        rows_.AddNew();
        rows_.Fields(u"序号"_s).SetValue(static_cast<qint32>(next_));
        qint64 bytes = 0;
        for (std::size_t i = 1; i < target_.mapping.size(); ++i) {
            const FieldPair& pair = target_.mapping[i];
            if (pair.source.isEmpty()) continue;
            const Field value = record.Fields(pair.target);
            if (value.isNull()) continue;
            if (value.Type() == FieldType::longBinary) bytes += value.FieldSize();
            rows_.Fields(pair.source).SetValue(value.Value());
        }
        rows_.Update();
        ++next_;
        return bytes;
    }

    /// The group was taken back by the target; nothing follows it.
    void giveUp(const QString& reason) {
        for (const Copied& copied : group_) notDone_.add(reason + u"，序号"_s, copied.line);
        for (; index_ < lines_.size(); ++index_) notDone_.add(reason + u"，序号"_s, lines_[index_]);
    }

    void deleteGroup() {
        try {
            Transaction together(mekTp::catalogue);
            for (Copied& copied : group_) copied.record.Delete();
            together.commit();
        } catch (const std::exception& failure) {
            const QString reason = u"已写入目标表，但没有从原图册删除（"_s + reasonOf(failure) + u"），序号"_s;
            for (const Copied& copied : group_) notDone_.add(reason, copied.line);
        }
    }

    QString table_;
    const QStringList& lines_;
    const TransferTarget& target_;
    bool move_;
    NotDone& notDone_;
    bool takesPictures_;  ///< 图片 has a column to go to.
    Recordset rows_;
    qint64 next_;
    qsizetype index_ = 0;
    std::vector<Copied> group_;  ///< Written to the target in the change under way.
    QHash<QString, int> seen_;
};

}  // namespace

void transferToFile(const QString& table, const QString& number, int earlier, const FileTarget& target, bool move,
                    NotDone& notDone) {
    try {
        if (!isUsableFileName(target.name)) throw Error(u"文件名“%1”不能使用"_s.arg(target.name));
        Recordset record = move ? recordOf(table, number, 0) : recordToCopy(table, number, earlier);
        if (record.Eof()) {
            notDone.add(vanished, number);
            return;
        }
        QString path = joinedPath(target.folder, target.name);
        if (!wasWritten(dctb(record, path), path, number, notDone)) return;
        syncFolderToDisk(target.folder);
        if (move) record.Delete();
    } catch (const std::exception& failure) {
        notDone.add(reasonOf(failure) + u"，序号"_s, number);
    }
}

NotDone transferToFiles(const QString& table, const QStringList& lines, const QString& folder,
                        const Progress& progress) {
    NotDone notDone;
    FileTransfer transfer(table, folder, notDone);
    for (qsizetype i = 0; i < lines.size(); ++i) {
        transfer.write(lines[i]);
        progress(static_cast<int>((i + 1) * 100 / lines.size()));
    }
    transfer.giveNames();
    return notDone;
}

Database openTarget(const QString& path) {
    const QString name = QDir::toNativeSeparators(path);
    // A Jet database would be read whole only to be refused then.
    const bool isJet = isJetDatabase(path);
    const Database target = isJet ? Database() : OpenDatabase(path);
    if (isJet || !target.isOurs())
        throw Error(
            u"“%1”是其它软件的数据库，只能从中录入图片，不能把图片转存进去。请选择本软件的图册数据库。"_s.arg(name));
    if (!QFileInfo(path).isWritable()) throw Error(u"“%1”是只读文件，不能把图片转存进去。"_s.arg(name));
    // The engine keeps a file of its own beside the database while it writes.
    if (!QFileInfo(QFileInfo(path).absolutePath()).isWritable())
        throw Error(u"“%1”所在的文件夹不能写入，不能把图片转存进去。"_s.arg(name));
    return target;
}

NotDone transferToTable(const QString& table, const QStringList& lines, const TransferTarget& target, bool move,
                        const Progress& progress) {
    NotDone notDone;
    TableTransfer(table, lines, target, move, notDone).run(progress);
    return notDone;
}
