#pragma once

#include "editor/editor_layout.h"
#include "editor/editor_state.h"
#include "editor/work_surface.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/text_box.h"
#include "platform/desktop/tool_bar.h"

#include <QScrollBar>

/// The editor's surfaces and where they stand: viewport, working picture, scratch picture, scroll bars, hint box, and
/// the empty panels of the three floating dialogs, which the chapters fill.
class EditorView : public QObject {
    Q_OBJECT

  public:
    /// `window` is the top-level window, `form` what lies below its menu bar.
    EditorView(EditorState& state, ToolBar* bar, QWidget* window, QWidget* form);

    Surface* picGd;      ///< Viewport.
    WorkSurface* picYu;  ///< The working picture.
    WorkSurface* picMb;  ///< Result of the last paint; saving in place takes it from here. Hidden.
    ImageBox* img1;      ///< Welcome picture: shows while nothing is open.
    ShapeBox* shpBk;
    ShapeBox* shpYu;  ///< Selection.
    TextBox* txtCc;   ///< Readout of the selection.
    ShapeBox* shpBj;
    TextBox* txtTs;  ///< Hint box.
    QScrollBar *hsc1, *vsc1;
    Surface *picCq, *picAn, *picCs;  ///< Operation dialog, button picture dialog, album chooser.

    /// Lays the window out for the present size of the picture.
    void pmsz();
    /// Moves the picture to the scroll bars' positions.
    void gdcl();
    /// Shows the hint for a code. A code without hint leaves the text and lays the box out anew.
    void tscz(const QString& code);
    /// Shows a text in the hint box even where hints are off: why an operation was not carried out.
    void notice(const QString& text);
    /// Puts a text into one of the two boxes that are as wide as its half cells.
    static void setHint(TextBox* box, const QString& text);
    /// The hint box may show at all (the menu item that closes it says "关闭提示").
    void setHintsOn(bool on) { hintsOn_ = on; }
    void centreHint();
    void setCaption(const QString& caption) { window_->setWindowTitle(caption); }

    void growShortWindow();
    void centreWindow(int width, int height);
    void resized();
    /// The tool bar shows, or not; the viewport, and the hint with it, begins below.
    void showBar();

    /// Sizes in twips.
    int windowWidth() const;
    int windowHeight() const;
    QSize screenSize() const;

    /// A finished paint: the scratch picture becomes the working picture, and the window follows its size.
    void takePainted(const QImage& painted);
    /// Another picture is at work; the scratch picture stays as it is.
    void setWorkingPicture(const QImage& picture);
    /// The thumbnail of a button picture stands in the place of the photograph.
    void showThumbnail(const QImage& thumbnail);
    bool showsThumbnail() const { return !photograph_.isNull(); }
    /// The picture at work: what is on the screen, or the photograph behind its thumbnail.
    QImage workingPicture() const;
    /// The picture of the last paint: after an undo, the one that was taken back.
    QImage lastPaint() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void makeSurfaces();
    void makeHintBox();
    void makePanels();
    void apply(const EditorLayout& layout, bool keepsPlace);
    void fitToWindow();
    EditorLayoutInput layoutInput() const;
    void placeHint();
    void dragPanel(Surface* panel, QPoint pointer);
    QSize frameSize() const;

    EditorState& state_;
    ToolBar* bar_;
    QWidget* window_;
    QWidget* form_;
    ShapeBox* barGround_;  ///< What the tool bar leaves free at its right end.
    QImage photograph_;    ///< While its thumbnail shows.
    QSize fittingWindow_;  ///< In pixels, the size that the window was given for its picture.
    bool hintsOn_ = true;
    QPoint dragFrom_;  ///< Where the mouse went down on a panel, on the screen.
};
