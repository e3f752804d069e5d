#pragma once

#include "platform/database/recordset.h"

#include <QString>
#include <map>
#include <memory>
#include <vector>

/// What became of a picture that was to be written to a file.
enum class Exported {
    written,
    nameTaken,  ///< A file of this name exists; it is as it was.
    noPicture   ///< The record has none; no file was made.
};

/// Writes the column 图片 of the current record to a file, byte for byte as it is stored.
/// `name` is the path; it is given ".jpg" at its end unless it has it. The bytes are gathered in a scratch file beside
/// the place, which is renamed when it is on the disk: nobody ever sees half a picture. Throws `Error` when the file
/// cannot be written; nothing is left behind then.
Exported dctb(Recordset& recordset, QString& name);

class ScratchFile;

/// The same for many pictures of one folder: they get their names together, so that the disk is waited for once.
class PictureGroup {
  public:
    explicit PictureGroup(const QString& folder);
    ~PictureGroup();
    PictureGroup(const PictureGroup&) = delete;
    PictureGroup& operator=(const PictureGroup&) = delete;

    /// `written` says that the file waits for its name.
    Exported write(Recordset& recordset, QString& name);
    bool isFull() const;
    /// A file that did not get its name, and is gone.
    struct Unnamed {
        QString name;
        QString reason;  ///< Empty when somebody else has taken the name meanwhile.
    };
    /// Ends the group. A name that cannot be given costs no other file its own. Throws `Error` when the files may not
    /// be on the disk; they have their names then only if it was the folder that could not be written.
    std::vector<Unnamed> giveNames();

  private:
    QString folder_;
    std::map<QString, std::unique_ptr<ScratchFile>> files_;  ///< By name.
    qint64 bytes_ = 0;
};
