#pragma once

#include "editor/document/edit_state.h"
#include "editor/document/picture_source.h"
#include "editor/document/undo_steps.h"
#include "platform/picture/picture.h"

#include <QObject>

/// The picture that the editor has open: its pixels, where they came from, what was done to them, and the steps back.
/// Its signals say what has changed. Of the catalogue it changes the undo steps alone. Lengths are twips.
class Document : public QObject {
    Q_OBJECT

  public:
    explicit Document(QObject* parent = nullptr) : QObject(parent) {}

    bool isOpen() const { return state_ != EditState::nothing; }
    const PictureSource& source() const { return source_; }
    bool isFromAlbum() const { return std::holds_alternative<AlbumRecord>(source_); }
    /// The picture is kept nowhere but here: leaving it would lose work.
    bool isUnsaved() const { return isOpen() && stepCount_ != keptStep_; }
    /// Where the picture came from, and the words of the operations.
    const QString& caption() const { return caption_; }

    EditState state() const { return state_; }
    /// The words of the operations since the load.
    const QString& trail() const { return tag_; }
    /// Every operation was done to all of the picture: none to its thumbnail, and none from the corner of a cut that
    /// was taken back. Never so of a picture that is resumed.
    bool isWhole() const { return isWhole_; }
    /// Of the state; hints are found by it.
    QString code() const { return codeOf(state_, operation_); }
    /// The operation of the states `asking` and `done`; null in all others.
    const Operation* operation() const { return operation_; }

    /// What the colours of all its pictures mean: an ICC profile, empty where they are those of the screen.
    const QByteArray& profile() const { return profile_; }
    /// The picture on the screen, and its size: in pixels, rounded, the same.
    const QImage& shown() const { return shown_; }
    QSize size() const { return size_; }
    /// The part that the person has drawn.
    const QRect& selection() const { return selection_; }
    /// The thumbnail of a button picture is on the screen in the place of the photograph.
    bool showsThumbnail() const { return !photograph_.isNull(); }
    /// The picture that is worked on, also while its thumbnail is on the screen.
    const QImage& photograph() const { return showsThumbnail() ? photograph_ : shown_; }
    /// What the last operation has painted: after an undo, what was taken back. The photograph before any operation.
    const QImage& lastPaint() const { return lastPaint_.isNull() ? photograph() : lastPaint_; }
    /// An earlier step than the last paint is on the screen.
    bool isTakenBack() const { return isTakenBack_ && !lastPaint_.isNull(); }

    /// Begins a session with a picture. The hints of these functions are those on the screen.
    void open(const PictureSource& source, const Picture& picture, const QString& hint);
    /// Goes on with the steps that are in the catalogue, at the newest of them; returns its hint. Nothing, and nothing
    /// is open, where none of them can be read.
    std::optional<QString> resume(const PictureSource& source);
    /// The picture is made of a step, which is coarser than the picture that was loaded.
    bool isResumed() const { return isResumed_; }
    void close();

    void setState(EditState state);
    /// The dialog of an operation was opened.
    void ask(const Operation& operation);
    /// Carries an operation out with what was typed. Throws what it throws.
    void carryOut(const Operation& operation, const QString& entry = {}, const Progress& progress = {});
    void select(const QRect& part) { selection_ = part; }
    /// Shows a thumbnail; operations are done to it from now on.
    void showThumbnail(const QImage& thumbnail);

    /// The picture is its source again, as after loading.
    void settle();
    /// The picture is kept elsewhere, or nobody wants it.
    void keep() { keptStep_ = stepCount_; }

    /// Records what is on the screen as a step.
    void record(const QString& hint, double parameter);
    /// A step back, or the end of a dialog, is what the person has asked for.
    void startTakingBack() { isTakingBack_ = true; }
    /// Takes the newest step back, and tells the hint of the one that is on the screen then. Nothing when there is
    /// none: the picture stays, or was closed as its load was taken back.
    std::optional<QString> takeBack();
    /// Removes the steps from the catalogue.
    void clearSteps();
    /// The record that the picture is from holds it under another id now.
    void setRecordPicture(qint64 id);
    /// The file that the picture is from was written anew.
    void setFileLength(qint64 bytes);

  Q_SIGNALS:
    void opened();
    void closed();
    /// Another picture is on the screen; not sent for a thumbnail.
    void pictureChanged();
    void thumbnailShown();
    void lastPaintDropped();  ///< Nobody may hold on to it.
    void captionChanged(const QString& caption);
    /// A step could not be recorded; sent once for a picture.
    void stepLost(const QString& reason);

  private:
    void begin(const PictureSource& source, const QImage& picture, const QByteArray& profile, QSize size);
    UndoSteps::Step nextStep(const QString& hint, double parameter);
    void setCaption(const QString& words);
    void dropLastPaint();
    void keepSourceAnew();

    PictureSource source_;
    EditState state_ = EditState::nothing;
    const Operation* operation_ = nullptr;
    QString caption_;
    QString tag_;  ///< Words of the operations since loading, one after the other.

    QByteArray profile_;
    QImage shown_;
    QImage lastPaint_;
    QImage photograph_;  ///< While its thumbnail shows.
    QSize size_;
    QPoint origin_;  ///< Where the next flip reads its source: 0, 0 after load and scale, else the last crop's corner.
    QRect selection_;
    bool isWhole_ = true;

    UndoSteps steps_;
    int stepCount_ = 0;  ///< Number of the newest step.
    int keptStep_ = 0;   ///< The step that is kept elsewhere too: loaded, saved or given up. -1 when it is gone.
    bool isSourceKept_ = false;  ///< With the steps, in the catalogue.
    bool isResumed_ = false;
    bool isTakenBack_ = false;
    bool isTakingBack_ = false;  ///< Nothing was done since the person asked for a step back.
};

/// Twips of a picture's length: HiMetric / 1.7638, rounded. On a side above 10,000 pixels that would be one pixel too
/// many; there the twips of the pixels are taken.
int pictureTwips(int hiMetric, int pixels);
