#pragma once

#include "catalogue/fingerprint.h"
#include "platform/database/records/field.h"
#include "platform/picture/picture.h"
#include "platform/picture/picture_bytes.h"

#include <QDateTime>
#include <QFile>
#include <functional>
#include <memory>

/// A picture file that is about to be stored. It is opened once, for all that is asked of it and for its storing. The
/// bytes of a file up to 16 MB are read at once; a larger one stays open and is read piece by piece. Whatever fails
/// throws an `Error` that names the file; so does a file that changes while it is read. One thread at a time may use
/// it.
class PictureInHand {
  public:
    /// Throws when there is no file, or one that cannot be read: a folder, a pipe or a device is none.
    explicit PictureInHand(const QString& path);

    const QString& path() const { return path_; }
    qint64 length() const { return length_; }       ///< In bytes.
    QDateTime changed() const { return changed_; }  ///< Time of the last change, local time, whole seconds.
    bool isJpeg() const { return isJpeg_; }         ///< By its first bytes, whatever its name says.
    qint64 bytesHeld() const { return value_.size(); }
    /// Whether the file at the path has the same length and time still.
    bool isUnchanged() const;

    /// The picture decoded for a target as `LoadPicture` does it.
    Picture load(QSize target = {}, Colours colours = Colours::ofScreen);
    // The others decode nothing -----------------------------------------------------------------------------------

    /// Of the upright picture. Throws what `load` throws of the headers.
    QSize pixels();
    PictureBytes wholeness();
    const Fingerprint& fingerprint();
    /// Lends the bytes, from the first one on.
    void use(const std::function<void(QIODevice&)>& reader);

    /// Stores the bytes in a long-binary column of the record under `Edit` or `AddNew`, with the tail that every stored
    /// picture has. A large file is read while the record is stored, which fails when it has changed since its
    /// fingerprint was made; nothing else can be asked of it any more. Returns the file's length; 0, and nothing is
    /// stored, for an empty one.
    qint64 storeIn(Field field);
    /// Gives up the bytes, and with them all but the path, length and time.
    void forgetBytes();

  private:
    template <typename Use>
    auto read(const Use& use);

    QString path_;
    std::unique_ptr<QFile> file_;  ///< Of a large file.
    QByteArray value_;             ///< Of any other: its bytes and the tail.
    qint64 length_ = 0;
    QDateTime changed_;
    bool isJpeg_ = false;
    Fingerprint print_;  ///< Without a `sha256` until it is asked for.
};
