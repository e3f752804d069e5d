#pragma once

#include "editor/document/document.h"
#include "editor/editor_layout.h"
#include "editor/hint_box.h"
#include "editor/rubber_band.h"
#include "editor/work_surface.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/tool_bar.h"

#include <QScrollBar>

/// The picture in its viewport, with scroll bars, hint box and rubber band, and the places of everything in the window.
/// It follows the document. Lengths are twips.
class EditorView : public QObject {
    Q_OBJECT

  public:
    /// `form` is what lies below the window's menu bar.
    EditorView(Document& document, ToolBar* tlb1, QWidget* form);

    HintBox& hint() { return *hint_; }
    RubberBand& band() { return *band_; }
    /// What panels are dragged over.
    const QWidget* viewport() const { return picGd_; }
    /// Size of the visible picture area.
    QSize viewSize() const { return viewSize_; }
    /// Scrolls the picture, as far as there is more of it.
    void scrollBy(int right, int down);

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

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void makeGround();
    void makeSurfaces();
    void makeScrollBars();
    void followDocument();
    void layOutThumbnail();
    void forgetLastPaint();
    void apply(const EditorLayout& layout, bool keepsPlace);
    void fitToWindow();
    void gdcl();
    EditorLayoutInput layoutInput() const;
    void centreWindow(QSize size);
    void scrollByWheel(const QWheelEvent& wheel);
    QSize screenSize() const;
    QSize frameSize() const;

    Document& document_;
    ToolBar* tlb1_;
    QWidget* form_;
    ShapeBox* shpBj_;      ///< Background of the work area.
    ShapeBox* barGround_;  ///< What the tool bar leaves free at its right end.
    Surface* picGd_;       ///< Viewport.
    WorkSurface* picYu_;   ///< The picture, as large as it is.
    WorkSurface* picMb_;   ///< Result of the last paint, hidden.
    ImageBox* img1_;       ///< Welcome picture: shows while nothing is open.
    ShapeBox* shpBk_;      ///< Frame of the picture.
    QScrollBar* hsc1_;     ///< Moves the picture sideways.
    QScrollBar* vsc1_;     ///< Moves it up and down.
    HintBox* hint_;
    RubberBand* band_;

    QSize viewSize_;
    QSize welcomeSize_;  ///< What the window is laid out for while nothing is open.
    int toolbarHeight_ = 0;
    QSize fittingWindow_;  ///< In pixels, the size that the window was given for its picture.
};
