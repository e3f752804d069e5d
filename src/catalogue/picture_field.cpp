#include "catalogue/picture_field.h"

#include "platform/base/error.h"
#include "platform/base/odd_names.h"
#include "platform/base/system_reason.h"
#include "platform/database/field_device.h"

#include <QFile>
#include <algorithm>
#include <functional>

using namespace Qt::Literals::StringLiterals;

std::optional<Picture> pictureFromField(Recordset& recordset, const QString& fieldName, QSize target) {
    std::optional<Picture> picture;
    attempt([&] {
        const Field field = recordset.Fields(fieldName);
        if (field.FieldSize() == 0) return;
        FieldDevice device(field);
        picture = LoadPicture(device, fieldName, target);
    });
    return picture;
}

namespace {

/// `read` fills a buffer, or as much of it as there are bytes left.
qint64 storeInChunks(Field& field, qint64 length, const std::function<void(char*, qint64)>& read) {
    if (length == 0) return 0;
    const auto append = [&](qint64 size) {
        QByteArray chunk(size, '\0');
        read(chunk.data(), size);
        field.AppendChunk(chunk);
    };
    append(length % pictureChunk + 1);
    for (qint64 block = 0; block < length / pictureChunk; ++block) append(pictureChunk + 1);
    return length;
}

}  // namespace

qint64 storePictureFile(Field field, const QString& path) {
    QFile file;
    if (!openForReading(file, path))
        throw Error(u"文件“%1”不能读取：%2。"_s.arg(path, systemReason(file.errorString())));
    const qint64 length = file.size();
    qint64 taken = 0;
    return storeInChunks(field, length, [&](char* to, qint64 size) {
        const qint64 read = file.read(to, size);
        if (read < 0 || (read < size && taken + read < length))
            throw Error(u"文件“%1”没有读完：%2。"_s.arg(path, systemReason(file.errorString())));
        taken += read;
    });
}

qint64 storePictureBytes(Field field, const QByteArray& bytes) {
    qint64 taken = 0;
    return storeInChunks(field, bytes.size(), [&](char* to, qint64 size) {
        const qint64 part = std::min(size, bytes.size() - taken);
        std::copy_n(bytes.constData() + taken, part, to);
        taken += part;
    });
}
