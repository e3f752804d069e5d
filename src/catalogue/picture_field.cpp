#include "catalogue/picture_field.h"

#include "platform/base/error.h"
#include "platform/base/odd_names.h"
#include "platform/base/system_reason.h"
#include "platform/database/records/field_device.h"

#include <QFile>
#include <algorithm>
#include <memory>

using namespace Qt::Literals::StringLiterals;

Picture loadPictureField(Recordset& recordset, const QString& fieldName, const QString& name, QSize target) {
    FieldDevice device(recordset.Fields(fieldName));
    return LoadPicture(device, name, target);
}

std::optional<Picture> pictureFromField(Recordset& recordset, const QString& fieldName, QSize target) {
    std::optional<Picture> picture;
    attempt([&] {
        if (recordset.Fields(fieldName).FieldSize() == 0) return;
        picture = loadPictureField(recordset, fieldName, fieldName, target);
    });
    return picture;
}

namespace {

/// A value up to this size is read whole and stored at once.
constexpr qint64 mostInMemory = 16 << 20;

/// The value is longer than the picture: the remainder and every full chunk bring a byte more.
qint64 storedLength(qint64 length) {
    return length + length / pictureChunk + 1;
}

/// The bytes of a file, and zeros behind them.
class FileWithTail : public ValueSource {
  public:
    explicit FileWithTail(const QString& path) {
        if (!openForReading(file_, path, QIODevice::Unbuffered))
            throw Error(u"文件“%1”不能读取：%2。"_s.arg(path, systemReason(file_.errorString())));
        length_ = left_ = file_.size();
    }

    qint64 length() const { return length_; }
    qint64 size() const override { return storedLength(length_); }

    void read(char* to, qint64 count) override {
        const qint64 wanted = std::min(count, left_);
        if (file_.read(to, wanted) != wanted)
            throw Error(u"文件“%1”没有读完：%2。"_s.arg(file_.fileName(), systemReason(file_.errorString())));
        left_ -= wanted;
        std::fill(to + wanted, to + count, '\0');
    }

  private:
    QFile file_;
    qint64 length_ = 0;
    qint64 left_ = 0;
};

}  // namespace

qint64 storePictureFile(Field field, const QString& path) {
    auto file = std::make_unique<FileWithTail>(path);
    const qint64 length = file->length();
    if (length == 0) return 0;
    if (file->size() > mostInMemory) {
        field.TakeFrom(std::move(file));
        return length;
    }
    QByteArray value(file->size(), Qt::Uninitialized);
    file->read(value.data(), value.size());
    field.SetValue(FieldValue(value));
    return length;
}

qint64 storePictureBytes(Field field, const QByteArray& bytes) {
    if (bytes.isEmpty()) return 0;
    field.SetValue(FieldValue(bytes + QByteArray(storedLength(bytes.size()) - bytes.size(), '\0')));
    return bytes.size();
}
