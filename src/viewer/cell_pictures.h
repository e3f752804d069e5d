#pragma once

#include "catalogue/picture_loader.h"
#include "platform/desktop/image_box.h"

#include <QPointer>
#include <QTimer>
#include <functional>
#include <optional>
#include <vector>

/// Brings the pictures into the cells of a page: at once what is at hand, everything else as it is decoded. Meanwhile a
/// cell shows the same picture as it stood there in another size, or the small one that its camera has put into the
/// file. While the window rests, the pages that are likely to come next are decoded ahead.
class CellPictures : public QObject {
    Q_OBJECT

  public:
    using Requests = std::vector<PictureRequest>;

    /// `upcoming` tells what may be shown next, the most likely first. Asked only when the window rests.
    explicit CellPictures(std::function<Requests()> upcoming);

    /// Room for the pictures of some pages, of which each takes so many device pixels.
    void setPageArea(qint64 devicePixels);

    /// Begins a page: the cells of the one before are not waited for any more.
    void begin();
    /// Where there is no picture to show, the cell is emptied, or shows on what it has.
    void put(ImageBox* cell, const StoredValue& value, bool keepsItsPicture);
    /// Waits a moment for what is quick, and returns with something to see in every cell that can have it soon. The
    /// rest comes in while the window works on.
    void settle();

    /// What may be shown next has changed.
    void rest();
    /// Nothing of the page is looked at any more.
    void leave();

  private:
    struct Open {
        QPointer<ImageBox> cell;
        /// The picture; behind it those of former records, which it shows when the later ones turn out to have none.
        std::vector<PictureRequest> requests;
        Picture without;  ///< What it shows when none of them is a picture.
        bool keepsItsPicture;
        bool isBlank;
    };

    /// Which picture stands in a cell.
    struct Content {
        QPointer<ImageBox> cell;
        StoredValue value;
    };

    bool stoodIn(const ImageBox* cell, const StoredValue& value) const;
    std::optional<Open> carriedOver(const ImageBox* cell) const;
    void decodeAhead();
    void take(const PictureRequest& request, const Picture& picture);
    /// Goes on to the picture before, until one has to be waited for. False when there is none to wait for.
    bool waitsForAnother(Open& open);
    void showPreview(Open& open) const;
    Requests missing() const;

    std::function<Requests()> upcoming_;
    std::vector<Open> open_, formerOpen_;
    std::vector<Content> contents_, formerContents_;  ///< Of this page, and of the one that was drawn before.
    QTimer resting_;
    PictureLoader loader_;
};
