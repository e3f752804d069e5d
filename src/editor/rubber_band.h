#pragma once

#include "editor/document/document.h"
#include "editor/document/selection.h"
#include "editor/hint_box.h"
#include "editor/work_surface.h"
#include "platform/desktop/shapes.h"

#include <functional>
#include <optional>

class EditorView;

/// The part of the picture that the person draws with the mouse, with a readout beside the pointer. What is drawn is
/// the document's selection. Lengths are twips of the picture, however large it shows.
class RubberBand : public QObject {
    Q_OBJECT

  public:
    /// Draws on `picYu`, inside `viewport`.
    RubberBand(Document& document, EditorView& view, HintBox& hint, WorkSurface* picYu, QWidget* viewport);

    /// What kind of part is wanted just now; nothing when none is, and the band does not show.
    using WantedShape = std::function<std::optional<SelectionShape>()>;
    void setWanted(const WantedShape& wanted) { wanted_ = wanted; }
    /// What is wanted has changed.
    void follow();
    void hide();
    /// The picture shows at another size or place.
    void layOut();

  Q_SIGNALS:
    void drawn(QSize size);     ///< The mouse moves.
    void finished(QSize size);  ///< The mouse has let go.

  private:
    void press(QPoint pointer);
    void move(QPoint pointer);
    void release(QPoint pointer);
    void moveShape(QSize size);
    QSize shapeSize() const;
    QSize sizeTo(QPoint pointer) const;
    QPoint onSurface(QPoint pointer) const;
    void placeReadout(QPoint pointer);
    void scrollAlong(QPoint pointer);
    bool isWanted() const { return wanted_().has_value(); }
    bool readoutShows() const;

    Document& document_;
    EditorView& view_;
    HintBox& hint_;
    WorkSurface* picYu_;
    QWidget* viewport_;
    ShapeBox* shpYu_;  ///< The rectangle.
    TextBox* txtCc_;   ///< The readout.
    WantedShape wanted_ = [] { return std::nullopt; };
    QRect part_;      ///< What the rectangle shows, in pixels of the picture.
    QPoint pointer_;  ///< Where the mouse was last.
    bool isDown_ = false;
};
