#pragma once

#include <QImage>
#include <deque>

/// A picture that is shown at many sizes. Once it is shown at less than half its size it keeps itself at a half, a
/// quarter and so on, as far as they are wanted. So any part of it costs at most four of its pixels for one that is
/// shown, and the memory that is kept is at most a third of the picture's own. Sizes are pixels.
class ScaledPicture {
  public:
    /// `picture` has the editor's format; a null one clears it.
    void set(const QImage& picture);
    const QImage& whole() const { return whole_; }

    /// A part of the picture stretched to `target`: averaged where it shrinks, interpolated where it grows, and from
    /// twice its size on in blocks, so that its pixels can be told apart. Throws `Error` when there is no memory.
    QImage part(QSize target, const QRect& part);

    /// Memory that is kept beside the picture itself.
    qsizetype bytesBeside() const;

  private:
    const QImage& leastFor(QSize target);

    QImage whole_;
    std::deque<QImage> halves_;  ///< Each half as large as the one before, the first half as large as the picture.
};
