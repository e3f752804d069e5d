#pragma once

#include "editor/document/document.h"
#include "editor/editor_layout.h"
#include "editor/hint_box.h"
#include "editor/rubber_band.h"
#include "editor/work_surface.h"
#include "editor/zoom.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/tool_bar.h"

#include <QScrollBar>

/// The picture in its viewport, with scroll bars, hint box and rubber band, and the places of everything in the window.
/// It follows the document. One to one the viewport is as large as the picture, as far as there is room; at any other
/// scale it takes all of the room, with the picture in its middle. Lengths are twips on the screen.
class EditorView : public QObject {
    Q_OBJECT

  public:
    /// `form` is what lies below the window's menu bar.
    EditorView(Document& document, ToolBar* tlb1, QWidget* form);

    HintBox& hint() { return *hint_; }
    RubberBand& band() { return *band_; }
    /// What panels are dragged over.
    QWidget* viewport() { return picGd_; }
    WorkSurface* surface() { return picYu_; }
    /// Size of the visible picture area.
    QSize viewSize() const { return viewSize_; }
    /// Size of the whole picture on the screen.
    QSize shownSize() const;
    bool scrollsDown() const { return vsc1_->isVisible(); }
    /// Scrolls the picture, as far as there is more of it.
    void scrollBy(int right, int down);

    /// There is a photograph to look at, larger or smaller.
    bool canZoom() const;
    /// So many times as large. What is at a place of the viewport, in pixels, stays there.
    void zoomBy(double factor, QPoint at);
    /// To logical pixels for one of the picture. What is in the middle stays there.
    void zoomTo(double scale);
    void showWhole();
    /// " 35%"; empty one to one.
    QString zoomText() const { return canZoom() ? zoom_.text() : QString(); }

    /// Lays the window out for the present size of the picture.
    void pmsz();
    /// The window without a picture.
    void showWelcome();
    /// A picture that could not be painted is hidden until the person leaves the dialog.
    void hidePicture() { picYu_->hide(); }
    void showPicture() { picYu_->show(); }
    /// The album chooser takes the viewport's place.
    void makeWayForChooser();
    /// The tool bar shows, or not; `showBar` or `pmsz` carries it out.
    void setToolBarShown(bool on);
    int toolbarHeight() const { return toolbarHeight_; }
    /// The viewport, and the hint with it, begins below the tool bar.
    void showBar();

    void growShortWindow();
    void resized();

  Q_SIGNALS:
    void zoomed();

  private:
    void makeGround();
    void makeSurfaces();
    void makeScrollBars();
    void followDocument();
    void layOutThumbnail();
    void forgetLastPaint();
    void apply(const EditorLayout& layout, bool keepsPlace);
    void fitToWindow();
    void zoomAround(QPoint at, const std::function<void(Zoom&)>& change);
    QPoint pictureCorner() const;
    void scrollTo(QPoint place);
    void gdcl();
    EditorLayoutInput layoutInput() const;
    void centreWindow(QSize size);
    QSize screenSize() const;
    QSize frameSize() const;

    Document& document_;
    ToolBar* tlb1_;
    QWidget* form_;
    ShapeBox* shpBj_;      ///< Background of the work area.
    ShapeBox* barGround_;  ///< What the tool bar leaves free at its right end.
    Surface* picGd_;       ///< Viewport.
    WorkSurface* picYu_;   ///< The picture, as large as it shows.
    WorkSurface* picMb_;   ///< Result of the last paint, hidden.
    ImageBox* img1_;       ///< Welcome picture: shows while nothing is open.
    ShapeBox* shpBk_;      ///< Frame of the picture.
    QScrollBar* hsc1_;     ///< Moves the picture sideways.
    QScrollBar* vsc1_;     ///< Moves it up and down.
    HintBox* hint_;
    RubberBand* band_;

    Zoom zoom_;
    QSize viewSize_;
    QSize welcomeSize_;  ///< What the window is laid out for while nothing is open.
    int toolbarHeight_ = 0;
    QSize fittingWindow_;  ///< In pixels, the size that the window was given for its picture.
};
