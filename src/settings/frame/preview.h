#pragma once

#include "settings/frame/frame_part.h"

#include <QObject>
#include <functional>

class QPushButton;
class QWidget;

/// The buttons cmdCk that open the preview, by their index.
enum PreviewOpener { intakeRecordOpener, intakeFileOpener, recordOpener, transferOpener, buttonOpener };

/// What the preview asks a page on which a new picture can be taken in.
struct PictureTaker {
    /// Whether a record or a selection button is being edited, so that a loaded picture may be stored.
    std::function<bool()> isEditing;
    /// Heading of the panel over the stored picture.
    std::function<QString()> caption;
    /// Whether what is edited is new: it has no picture yet, whichever record is the current one. Not set: it never is.
    std::function<bool()> isNew = {};
    /// Stores a picture file. Not set: the preview stores it in the current record itself.
    std::function<void(const QString& path)> store = {};
};

/// The panel fraCk, by which every page looks at a picture, as the pages see it. One of the buttons cmdCk opens it: for
/// the current record, for a file, or for a selection button. On some pages it also takes a new picture in.
class Preview : public QObject, public FramePart {
    Q_OBJECT

  public:
    /// Makes `cmdCk(opener)` on a parent and lets it open the panel.
    virtual QPushButton* makeOpener(PreviewOpener opener, QWidget* parent) = 0;
    /// The same for a page that takes pictures in.
    virtual QPushButton* makeOpener(PreviewOpener opener, QWidget* parent, PictureTaker taker) = 0;
    /// Whether the button may open the panel; the one that has opened it stays disabled until it is closed.
    virtual void allowOpening(PreviewOpener opener, bool on) = 0;

    virtual bool isOpen() const = 0;
    virtual QWidget* panel() const = 0;
    virtual void close() = 0;

    /// The current record is another one: the open panel shows its picture, not a loaded one.
    virtual void showRecord() = 0;
    /// The same, with the heading of the record and nothing to be stored.
    virtual void followRecord() = 0;

    /// File that was loaded and is to be stored; empty when there is none.
    virtual QString loadedFile() const = 0;
    virtual void forgetFile() = 0;
    virtual void allowStoring(bool on) = 0;  ///< cmdAq

  Q_SIGNALS:
    /// A picture has been stored in the current record; the records are about to be read anew, and have been: the same
    /// one is the current one again.
    void storing();
    void stored();
};
