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
const QString complaint = u"“%1”不能写入（%2）"_s;

bool isTaken(const QString& name) {
    return QFileInfo::exists(name) || QFileInfo(name).isSymLink();
}

/// Whether a file holds these bytes. Zeros at the end of either are none: a stored picture has some behind it.
bool holdsPicture(QFile& file, const QByteArray& picture) {
    bool isEmpty = true;
    const qint64 size = std::max(qint64(picture.size()), file.size());
    for (qint64 offset = 0; offset < size; offset += pictureChunk) {
        const auto length = std::min<qint64>(pictureChunk, size - offset);
        const QByteArray wanted = picture.mid(offset, length).leftJustified(length, '\0');
        if (wanted != file.read(length).leftJustified(length, '\0')) return false;
        isEmpty = isEmpty && wanted.count('\0') == length;
    }
    return !isEmpty && file.error() == QFileDevice::NoError;
}

/// Whether the picture is there already, under its own name and on the disk.
bool standsThere(const QString& name, const QByteArray& picture) {
    const QFileInfo there(name);
    if (!there.isFile() || there.isSymLink()) return false;
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || !holdsPicture(file, picture)) return false;
    syncToDisk(file);
    return true;
}

std::unique_ptr<UnnamedFile> fileOf(const QByteArray& picture, const QString& name) {
    auto file = std::make_unique<UnnamedFile>(name, complaint);
    file->write(picture);
    return file;
}

/// Of many pictures this part is asked of the disk when they are read back: a disk that lost one lost it whole.
constexpr qint64 partOfMany = 4;

/// The bytes are on the disk.
bool nameVerified(UnnamedFile& file, const QByteArray& picture, qint64 ofDisk) {
    file.compare(picture, ofDisk);
    return file.takeNewName();
}

}  // namespace

// Writes the picture of the current record to a file.
Exported dctb(Recordset& recordset, QString& name) {
    name = withJpgEnding(name);
    const FieldValue value = recordset.Fields(u"图片"_s).Value();
    const QByteArray picture = value.isNull() ? QByteArray() : value.toBytes();
    if (picture.isEmpty()) return Exported::noPicture;
    if (isTaken(name)) return standsThere(name, picture) ? Exported::alreadyThere : Exported::nameTaken;
    const auto file = fileOf(picture, name);
    file->sync();
    return nameVerified(*file, picture, picture.size()) ? Exported::written : Exported::nameTaken;
}

PictureGroup::PictureGroup(const QString& folder) : folder_(folder) {}
PictureGroup::~PictureGroup() = default;
PictureGroup::PictureGroup(PictureGroup&&) noexcept = default;
PictureGroup& PictureGroup::operator=(PictureGroup&&) noexcept = default;

Exported PictureGroup::write(const QByteArray& picture, QString& name) {
    name = withJpgEnding(name);
    if (picture.isEmpty()) return Exported::noPicture;
    nameEarly(name);
    if (isTaken(name)) return standsThere(name, picture) ? Exported::alreadyThere : Exported::nameTaken;
    try {
        auto file = fileOf(picture, name);
        file->beginSync();
        files_[name] = {std::move(file), picture};
        isSynced_ = false;
    } catch (const Error& failure) {
        // What keeps one file from being written is said once for all of them.
        throw Error(QString(failure.text()).replace(QDir::toNativeSeparators(name), QDir::toNativeSeparators(folder_)));
    }
    return Exported::written;
}

/// Two pictures may be meant to have one name: the second is compared with what the first has made of it.
void PictureGroup::nameEarly(const QString& name) {
    const auto waiting = files_.find(name);
    if (waiting == files_.end()) return;
    waiting->second.file->sync();
    const QByteArray& picture = waiting->second.picture;
    if (!nameVerified(*waiting->second.file, picture, picture.size())) return;
    syncFolderToDisk(folder_);
    files_.erase(waiting);
}

void PictureGroup::sync() {
    if (!files_.empty()) syncFileSystemOf(folder_);
    isSynced_ = true;
}

std::vector<PictureGroup::Failed> PictureGroup::giveNames() {
    if (!isSynced_) sync();
    const auto files = std::exchange(files_, {});
    if (files.empty()) return {};
    std::vector<Failed> failed;
    QStringList named;
    for (const auto& [name, waiting] : files) {
        try {
            if (nameVerified(*waiting.file, waiting.picture, waiting.picture.size() / partOfMany))
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

void PictureGroup::giveUp() {
    files_.clear();
}
