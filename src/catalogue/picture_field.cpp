#include "catalogue/picture_field.h"

#include "platform/base/error.h"
#include "platform/database/field_device.h"

#include <QFile>

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

qint64 storePictureFile(Field field, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw Error(u"文件“%1”不能读取：%2"_s.arg(path, file.errorString()));
    const qint64 length = file.size();
    if (length == 0) return 0;

    qint64 taken = 0;
    const auto append = [&](qint64 size) {
        QByteArray chunk(size, '\0');
        const qint64 read = file.read(chunk.data(), size);
        if (read < 0 || (read < size && taken + read < length))
            throw Error(u"文件“%1”没有读完：%2"_s.arg(path, file.errorString()));
        taken += read;
        field.AppendChunk(chunk);
    };
    append(length % pictureChunk + 1);
    for (qint64 block = 0; block < length / pictureChunk; ++block) append(pictureChunk + 1);
    return length;
}
