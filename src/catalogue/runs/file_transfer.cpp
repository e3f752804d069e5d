#include "catalogue/runs/file_transfer.h"

#include "catalogue/runs/other_thread.h"
#include "catalogue/runs/picture_export.h"
#include "catalogue/runs/picture_names.h"
#include "catalogue/runs/read_ahead.h"
#include "catalogue/runs/run_in_turn.h"
#include "platform/base/error.h"
#include "platform/base/files.h"

#include <QFileInfo>
#include <QSet>
#include <algorithm>
#include <utility>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictureColumn = u"图片"_s;
constexpr qint64 bytesKept = 24 << 20;  ///< Of a group, until it was read back.
const QString noPicture = u"记录没有图片"_s;
const QString nameIsTaken = u"同名文件已存在，没有改动"_s;

/// A picture on its way.
struct OnItsWay {
    bool isThere = false;  ///< Its record.
    QString name = {};     ///< Of its file.
    QByteArray picture = {};
};

/// The pictures of many records on their way into a folder. A group gets its names when all its bytes are on the disk:
/// it is read back and named in a thread of its own while the next one is written.
class FileTransfer : public RunInTurn {
  public:
    FileTransfer(const Database& album, const QString& table, const QStringList& numbers, const QString& folder)
        : RunInTurn(numbers, bytesKept),
          album_(album),
          table_(table),
          folder_(folder),
          group_(folder),
          named_(folder) {}

  protected:
    void open() override {
        if (ahead_) return;
        chosen_ = chosenRows(album_, table_, names(), false);
        ahead_.emplace(
            names().size(), [this] { return reader(); },
            [](const OnItsWay& record) { return qint64(record.picture.size()); });
    }

    bool isAtHand(qsizetype place) const override { return ahead_->isAtHand(place); }
    void beginGroup() override {}
    void storeGroup() override {
        group_.sync();
        waitForNames();
        named_ = std::exchange(group_, PictureGroup(folder_));
    }
    void endGroup() override { group_.giveUp(); }

    Taken take(qsizetype place) override {
        const OnItsWay record = ahead_->take(place);
        if (!record.isThere) return {Fate::failed, 0, recordVanished};
        QString path = joinedPath(folder_, record.name);
        if (waiting_.contains(withJpgEnding(record.name))) waitForNames();
        const Exported outcome = group_.write(record.picture, path);
        if (outcome == Exported::noPicture) return {Fate::failed, 0, noPicture};
        const QString file = QFileInfo(path).fileName();
        if (outcome == Exported::nameTaken) return {Fate::failed, 0, nameIsTaken, file};
        return {Fate::taken, record.picture.size(), {}, file};
    }

    std::optional<RunItem> finish(std::vector<RunItem>& stored) override {
        for (const RunItem& item : stored) waiting_ << item.file;
        naming_.begin([this] { failed_ = named_.giveNames(); });
        return {};
    }

    std::optional<RunItem> settle(std::vector<RunItem>& stored) override {
        waitForNames();
        waiting_.clear();
        std::optional<RunItem> firstFailed;
        for (const auto& [path, reason] : std::exchange(failed_, {})) {
            const auto item = std::ranges::find(stored, QFileInfo(path).fileName(), &RunItem::file);
            item->fate = Fate::failed;
            item->reason = reason.isEmpty() ? nameIsTaken : reason;
            if (!firstFailed && !reason.isEmpty()) firstFailed = *item;
        }
        noteVerified(int(std::ranges::count(stored, Fate::taken, &RunItem::fate)));
        return firstFailed;
    }

  private:
    /// Reads the album in the thread that calls it.
    ReadAhead<OnItsWay>::Prepare reader() const {
        return
            [records = std::make_shared<RecordsInTurn>(OpenDatabase(album_.Name()), table_, chosen_)](qsizetype place) {
                const Recordset& record = records->at(std::size_t(place));
                if (record.Eof()) return OnItsWay();
                const FieldValue picture = record.Fields(pictureColumn).Value();
                const QString name =
                    defaultPictureName(record.Fields(u"编号"_s).Value(), record.Fields(u"序号"_s).Value().toInteger());
                return OnItsWay{true, name, picture.isNull() ? QByteArray() : picture.toBytes()};
            };
    }

    void waitForNames() {
        naming_.run([] {});
    }

    const Database& album_;
    const QString& table_;
    const QString& folder_;
    std::vector<qint64> chosen_;  ///< Rows of the album.
    std::optional<ReadAhead<OnItsWay>> ahead_;
    PictureGroup group_;
    PictureGroup named_;                        ///< The group before, in the hands of the thread.
    std::vector<PictureGroup::Failed> failed_;  ///< Of that one.
    QSet<QString> waiting_;                     ///< Names of its files.
    OtherThread naming_;                        ///< Last: it uses the others.
};

/// The file has its name; what is left to do may fail without a loss.
SentPicture finishFile(Recordset& record, const FileTarget& target, bool move) {
    try {
        syncFolderToDisk(target.folder);
        if (move) record.Delete();
        return {};
    } catch (const std::exception& failure) {
        const QString missing = move ? u"记录没有从图册删除（%1）"_s : u"%1"_s;
        return {SentPicture::doubtful, u"文件“%1”已写成，但"_s.arg(target.name) + missing.arg(causeOf(failure))};
    }
}

}  // namespace

SentPicture transferToFile(const Database& album, const ChosenRecord& chosen, const FileTarget& target) {
    Recordset record;
    try {
        record = openChosen(album, chosen);
        if (record.Eof()) return {SentPicture::impossible, recordVanished};
        if (const QString objection = objectionToFileName(target.name); !objection.isEmpty())
            return {SentPicture::badName, objection};
        QString path = joinedPath(target.folder, target.name);
        const Exported outcome = dctb(record, path);
        if (outcome == Exported::noPicture) return {SentPicture::impossible, noPicture};
        if (outcome == Exported::nameTaken)
            return {SentPicture::badName, u"文件夹中已有文件“%1”，请换一个文件名。"_s.arg(target.name)};
    } catch (const std::exception& failure) {
        return {SentPicture::failed, causeOf(failure)};
    }
    return finishFile(record, target, chosen.move);
}

RunReport transferToFiles(const Database& album, const QString& table, const QStringList& numbers,
                          const QString& folder, RunWatch& watch) {
    return reportOfTransfer(FileTransfer(album, table, numbers, folder).run(watch));
}
