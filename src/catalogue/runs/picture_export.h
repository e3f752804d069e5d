#pragma once

#include "platform/database/records/recordset.h"

#include <QString>
#include <map>
#include <memory>
#include <vector>

/// What became of a picture that was to be written to a file.
enum class Exported {
    written,
    alreadyThere,  ///< A file of this name holds the very same picture; it is as it was, and on the disk.
    nameTaken,     ///< A file of this name holds something else; it is as it was.
    noPicture      ///< The record has none; no file was made.
};

/// Writes the column 图片 of the current record to a file, byte for byte as it is stored.
/// `name` is the path; it is given ".jpg" at its end unless it has it. The file gets its name when its bytes are on the
/// disk, and were read back and compared: nobody ever sees half a picture. Throws `Error` when it cannot be written;
/// nothing is left behind then.
Exported dctb(Recordset& recordset, QString& name);

class UnnamedFile;

/// The same for many pictures of one folder: they get their names together, so that the disk is waited for once.
class PictureGroup {
  public:
    explicit PictureGroup(const QString& folder);
    ~PictureGroup();
    PictureGroup(PictureGroup&&) noexcept;
    PictureGroup& operator=(PictureGroup&&) noexcept;

    /// `written` says that the file waits for its name. The group keeps the bytes of the picture until then.
    Exported write(const QByteArray& picture, QString& name);
    /// The bytes of all that was written are on the disk then, or this throws `Error`.
    void sync();
    struct Failed {
        QString name;
        QString reason;  ///< Empty when somebody else has taken the name meanwhile.
    };
    /// Ends the group, and syncs it before if nobody has; only that may throw. A file that is not given back as it was
    /// written, and one that cannot have its name, costs no other file its own; it is gone. When the names may not be
    /// on the disk, all of them come back with that reason, and the files stay.
    std::vector<Failed> giveNames();
    void giveUp();  ///< The files that wait for their names are gone.

  private:
    struct Waiting {
        std::unique_ptr<UnnamedFile> file;
        QByteArray picture;
    };
    void nameEarly(const QString& name);

    QString folder_;
    std::map<QString, Waiting> files_;  ///< By name.
    bool isSynced_ = false;             ///< All of these.
};
