#include "catalogue/runs/table_transfer.h"

#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/next_number.h"
#include "catalogue/runs/chosen_record.h"
#include "platform/base/error.h"
#include "platform/base/files.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <algorithm>
#include <iterator>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictureColumn = u"图片"_s;

/// The records go in groups. Each is one change of the target, so that the disk is waited for once a group.
class TableTransfer {
  public:
    TableTransfer(const Database& album, const QString& table, const QStringList& numbers, const TransferTarget& target,
                  bool move)
        : album_(album),
          table_(table),
          numbers_(numbers),
          target_(target),
          move_(move),
          takesPictures_(std::any_of(
              std::ranges::next(target.mapping.begin(), 1, target.mapping.end()), target.mapping.end(),
              [](const FieldPair& pair) { return pair.target == pictureColumn && !pair.source.isEmpty(); })),
          rows_(target.database.OpenRecordset(noRecordsSql(target.table))),
          next_(target.database, target.table) {}

    RunReport run(RunWatch& watch) {
        progress_.all = numbers_.size();
        while (goesOn_ && progress_.done < numbers_.size()) {
            group_.clear();
            try {
                storeGroup(watch);
            } catch (const std::exception& failure) {
                giveUp(causeOf(failure));
                break;
            }
            endGroup();
        }
        report_.close(numbers_, progress_.done);
        return std::move(report_);
    }

  private:
    struct Copied {
        qsizetype place;
        QString number;
        Recordset record;
    };
    static constexpr qint64 groupBytes = 48 << 20;
    static constexpr std::size_t groupRecords = 64;

    void storeGroup(RunWatch& watch) {
        Transaction together(target_.database);
        const qint64 bytesBefore = progress_.bytes;
        while (goesOn_ && progress_.done < numbers_.size() && progress_.bytes - bytesBefore < groupBytes &&
               group_.size() < groupRecords) {
            progress_.bytes += append(progress_.done++);
            progress_.percent = int(progress_.done * 100 / numbers_.size());
            goesOn_ = watch.progress(progress_);
        }
        together.commit();
    }

    /// Returns the bytes of the pictures. A record that cannot be copied does not keep the others from it.
    qint64 append(qsizetype place) {
        try {
            Recordset record = recordToTake(numbers_[place]);
            if (record.Eof()) {
                stays(place, recordVanished);
                return 0;
            }
            if (losesPicture(record)) {
                stays(place, u"图片没有对应字段"_s);
                return 0;
            }
            const qint64 bytes = write(record);
            group_.push_back({place, numbers_[place], std::move(record)});
            return bytes;
        } catch (const std::exception& failure) {
            attempt([&] { rows_.CancelUpdate(); });
            stays(place, causeOf(failure));
            return 0;
        }
    }

    Recordset recordToTake(const QString& number) {
        const auto inGroup = int(std::ranges::count(group_, number, &Copied::number));
        return openChosen(album_, {table_, number, move_ ? inGroup + staying_[number] : seen_[number]++, move_});
    }

    void stays(qsizetype place, const QString& reason) {
        report_.items.push_back({place, numbers_[place], Fate::failed, reason});
        ++staying_[numbers_[place]];
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
        for (const Copied& copied : group_) stays(copied.place, reason);
        for (; progress_.done < numbers_.size(); ++progress_.done) stays(progress_.done, reason);
    }

    void endGroup() {
        try {
            if (move_ && !group_.empty()) deleteGroup();
            for (const Copied& copied : group_) report_.items.push_back({copied.place, copied.number, Fate::taken});
        } catch (const std::exception& failure) {
            const QString reason = u"已写入目标表，但没有从原图册删除（"_s + causeOf(failure) + u'）';
            for (const Copied& copied : group_) stays(copied.place, reason);
        }
    }

    void deleteGroup() {
        Transaction together(album_);
        for (Copied& copied : group_) copied.record.Delete();
        together.commit();
    }

    const Database& album_;
    const QString& table_;
    const QStringList& numbers_;
    const TransferTarget& target_;
    bool move_;
    bool takesPictures_;  ///< 图片 has a column to go to.
    Recordset rows_;      ///< Of the target.
    NextNumber next_;
    RunProgress progress_;
    bool goesOn_ = true;
    std::vector<Copied> group_;  ///< Written to the target in the change under way.
    QHash<QString, int> seen_;
    QHash<QString, int> staying_;  ///< Records of a number that were to go and are still there.
    RunReport report_;
};

}  // namespace

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

QString objectionToTable(const Database& album, const Database& target, const QString& table) {
    if (isDemo(table)) return onlyForShow;
    if (!target.TableDefs().contains(table, Qt::CaseInsensitive))
        return u"目标库中没有数据表“%1”，请重新选择！"_s.arg(table);
    if (isSameFile(album.Name(), target.Name()) && !isAlbumTable(target, table))
        return u"数据表“%1”不是图册，不能接受图片，请重新选择！"_s.arg(table);
    if (!fieldNamed(shapeOf(target, table), u"序号"_s))
        return u"数据表“%1”没有序号，不能接受图片，请重新选择！"_s.arg(table);
    return {};
}

RunReport transferToTable(const Database& album, const QString& table, const QStringList& numbers,
                          const TransferTarget& target, bool move, RunWatch& watch) {
    if (const QString objection = objectionToTable(album, target.database, target.table); !objection.isEmpty())
        throw Error(objection);
    return TableTransfer(album, table, numbers, target, move).run(watch);
}
