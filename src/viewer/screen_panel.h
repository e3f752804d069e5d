#pragma once

#include "platform/desktop/image_box.h"
#include "platform/desktop/surface.h"
#include "viewer/caption.h"
#include "viewer/page_layout.h"
#include "viewer/stage.h"
#include "viewer/tool_strip.h"

#include <QLabel>
#include <future>

/// The screen panel over the page: cover of a closed album, curtain while a page is drawn, and ground of a picture that
/// is viewed alone. While one is viewed the paging keys of the tool bar are off.
class ScreenPanel : public QObject {
    Q_OBJECT

  public:
    ScreenPanel(ToolStrip& strip, QWidget* form);

    void layOut(const Box& page);
    void setGround(const QColor& ground);
    void cover();    ///< Lays itself over the page.
    void uncover();  ///< Shows the page, and ends the viewing of a picture.
    bool isCovering() const { return !pic0->isHidden(); }

    bool isViewing() const { return stage_->isOn(); }
    /// Shows an empty place for a picture (see `Stage::begin`), with its data on a strip, and switches the paging keys
    /// off.
    void beginView(QSize whole, QSize pixels, const QString& data);
    Stage& stage() { return *stage_; }  ///< Of the picture in view.
    bool hasStrip() const { return !txtB0->isHidden(); }
    void toggleStrip() { txtB0->setVisible(txtB0->isHidden()); }
    void endView();

    /// Loads the cover of the collection. Throws where the catalogue has none to read.
    void loadCover();
    /// Loads a picture of `pmtp`, chosen by chance, for the next curtain.
    void changeCurtain();
    /// Ends the viewing of a picture and hides the page behind a new curtain. A curtain that is shown already stays.
    void drawCurtain();
    /// Paints the curtain now, before the page behind it is drawn.
    void repaintCurtain();

  Q_SIGNALS:
    void clicked();
    void mousePressed();
    void mouseMoved();
    void viewEnded();

  private:
    void placePicture(QSize size);
    void hang(const Picture& picture);
    void fillPanel();
    QSize panelTarget() const { return ImageBox::targetSize(pic0, pic0->size()); }  ///< In device pixels.
    void placeStrip();
    void fitStartPicture();
    void hangStartPicture(const Picture& picture);
    void offerPaging(bool on);

    ToolStrip& strip_;
    Surface* pic0;    ///< The panel.
    ZoomBox* img0;    ///< Cover, curtain or picture in view.
    ImageBox* imgSh;  ///< Empty; comes and goes with the curtain.
    Caption* txtB0;   ///< Data of the picture in view.
    QLabel* lblWz;    ///< Words in place of the picture in view.
    std::unique_ptr<Stage> stage_;
    Picture hanging_;  ///< Cover or curtain, whole. Where the panel has another shape, `img0` shows its middle.
    std::future<Picture> firstPicture_;  ///< The picture with which the window comes up, while it is being decoded.
    qint64 startPicture_ = 0;            ///< Its cache key when it is hanging.
};
