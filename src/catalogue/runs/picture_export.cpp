#include "catalogue/runs/picture_export.h"

#include "catalogue/picture_field.h"
#include "catalogue/runs/picture_names.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/unnamed_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr std::size_t groupFiles = 64;
constexpr qint64 groupBytes = 48 << 20;
const QString complaint = u"“%1”不能写入（%2）"_s;

bool isTaken(const QString& name) {
    return QFileInfo::exists(name) || QFileInfo(name).isSymLink();
}

/// Whether a file holds the bytes of a field. Zeros at the end of either are none: a stored picture has some behind it.
bool holdsPicture(QFile& file, const Field& picture) {
    bool isEmpty = true;
    const qint64 size = std::max(picture.FieldSize(), file.size());
    for (qint64 offset = 0; offset < size; offset += pictureChunk) {
        const auto length = std::min<qint64>(pictureChunk, size - offset);
        const QByteArray stored = picture.GetChunk(offset, length).leftJustified(length, '\0');
        if (stored != file.read(length).leftJustified(length, '\0')) return false;
        isEmpty = isEmpty && stored.count('\0') == length;
    }
    return !isEmpty && file.error() == QFileDevice::NoError;
}

/// Whether the picture is there already, under its own name and on the disk.
bool standsThere(const QString& name, const Field& picture) {
    const QFileInfo there(name);
    if (!there.isFile() || there.isSymLink()) return false;
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || !holdsPicture(file, picture)) return false;
    syncToDisk(file);
    return true;
}

void copyBytes(const Field& picture, qint64 size, UnnamedFile& file) {
    for (qint64 offset = 0; offset < size; offset += pictureChunk) file.write(picture.GetChunk(offset, pictureChunk));
}

}  // namespace

// Writes the picture of the current record to a file.
Exported dctb(Recordset& recordset, QString& name) {
    name = withJpgEnding(name);
    const Field picture = recordset.Fields(u"图片"_s);
    const qint64 size = picture.FieldSize();
    if (size == 0) return Exported::noPicture;
    if (isTaken(name)) return standsThere(name, picture) ? Exported::alreadyThere : Exported::nameTaken;
    UnnamedFile file(name, complaint);
    copyBytes(picture, size, file);
    file.sync();
    return file.takeNewName() ? Exported::written : Exported::nameTaken;
}

PictureGroup::PictureGroup(const QString& folder) : folder_(folder) {}
PictureGroup::~PictureGroup() = default;

Exported PictureGroup::write(Recordset& recordset, QString& name) {
    name = withJpgEnding(name);
    const Field picture = recordset.Fields(u"图片"_s);
    const qint64 size = picture.FieldSize();
    if (size == 0) return Exported::noPicture;
    nameEarly(name);
    if (files_.contains(name) || isTaken(name))
        return standsThere(name, picture) ? Exported::alreadyThere : Exported::nameTaken;
    try {
        auto file = std::make_unique<UnnamedFile>(name, complaint);
        copyBytes(picture, size, *file);
        files_.emplace(name, std::move(file));
    } catch (const Error& failure) {
        // What keeps one file from being written is said once for all of them.
        throw Error(QString(failure.text()).replace(QDir::toNativeSeparators(name), QDir::toNativeSeparators(folder_)));
    }
    bytes_ += size;
    return Exported::written;
}

/// Two pictures may be meant to have one name: the second is compared with what the first has made of it.
void PictureGroup::nameEarly(const QString& name) {
    const auto waiting = files_.find(name);
    if (waiting == files_.end()) return;
    waiting->second->sync();
    if (!waiting->second->takeNewName()) return;
    syncFolderToDisk(folder_);
    files_.erase(waiting);
}

bool PictureGroup::isFull() const {
    return files_.size() >= groupFiles || bytes_ >= groupBytes;
}

std::vector<PictureGroup::Failed> PictureGroup::giveNames() {
    const auto files = std::exchange(files_, {});
    bytes_ = 0;
    if (files.empty()) return {};
    syncFileSystemOf(folder_);
    std::vector<Failed> failed;
    QStringList named;
    for (const auto& [name, file] : files) {
        try {
            if (file->takeNewName())
                named << name;
            else
                failed.push_back({name, {}});
        } catch (const Error& failure) {
            failed.push_back({name, failure.text()});
        }
    }
    try {
        syncFolderToDisk(folder_);
    } catch (const Error& failure) {
        for (const QString& name : named) failed.push_back({name, u"文件已写成，但"_s + failure.text()});
    }
    return failed;
}
