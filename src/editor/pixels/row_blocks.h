#pragma once

#include <QImage>
#include <functional>

/// What the operations on whole pictures share. All of them read one picture and fill another one row by row.

/// An uninitialised picture in the editor's one format, RGB32. Throws `Error` when a side is not from 1 to
/// `longestPictureSide`, or when there is no memory for it.
QImage blankPicture(QSize pixels);

/// The picture in that format; its pixels are shared when it has it already.
QImage inEditorFormat(const QImage& picture);

/// Rows of pixels of a picture that nobody else holds. Unlike `scanLine` the calls may come from several threads.
class PixelRows {
  public:
    explicit PixelRows(QImage& picture)
        : first_(reinterpret_cast<QRgb*>(picture.bits())), stride_(picture.bytesPerLine() / qsizetype(sizeof(QRgb))) {}

    QRgb* operator[](int y) const { return first_ + y * stride_; }

  private:
    QRgb* first_;
    qsizetype stride_;
};

class ConstPixelRows {
  public:
    explicit ConstPixelRows(const QImage& picture)
        : first_(reinterpret_cast<const QRgb*>(picture.constBits())),
          stride_(picture.bytesPerLine() / qsizetype(sizeof(QRgb))) {}

    const QRgb* operator[](int y) const { return first_ + y * stride_; }
    qsizetype stride() const { return stride_; }

  private:
    const QRgb* first_;
    qsizetype stride_;
};

/// Calls `work(first, end)` for blocks of the rows of a picture of that size, on all processors at once when it is
/// worth while. Returns when all are done; throws when one of them failed. `progress` hears the percentage of the
/// blocks done, on the calling thread.
void forRowBlocks(QSize pixels, const std::function<void(int first, int end)>& work,
                  const std::function<void(int percent)>& progress = {});
