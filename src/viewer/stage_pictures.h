#pragma once

#include "catalogue/picture_loader.h"
#include "viewer/stage.h"

#include <QPointer>
#include <QTimer>
#include <functional>
#include <vector>

/// Brings a stored picture onto a stage, decoded for the size at which the stage shows it: anew a moment after it was
/// zoomed. Then the pictures that are likely to come next are decoded ahead.
class StagePictures : public QObject {
    Q_OBJECT

  public:
    using Requests = std::vector<PictureRequest>;

    /// `upcoming` says what may be shown next, the most likely first.
    explicit StagePictures(std::function<Requests()> upcoming);

    /// Waits a moment for the picture, so that the stage is seldom empty when it returns.
    void bring(Stage& stage, const StoredValue& value);
    /// The stage of the picture was zoomed.
    void sharpen();
    /// Forgets all pictures and decodes no more.
    void leave();

  Q_SIGNALS:
    void failed();  ///< The value cannot be read, or is no picture.

  private:
    bool showKept();
    void show(const Picture& picture);
    void take(const PictureRequest& request, const Picture& picture);
    void decode();
    void keepRoom();

    std::function<Requests()> upcoming_;
    QPointer<Stage> stage_;
    PictureRequest wanted_;  ///< What the stage should show.
    bool isWaiting_ = false;
    Picture whole_;  ///< The picture when the stage shows all of it; null before it has come.
    QTimer rest_;
    PictureLoader loader_;
};
