#pragma once

#include "catalogue/picture_loader.h"
#include "viewer/cell_box.h"

#include <QPointer>
#include <QTimer>
#include <functional>
#include <vector>

/// Brings the pictures into the cells of a page: at once what is at hand, everything else as it is decoded. Meanwhile a
/// cell shows the same picture in the size that it had there, or the small one that its camera has put into the
/// file. While the window rests, the pages that are likely to come next are decoded ahead.
class CellPictures : public QObject {
    Q_OBJECT

  public:
    using Requests = std::vector<PictureRequest>;

    /// `upcoming` says what may be shown next, the most likely first. It is asked only when the window rests.
    explicit CellPictures(std::function<Requests()> upcoming);

    /// Room for the pictures of some pages, of which each takes so many device pixels.
    void setPageArea(qint64 devicePixels);

    /// Begins a page: the cells of the one before are not waited for any more.
    void begin();
    /// Bytes that are no picture leave a cell empty, with a sign. Without any bytes it is emptied too, or goes on
    /// showing what it has.
    void put(CellBox* cell, const StoredValue& value, bool keepsItsPicture);
    /// Waits a moment for what is quick, and returns with something to see in every cell that can have it soon. The
    /// rest comes in while the window works on.
    void settle();

    /// What may be shown next has changed.
    void rest();
    /// The page is left: none of its pictures is waited for.
    void leave();

  private:
    struct Open {
        QPointer<CellBox> cell;
        PictureRequest request;
        bool isOfFormerRecord;  ///< The record has none: the cell keeps the picture before, which is still on its way.
        bool isBlank;
    };

    /// Which picture a cell shows.
    struct Content {
        QPointer<CellBox> cell;
        StoredValue value;
    };

    bool stoodIn(const CellBox* cell, const StoredValue& value) const;
    void keepPicture(CellBox* cell);
    void waitFor(Open open);
    bool showKept(const Open& open) const;
    static void showIn(const Open& open, const Picture& picture);
    void decodeAhead();
    void take(const PictureRequest& request, const Picture& picture);
    void showPreview(Open& open) const;
    Requests missing() const;

    std::function<Requests()> upcoming_;
    std::vector<Open> open_, formerOpen_;
    std::vector<Content> contents_, formerContents_;  ///< Of this page, and of the one that was drawn before.
    QTimer resting_;
    PictureLoader loader_;
};
