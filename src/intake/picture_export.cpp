#include "intake/picture_export.h"

#include "catalogue/picture_field.h"
#include "intake/transfer_rules.h"
#include "platform/base/error.h"
#include "platform/base/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr std::size_t groupFiles = 64;
constexpr qint64 groupBytes = 48 << 20;
}  // namespace

/// A file beside the place that a picture is to have. It goes with the object unless it was renamed.
class ScratchFile {
  public:
    explicit ScratchFile(const QString& folder) : folder_(folder) {
        // One that stands there already may be somebody's own.
        for (int i = 0; QFileInfo::exists(nameOf(i)); ++i) file_.setFileName(nameOf(i + 1));
        if (file_.fileName().isEmpty()) file_.setFileName(nameOf(0));
        if (!file_.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) fail();
    }
    ~ScratchFile() {
        if (!file_.fileName().isEmpty()) file_.remove();
    }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

    void write(const QByteArray& bytes) {
        if (file_.write(bytes) != bytes.size()) fail();
    }

    void sync() { syncToDisk(file_); }
    void close() { file_.close(); }

    /// False when the name is taken.
    bool rename(const QString& name) {
        file_.close();
        if (!renameNew(file_.fileName(), name)) return false;
        file_.setFileName({});
        return true;
    }

  private:
    QString nameOf(int attempt) const {
        return joinedPath(folder_, attempt == 0 ? u"ls.tmp"_s : u"ls%1.tmp"_s.arg(attempt));
    }
    [[noreturn]] void fail() {
        throw Error(u"文件夹“%1”不能写入（%2）"_s.arg(QDir::toNativeSeparators(folder_), writeFailure(file_)));
    }

    QString folder_;
    QFile file_;
};

namespace {

bool isTaken(const QString& name) {
    return QFileInfo::exists(name) || QFileInfo(name).isSymLink();
}

void copyBytes(const Field& picture, qint64 size, ScratchFile& file) {
    for (qint64 offset = 0; offset < size; offset += pictureChunk) file.write(picture.GetChunk(offset, pictureChunk));
}

}  // namespace

// Writes the picture of the current record to a file.
Exported dctb(Recordset& recordset, QString& name) {
    name = withJpgEnding(name);
    const Field picture = recordset.Fields(u"图片"_s);
    const qint64 size = picture.FieldSize();
    if (size == 0) return Exported::noPicture;
    if (isTaken(name)) return Exported::nameTaken;
    ScratchFile scratch(QFileInfo(name).path());
    copyBytes(picture, size, scratch);
    scratch.sync();
    return scratch.rename(name) ? Exported::written : Exported::nameTaken;
}

PictureGroup::PictureGroup(const QString& folder) : folder_(folder) {}
PictureGroup::~PictureGroup() = default;

Exported PictureGroup::write(Recordset& recordset, QString& name) {
    name = withJpgEnding(name);
    const Field picture = recordset.Fields(u"图片"_s);
    const qint64 size = picture.FieldSize();
    if (size == 0) return Exported::noPicture;
    if (files_.contains(name) || isTaken(name)) return Exported::nameTaken;
    auto scratch = std::make_unique<ScratchFile>(folder_);
    copyBytes(picture, size, *scratch);
    scratch->close();
    files_.emplace(name, std::move(scratch));
    bytes_ += size;
    return Exported::written;
}

bool PictureGroup::isFull() const {
    return files_.size() >= groupFiles || bytes_ >= groupBytes;
}

std::vector<PictureGroup::Unnamed> PictureGroup::giveNames() {
    const auto files = std::exchange(files_, {});
    bytes_ = 0;
    if (files.empty()) return {};
    syncFileSystemOf(folder_);
    std::vector<Unnamed> unnamed;
    for (const auto& [name, file] : files) {
        try {
            if (!file->rename(name)) unnamed.push_back({name, {}});
        } catch (const Error& failure) {
            unnamed.push_back({name, failure.text()});
        }
    }
    syncFolderToDisk(folder_);
    return unnamed;
}
