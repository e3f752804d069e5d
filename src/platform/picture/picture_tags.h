#pragma once

#include "platform/picture/exif.h"

#include <QByteArray>
#include <memory>

/// What cameras and programs have written about a photograph beside its pixels: EXIF, XMP, IPTC and the comment. A JPEG
/// that is encoded anew has lost all of it.
class PictureTags {
  public:
    PictureTags() = default;
    /// Those of a JPEG; none when it has none, or some that cannot be read, and for other kinds of files.
    explicit PictureTags(const QByteArray& jpeg);

    bool isEmpty() const { return blocks_ == nullptr; }
    /// There are tags, but nobody can read them.
    bool isUnreadable() const { return isUnreadable_; }
    /// How the photograph was stored.
    Orientation orientation() const;

    /// A JPEG that was made of the photograph and is stored upright, whatever it says itself, with these tags in the
    /// place of its own. They say that it is upright and how large it is, and hold a small picture of it where they
    /// held one of the photograph. Throws `Error` when the file has no room for them.
    QByteArray in(const QByteArray& jpeg) const;

  private:
    struct Blocks;
    static QByteArray written(const QByteArray& jpeg, const Blocks& blocks);
    static bool hasAll(const QByteArray& jpeg, const Blocks& blocks);

    std::shared_ptr<const Blocks> blocks_;
    bool isUnreadable_ = false;
};
