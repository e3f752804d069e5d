#include "catalogue/runs/table_transfer.h"

#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/next_number.h"
#include "catalogue/picture_hashes.h"
#include "catalogue/runs/chosen_record.h"
#include "catalogue/runs/other_thread.h"
#include "catalogue/runs/read_ahead.h"
#include "catalogue/runs/run_in_turn.h"
#include "platform/base/error.h"
#include "platform/base/files.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <condition_variable>
#include <iterator>
#include <mutex>
#include <utility>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictureColumn = u"图片"_s;
constexpr qint64 bytesOfGroup = 24 << 20;
constexpr qint64 bytesKept = 28 << 20;  ///< Of a group and of the one before, as far as it was not read back.
const QString differs = u"读回的图片与原图不同"_s;

/// A record on its way.
struct OnItsWay {
    QString objection = {};               ///< Why it stays where it is.
    std::vector<FieldValue> values = {};  ///< By pair of the mapping; Null where nothing is written.
    qint64 bytes = 0;                     ///< Of its pictures.
    Fingerprint print = {};               ///< Of 图片, where the album keeps it.
};

/// What was stored together in the target.
struct StoredGroup {
    std::vector<qint64> rows = {};       ///< In the album.
    std::vector<OnItsWay> records = {};  ///< Each without its pictures when they were read back.
    int first = 0;                       ///< 序号 of the first one in the target.
    qint64 bytes = 0;
    QStringList doubts = {};  ///< About each that was read back; empty when its pictures are the same.
};

const FieldPair* pictureMapped(const FieldMapping& mapping) {
    for (std::size_t i = 1; i < mapping.size(); ++i)
        if (mapping[i].target == pictureColumn && !mapping[i].source.isEmpty()) return &mapping[i];
    return nullptr;
}

bool holds(const Field& field, const FieldValue& value) {
    constexpr qint64 pieceSize = 1 << 18;
    const QByteArray picture = value.toBytes();
    if (field.FieldSize() != picture.size()) return false;
    for (qint64 offset = 0; offset < picture.size(); offset += pieceSize) {
        const qint64 count = std::min(pieceSize, picture.size() - offset);
        if (field.GetChunk(offset, count) != QByteArrayView(picture).sliced(offset, count)) return false;
    }
    return true;
}

bool holdsPictures(const Recordset& row, const FieldMapping& mapping, const OnItsWay& record) {
    for (std::size_t i = 1; i < mapping.size(); ++i) {
        if (record.values[i].isNull()) continue;
        const Field field = row.Fields(mapping[i].source);
        if (field.Type() == FieldType::longBinary && !holds(field, record.values[i])) return false;
    }
    return true;
}

/// Reads stored pictures back by a connection of its own, which has none of them in its memory, while the next ones are
/// taken.
class ReadingBack {
  public:
    explicit ReadingBack(const TransferTarget& target) : target_(target) {}
    ~ReadingBack() {
        thread_.run([this] { database_ = Database(); });
    }
    ReadingBack(const ReadingBack&) = delete;
    ReadingBack& operator=(const ReadingBack&) = delete;

    /// Does not wait for it.
    void begin(StoredGroup group) {
        group_ = std::move(group);
        unread_ = group_.bytes;
        thread_.begin([this] {
            try {
                compare();
            } catch (const std::exception& failure) {
                while (std::size_t(group_.doubts.size()) < group_.rows.size())
                    group_.doubts << u"图片没有读回："_s + causeOf(failure);
            }
            noteLeft(0);
        });
    }
    /// Until what was begun is done. It reads no more of the target then.
    void wait() {
        thread_.run([] {});
    }
    /// Until no more than so many bytes of it are left.
    void waitUntilLeft(qint64 bytes) {
        std::unique_lock lock(mutex_);
        isRead_.wait(lock, [&] { return unread_ <= bytes; });
    }
    /// Waits for it, and gives it back.
    StoredGroup take() {
        wait();
        return std::exchange(group_, {});
    }

  private:
    void compare() {
        if (!database_.isOpen()) database_ = OpenDatabase(target_.database.Name());
        Recordset rows = database_.OpenRecordset(allRecordsSql(target_.table) +
                                                 u" WHERE [序号] >= %1 ORDER BY [序号]"_s.arg(group_.first));
        for (OnItsWay& record : group_.records) {
            const FieldValue number(group_.first + int(group_.doubts.size()));
            const bool isThere = !rows.Eof() && rows.Fields(u"序号"_s).Value() == number;
            group_.doubts << (isThere && holdsPictures(rows, target_.mapping, record) ? QString() : differs);
            record.values.clear();
            noteLeft(unread_ - record.bytes);
            if (!rows.Eof()) rows.MoveNext();
        }
    }

    void noteLeft(qint64 bytes) {
        {
            const std::lock_guard lock(mutex_);
            unread_ = bytes;
        }
        isRead_.notify_all();
    }

    const TransferTarget& target_;
    Database database_;  ///< Of the thread; so is the group, from `begin` until it was waited for.
    StoredGroup group_;
    std::mutex mutex_;
    std::condition_variable isRead_;
    qint64 unread_ = 0;  ///< Bytes.
    OtherThread thread_;
};

/// The records go in groups, each of which is one change of the target. When it is stored, its pictures are read back
/// and compared beside the next group; then its records may go from the album.
class TableTransfer : public RunIntoDatabase {
  public:
    TableTransfer(const Database& album, const QString& table, const QStringList& numbers, const TransferTarget& target,
                  bool move)
        : RunIntoDatabase(numbers, bytesOfGroup),
          album_(album),
          table_(table),
          target_(target),
          move_(move),
          hashes_(target.database),
          readingBack_(target) {}

  protected:
    const Database& target() const override { return target_.database; }

    void open() override {
        rows_ = target_.database.OpenRecordset(noRecordsSql(target_.table));
        next_.emplace(target_.database, target_.table);
        if (ahead_) return;
        chosen_ = chosenRows(album_, table_, names(), move_);
        ahead_.emplace(
            names().size(), [this] { return reader(); }, [](const OnItsWay& record) { return record.bytes; },
            ReadAhead<OnItsWay>::Limits{.things = isSameFile(album_.Name(), target_.database.Name()) ? 0U : 64U});
    }

    void beginGroup() override {
        RunIntoDatabase::beginGroup();
        group_ = {.first = next_->value()};
    }

    /// Who reads back would keep the change from its file.
    void storeGroup() override {
        readingBack_.wait();
        RunIntoDatabase::storeGroup();
    }

    bool isAtHand(qsizetype place) const override { return ahead_->isAtHand(place); }

    Taken take(qsizetype place) override {
        OnItsWay record = ahead_->take(place);
        if (!record.objection.isEmpty()) return {Fate::failed, 0, record.objection};
        makeRoomFor(record.bytes);
        try {
            write(record);
        } catch (...) {
            attempt([&] { rows_.CancelUpdate(); });
            throw;
        }
        const qint64 bytes = record.bytes;
        group_.bytes += bytes;
        group_.rows.push_back(chosen_[std::size_t(place)]);
        group_.records.push_back(std::move(record));
        return {Fate::taken, bytes};
    }

    std::optional<RunItem> finish(std::vector<RunItem>&) override {
        readingBack_.begin(std::move(group_));
        return {};
    }

    std::optional<RunItem> settle(std::vector<RunItem>& stored) override {
        StoredGroup group = readingBack_.take();
        for (std::size_t i = 0; i < group.rows.size(); ++i)
            if (group.doubts[qsizetype(i)].isEmpty() && group.records[i].bytes > 0) noteVerified(1);
        if (move_ && !group.rows.empty()) removeUndoubted(group);
        std::optional<RunItem> firstFailed;
        const QString reason = move_ ? u"已写入目标表，但没有从原图册删除（%1）"_s : u"已写入目标表，但%1"_s;
        auto doubt = group.doubts.cbegin();
        for (RunItem& item : stored) {
            if (item.fate != Fate::taken || (doubt++)->isEmpty()) continue;
            item.fate = Fate::doubtful;
            item.reason = reason.arg(*std::prev(doubt));
            if (!firstFailed) firstFailed = item;
        }
        return firstFailed;
    }

  private:
    /// A larger group may be more than the engine keeps in memory: what it writes earlier keeps readers out until the
    /// change is stored.
    void makeRoomFor(qint64 bytes) {
        const qint64 room = bytesKept - group_.bytes - bytes;
        if (room < 0)
            readingBack_.wait();
        else
            readingBack_.waitUntilLeft(room);
    }

    /// Reads the album in the thread that calls it.
    ReadAhead<OnItsWay>::Prepare reader() const {
        const Database album = OpenDatabase(album_.Name());
        return [this, records = std::make_shared<RecordsInTurn>(album, table_, chosen_),
                prints = PictureHashes(album)](qsizetype place) {
            const std::lock_guard lock(albumMutex_);
            const Recordset& record = records->at(std::size_t(place));
            return record.Eof() ? OnItsWay{recordVanished} : read(record, prints);
        };
    }

    OnItsWay read(const Recordset& record, const PictureHashes& prints) const {
        // The picture would be lost: it is nowhere else.
        if (move_ && pictureMapped(target_.mapping) == nullptr && record.Fields(pictureColumn).FieldSize() > 0)
            return {u"图片没有对应字段"_s};
        OnItsWay read{.values = std::vector<FieldValue>(target_.mapping.size())};
        for (std::size_t i = 1; i < target_.mapping.size(); ++i) {
            const FieldPair& pair = target_.mapping[i];
            if (pair.source.isEmpty()) continue;
            const Field field = record.Fields(pair.target);
            read.values[i] = field.Value();
            if (field.Type() == FieldType::longBinary) read.bytes += field.FieldSize();
        }
        if (hashes_.areKept()) read.print = prints.of(record.storedAt(record.row(), pictureColumn));
        return read;
    }

    void write(const OnItsWay& record) {
        rows_.AddNew();
        rows_.Fields(u"序号"_s).SetValue(next_->value());
        for (std::size_t i = 1; i < target_.mapping.size(); ++i)
            if (!record.values[i].isNull()) rows_.Fields(target_.mapping[i].source).SetValue(record.values[i]);
        rows_.Update();
        next_->take();
        if (!record.print.sha256.isEmpty()) notePrint(record.print);
    }

    /// Without it the copy is as good.
    void notePrint(const Fingerprint& print) {
        const FieldPair* picture = pictureMapped(target_.mapping);
        if (picture == nullptr) return;
        attempt([&] { hashes_.note(rows_.storedAt(rows_.rowCount() - 1, picture->source), print); });
    }

    /// What stays in the album all the same is in doubt, too.
    void removeUndoubted(StoredGroup& group) {
        std::vector<qint64> rows;
        for (std::size_t i = 0; i < group.rows.size(); ++i)
            if (group.doubts[qsizetype(i)].isEmpty()) rows.push_back(group.rows[i]);
        try {
            const std::lock_guard lock(albumMutex_);
            removeRows(album_, table_, rows);
        } catch (const std::exception& failure) {
            for (QString& doubt : group.doubts)
                if (doubt.isEmpty()) doubt = causeOf(failure);
        }
    }

    const Database& album_;
    const QString& table_;
    const TransferTarget& target_;
    bool move_;
    mutable std::mutex albumMutex_;  ///< Whoever reads the album would keep its records from going.
    std::vector<qint64> chosen_;     ///< Rows of the album.
    std::optional<ReadAhead<OnItsWay>> ahead_;
    Recordset rows_;  ///< Of the target.
    std::optional<NextNumber> next_;
    PictureHashes hashes_;  ///< Of the target.
    StoredGroup group_;     ///< That is being taken.
    ReadingBack readingBack_;
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
    return reportOfTransfer(TableTransfer(album, table, numbers, target, move).run(watch));
}
