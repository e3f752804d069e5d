#pragma once

#include "catalogue/picture_loader.h"
#include "platform/database/records/values_ahead.h"
#include "viewer/cell_box.h"

#include <QPointer>
#include <QTimer>
#include <functional>
#include <vector>

/// Brings the pictures into the cells of a page: decoded ones at once, all others as they are decoded. Meanwhile a cell
/// shows the same picture in its former size, or the small one that the camera has put into the file. While the window
/// rests, the pages that are likely to come next are decoded ahead.
class CellPictures : public QObject {
    Q_OBJECT

  public:
    using Requests = std::vector<PictureRequest>;

    /// `upcoming` says what may be shown next, the most likely first. It is asked only when the window rests.
    explicit CellPictures(std::function<Requests()> upcoming);

    /// Room for the pictures of some pages, of which each takes so many device pixels.
    void setPageArea(qint64 devicePixels);

    /// Begins a page, and stops waiting for the cells of the page before.
    void begin();
    /// Bytes that are no picture give the cell a sign. Without bytes it is emptied, or keeps its picture.
    void put(CellBox* cell, const StoredValue& value, bool keepsItsPicture);
    /// Waits a moment for quick pictures and previews, so that few cells are empty when it returns. The others come
    /// while the window goes on working.
    void settle();
    /// Brings them all later, once no further page has begun for a moment.
    void settleLater();

    /// Call it when another page will be shown next: decodes that one ahead, once the window rests.
    void rest();
    /// Leaves the page: stops waiting for its pictures.
    void leave();

  private:
    /// A cell that waits for its picture.
    struct Open {
        QPointer<CellBox> cell;  ///< Null when the page has fewer cells by now.
        PictureRequest request;
        bool isOfFormerRecord;  ///< The record has none: the cell keeps the picture before, which is still on its way.
        bool isBlank;
    };

    /// Which picture a cell shows.
    struct Content {
        QPointer<CellBox> cell;  ///< Null when the page has fewer cells by now.
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
    void want(const Requests& requests);

    std::function<Requests()> upcoming_;
    std::vector<Open> open_, formerOpen_;
    std::vector<Content> contents_, formerContents_;  ///< Of this page, and of the one that was drawn before.
    QTimer resting_;
    PictureLoader loader_;
    ValuesAhead ahead_;
};
