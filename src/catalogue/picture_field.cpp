#include "catalogue/picture_field.h"

#include "platform/base/error.h"
#include "platform/database/records/field_device.h"

using namespace Qt::Literals::StringLiterals;

Picture loadPictureField(Recordset& recordset, const QString& fieldName, const QString& name, QSize target,
                         Colours colours) {
    FieldDevice device(recordset.Fields(fieldName));
    return LoadPicture(device, name, target, colours);
}

std::optional<Picture> pictureFromField(Recordset& recordset, const QString& fieldName, QSize target, Colours colours) {
    std::optional<Picture> picture;
    attempt([&] {
        if (recordset.Fields(fieldName).FieldSize() == 0) return;
        picture = loadPictureField(recordset, fieldName, fieldName, target, colours);
    });
    return picture;
}

qint64 storedLength(qint64 length) {
    return length + length / pictureChunk + 1;
}

qint64 storePictureBytes(Field field, const QByteArray& bytes) {
    if (bytes.isEmpty()) return 0;
    field.SetValue(FieldValue(bytes + QByteArray(storedLength(bytes.size()) - bytes.size(), '\0')));
    return bytes.size();
}
