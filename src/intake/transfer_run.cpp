#include "intake/transfer_run.h"

#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/mektp.h"
#include "catalogue/next_number.h"
#include "intake/intake_texts.h"
#include "intake/picture_export.h"
#include "platform/base/error.h"
#include "platform/base/files.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictureColumn = u"图片"_s;
const QString vanished = u"记录已不在图册中"_s;
const QString noPicture = u"记录没有图片"_s;
const QString nameIsTaken = u"同名文件已存在，没有改动"_s;

QString withoutEnd(QString sentence) {
    if (sentence.endsWith(u'。')) sentence.chop(1);
    return sentence;
}

QString reasonOf(const std::exception& failure) {
    const auto* error = dynamic_cast<const Error*>(&failure);
    return withoutEnd(error != nullptr ? error->text() : QString::fromLocal8Bit(failure.what()));
}

}  // namespace

Recordset openChosen(const ChosenRecord& chosen) {
    Recordset records =
        mekTp::catalogue.OpenRecordset(allRecordsSql(chosen.table) + u" WHERE 序号 = "_s + chosen.number);
    const int last = records.rowCount() - 1;
    if (last < 0) return records;
    records.moveToRow(std::min(chosen.earlier, last));
    if (chosen.move && chosen.earlier > last) records.MoveNext();
    return records;
}

namespace {

/// The pictures of many lines on their way into a folder.
class FileTransfer {
  public:
    FileTransfer(const QString& table, const QString& folder, NotDone& notDone)
        : table_(table), folder_(folder), notDone_(notDone), group_(folder) {}

    void write(const QString& number) {
        try {
            Recordset record = openChosen({table_, number, seen_[number]++});
            if (record.Eof()) {
                notDone_.add(vanished + u"，序号"_s, number);
                return;
            }
            QString path = joinedPath(folder_, defaultPictureName(record.Fields(u"编号"_s).Value(),
                                                                  record.Fields(u"序号"_s).Value().toInteger()));
            note(group_.write(record, path), path, number);
        } catch (const std::exception& failure) {
            notDone_.add(reasonOf(failure) + u"，序号"_s, number);
        }
        if (group_.isFull()) giveNames();
    }

    void giveNames() {
        const QStringList numbers = std::exchange(numbers_, {});
        try {
            for (const auto& [path, reason] : group_.giveNames())
                notDone_.add(reason.isEmpty() ? nameIsTaken : withoutEnd(reason), QFileInfo(path).fileName());
        } catch (const std::exception& failure) {
            for (const QString& number : numbers) notDone_.add(reasonOf(failure) + u"，序号"_s, number);
        }
    }

  private:
    void note(Exported outcome, const QString& path, const QString& number) {
        if (outcome == Exported::written) numbers_ << number;
        if (outcome == Exported::nameTaken) notDone_.add(nameIsTaken, QFileInfo(path).fileName());
        if (outcome == Exported::noPicture) notDone_.add(noPicture + u"，序号"_s, number);
    }

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
          next_(target.database, target.table) {}

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
                stays(line, vanished);
                return 0;
            }
            if (losesPicture(record)) {
                stays(line, u"图片没有对应字段"_s);
                return 0;
            }
            const qint64 bytes = write(record);
            group_.push_back({line, std::move(record)});
            return bytes;
        } catch (const std::exception& failure) {
            attempt([&] { rows_.CancelUpdate(); });
            stays(line, reasonOf(failure));
            return 0;
        }
    }

    Recordset recordToTake(const QString& line) {
        const auto inGroup = static_cast<int>(std::ranges::count(group_, line, &Copied::line));
        return openChosen({table_, line, move_ ? inGroup + staying_[line] : seen_[line]++, move_});
    }

    void stays(const QString& line, const QString& reason) {
        notDone_.add(reason + u"，序号"_s, line);
        ++staying_[line];
    }

    /// A move into a table to which no picture goes would delete the only one there is.
    bool losesPicture(const Recordset& record) const {
        return move_ && !takesPictures_ && record.Fields(pictureColumn).FieldSize() > 0;
    }

    qint64 write(Recordset& record) {
        rows_.AddNew();
        rows_.Fields(u"序号"_s).SetValue(next_.value());
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
        next_.take();
        return bytes;
    }

    /// The group was taken back by the target; nothing follows it.
    void giveUp(const QString& reason) {
        for (const Copied& copied : group_) stays(copied.line, reason);
        for (; index_ < lines_.size(); ++index_) stays(lines_[index_], reason);
    }

    void deleteGroup() {
        try {
            Transaction together(mekTp::catalogue);
            for (Copied& copied : group_) copied.record.Delete();
            together.commit();
        } catch (const std::exception& failure) {
            const QString reason = u"已写入目标表，但没有从原图册删除（"_s + reasonOf(failure) + u'）';
            for (const Copied& copied : group_) stays(copied.line, reason);
        }
    }

    QString table_;
    const QStringList& lines_;
    const TransferTarget& target_;
    bool move_;
    NotDone& notDone_;
    bool takesPictures_;  ///< 图片 has a column to go to.
    Recordset rows_;
    NextNumber next_;
    qsizetype index_ = 0;
    std::vector<Copied> group_;  ///< Written to the target in the change under way.
    QHash<QString, int> seen_;
    QHash<QString, int> staying_;  ///< Records of a number that were to go and are still there.
};

/// The file stands; what is left to do may fail without a loss.
SentPicture finishFile(Recordset& record, const FileTarget& target, bool move) {
    try {
        syncFolderToDisk(target.folder);
        if (move) record.Delete();
        return {};
    } catch (const std::exception& failure) {
        const QString missing = move ? u"记录没有从图册删除（%1）"_s : u"%1"_s;
        return {SentPicture::failed, u"文件“%1”已写成，但"_s.arg(target.name) + missing.arg(reasonOf(failure))};
    }
}

}  // namespace

SentPicture transferToFile(const ChosenRecord& chosen, const FileTarget& target) {
    Recordset record;
    try {
        record = openChosen(chosen);
        if (record.Eof()) return {SentPicture::impossible, vanished};
        if (const QString objection = objectionToFileName(target.name); !objection.isEmpty())
            return {SentPicture::badName, objection};
        QString path = joinedPath(target.folder, target.name);
        const Exported outcome = dctb(record, path);
        if (outcome == Exported::noPicture) return {SentPicture::impossible, noPicture};
        if (outcome == Exported::nameTaken)
            return {SentPicture::badName, u"文件夹中已有文件“%1”，请换一个文件名。"_s.arg(target.name)};
    } catch (const std::exception& failure) {
        return {SentPicture::failed, reasonOf(failure)};
    }
    return finishFile(record, target, chosen.move);
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
    if (!isWritableNow(path)) throw Error(u"“%1”是只读文件，不能把图片转存进去。"_s.arg(name));
    // The engine keeps a file of its own beside the database while it writes.
    if (!isWritableNow(QFileInfo(path).absolutePath()))
        throw Error(u"“%1”所在的文件夹不能写入，不能把图片转存进去。"_s.arg(name));
    return target;
}

QString objectionToTable(const Database& target, const QString& table) {
    if (isDemo(table)) return onlyForShow;
    if (!target.TableDefs().contains(table, Qt::CaseInsensitive))
        return u"目标库中没有数据表“%1”，请重新选择！"_s.arg(table);
    if (mekTp::isCatalogue(target.Name()) && !isAlbumTable(target, table))
        return u"数据表“%1”不是图册，不能接受图片，请重新选择！"_s.arg(table);
    if (!fieldNamed(shapeOf(target, table), u"序号"_s))
        return u"数据表“%1”没有序号，不能接受图片，请重新选择！"_s.arg(table);
    return {};
}

NotDone transferToTable(const QString& table, const QStringList& lines, const TransferTarget& target, bool move,
                        const Progress& progress) {
    if (const QString objection = objectionToTable(target.database, target.table); !objection.isEmpty())
        throw Error(objection);
    NotDone notDone;
    TableTransfer(table, lines, target, move, notDone).run(progress);
    return notDone;
}
