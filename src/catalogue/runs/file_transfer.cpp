#include "catalogue/runs/file_transfer.h"

#include "catalogue/runs/picture_export.h"
#include "catalogue/runs/picture_names.h"
#include "platform/base/error.h"
#include "platform/base/files.h"

#include <QFileInfo>
#include <QHash>
#include <algorithm>
#include <utility>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictureColumn = u"图片"_s;
const QString noPicture = u"记录没有图片"_s;
const QString nameIsTaken = u"同名文件已存在，没有改动"_s;

/// The pictures of many records on their way into a folder.
class FileTransfer {
  public:
    FileTransfer(const Database& album, const QString& table, const QStringList& numbers, const QString& folder)
        : album_(album), table_(table), numbers_(numbers), folder_(folder), group_(folder) {}

    RunReport run(RunWatch& watch) {
        RunProgress progress{.all = numbers_.size()};
        bool goesOn = true;
        while (goesOn && progress.done < numbers_.size()) {
            progress.bytes += send(progress.done++);
            if (group_.isFull()) giveNames();
            progress.percent = int(progress.done * 100 / numbers_.size());
            goesOn = watch.progress(progress);
        }
        giveNames();
        report_.close(numbers_, progress.done);
        return std::move(report_);
    }

  private:
    struct Waiting {
        QString path;
        qsizetype place;
    };

    /// Returns the bytes of the picture that was written.
    qint64 send(qsizetype place) {
        try {
            const QString& number = numbers_[place];
            Recordset record = openChosen(album_, {table_, number, seen_[number]++});
            if (record.Eof()) {
                fails(place, recordVanished);
                return 0;
            }
            QString path = joinedPath(folder_, defaultPictureName(record.Fields(u"编号"_s).Value(),
                                                                  record.Fields(u"序号"_s).Value().toInteger()));
            const qint64 bytes = record.Fields(pictureColumn).FieldSize();
            note(group_.write(record, path), path, place);
            return bytes;
        } catch (const std::exception& failure) {
            fails(place, causeOf(failure));
            return 0;
        }
    }

    void note(Exported outcome, const QString& path, qsizetype place) {
        switch (outcome) {
            case Exported::written:
                waiting_.push_back({path, place});
                break;
            case Exported::alreadyThere:
                succeeds({path, place});
                break;
            case Exported::nameTaken:
                fails(place, nameIsTaken, path);
                break;
            case Exported::noPicture:
                fails(place, noPicture);
                break;
        }
    }

    void giveNames() {
        const std::vector<Waiting> group = std::exchange(waiting_, {});
        try {
            const std::vector<PictureGroup::Failed> failed = group_.giveNames();
            for (const Waiting& picture : group) {
                const auto found = std::ranges::find(failed, picture.path, &PictureGroup::Failed::name);
                if (found == failed.end())
                    succeeds(picture);
                else
                    fails(picture.place, found->reason.isEmpty() ? nameIsTaken : found->reason, picture.path);
            }
        } catch (const std::exception& failure) {
            for (const Waiting& picture : group) fails(picture.place, causeOf(failure));
        }
    }

    void succeeds(const Waiting& picture) {
        report_.items.push_back({picture.place, numbers_[picture.place], Fate::taken, {}, nameIn(picture.path)});
    }
    void fails(qsizetype place, const QString& reason, const QString& path = {}) {
        report_.items.push_back({place, numbers_[place], Fate::failed, reason, nameIn(path)});
    }
    static QString nameIn(const QString& path) { return QFileInfo(path).fileName(); }

    const Database& album_;
    const QString& table_;
    const QStringList& numbers_;
    const QString& folder_;
    PictureGroup group_;
    std::vector<Waiting> waiting_;  ///< The files that wait for their names.
    QHash<QString, int> seen_;
    RunReport report_;
};

/// The file has its name; what is left to do may fail without a loss.
SentPicture finishFile(Recordset& record, const FileTarget& target, bool move) {
    try {
        syncFolderToDisk(target.folder);
        if (move) record.Delete();
        return {};
    } catch (const std::exception& failure) {
        const QString missing = move ? u"记录没有从图册删除（%1）"_s : u"%1"_s;
        return {SentPicture::failed, u"文件“%1”已写成，但"_s.arg(target.name) + missing.arg(causeOf(failure))};
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
    return FileTransfer(album, table, numbers, folder).run(watch);
}
