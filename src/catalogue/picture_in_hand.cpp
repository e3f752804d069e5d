#include "catalogue/picture_in_hand.h"

#include "catalogue/picture_field.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/odd_names.h"
#include "platform/base/system_reason.h"
#include "platform/picture/picture_size.h"
#include "platform/picture/refusal.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 mostInMemory = 16 << 20;

std::unique_ptr<QFile> opened(const QString& path) {
    // Opening a pipe would wait for ever.
    if (!isStandIn(path) && !fileExists(path)) throw Error(u"文件“%1”不存在。"_s.arg(path));
    auto file = std::make_unique<QFile>();
    if (!openForReading(*file, path, QIODevice::Unbuffered))
        refusePicture(QDir::toNativeSeparators(path), u"文件不能读取"_s);
    return file;
}

void requireSame(const QString& path, bool isSame) {
    if (!isSame) throw Error(u"文件“%1”在读取期间被改动，请重试。"_s.arg(path));
}

void readAll(QFile& file, char* to, qint64 count) {
    const qint64 had = file.read(to, count);
    if (had < 0) throw Error(u"文件“%1”没有读完：%2。"_s.arg(file.fileName(), systemReason(file.errorString())));
    requireSame(file.fileName(), had == count);
}

/// The bytes of a file, and zeros behind them.
class FileWithTail : public ValueSource {
  public:
    /// `print` is that of the file, where it is known.
    FileWithTail(std::unique_ptr<QFile> file, qint64 length, Fingerprint print)
        : file_(std::move(file)), length_(length), left_(length), print_(std::move(print)) {
        file_->seek(0);
    }

    qint64 size() const override { return storedLength(length_); }

    void read(char* to, qint64 count) override {
        const qint64 wanted = std::min(count, left_);
        if (wanted > 0) readFile(to, wanted);
        std::fill(to + wanted, to + count, '\0');
    }

  private:
    void readFile(char* to, qint64 count) {
        readAll(*file_, to, count);
        if (!print_.sha256.isEmpty()) maker_.add({to, count});
        left_ -= count;
        if (left_ > 0) return;
        requireSame(file_->fileName(), file_->size() == length_);
        if (!print_.sha256.isEmpty()) requireSame(file_->fileName(), maker_.finish() == print_);
    }

    std::unique_ptr<QFile> file_;
    qint64 length_;
    qint64 left_;
    Fingerprint print_;
    FingerprintMaker maker_;
};

QDateTime wholeSeconds(const QDateTime& time) {
    return QDateTime::fromSecsSinceEpoch(time.toSecsSinceEpoch());
}

}  // namespace

/// What `use` makes of the bytes, from the first one on.
template <typename Use>
auto PictureInHand::read(const Use& use) {
    if (file_) {
        file_->seek(0);
        return use(*file_);
    }
    QBuffer buffer;
    buffer.setData(QByteArray::fromRawData(value_.constData(), length_));
    buffer.open(QIODevice::ReadOnly);
    return use(static_cast<QIODevice&>(buffer));
}

PictureInHand::PictureInHand(const QString& path) : path_(path), file_(opened(path)), length_(file_->size()) {
    changed_ = wholeSeconds(file_->fileTime(QFileDevice::FileModificationTime));
    if (storedLength(length_) <= mostInMemory) {
        value_.resize(storedLength(length_));
        std::fill(value_.begin() + length_, value_.end(), '\0');
        readAll(*file_, value_.data(), length_);
        requireSame(path_, file_->size() == length_);
        file_.reset();
    }
    isJpeg_ = read([](QIODevice& bytes) { return bytes.peek(2) == "\xff\xd8"; });
}

bool PictureInHand::isUnchanged() const {
    const QFileInfo now(path_);
    return now.size() == length_ && wholeSeconds(now.lastModified()) == changed_;
}

Picture PictureInHand::load(QSize target, Colours colours) {
    return read([&](QIODevice& bytes) { return LoadPicture(bytes, QDir::toNativeSeparators(path_), target, colours); });
}

QSize PictureInHand::pixels() {
    return read([&](QIODevice& bytes) { return pictureSize(bytes, QDir::toNativeSeparators(path_)); });
}

PictureBytes PictureInHand::wholeness() {
    if (!file_) return pictureBytes(QByteArray::fromRawData(value_.constData(), length_));
    return read([&](QIODevice& bytes) { return pictureBytes(bytes, QDir::toNativeSeparators(path_)); });
}

const Fingerprint& PictureInHand::fingerprint() {
    if (print_.sha256.isEmpty())
        print_ = file_ ? read([](QIODevice& bytes) { return fingerprintOf(bytes); }) : fingerprintOf(value_);
    return print_;
}

void PictureInHand::use(const std::function<void(QIODevice&)>& reader) {
    read([&](QIODevice& bytes) { reader(bytes); });
}

qint64 PictureInHand::storeIn(Field field) {
    if (length_ == 0) return 0;
    if (file_)
        field.TakeFrom(std::make_unique<FileWithTail>(std::move(file_), length_, print_));
    else
        field.SetValue(FieldValue(value_));
    return length_;
}

void PictureInHand::forgetBytes() {
    value_.clear();
    file_.reset();
}
