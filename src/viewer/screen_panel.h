#pragma once

#include "platform/desktop/image_box.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/tool_bar.h"
#include "viewer/caption.h"
#include "viewer/page_layout.h"
#include "viewer/wheel_scroll.h"

#include <future>
#include <memory>

/// The screen panel that lies over the page: cover of a closed album, curtain while a page is drawn, and ground of a
/// picture that is viewed alone. A picture is being viewed exactly while the paging buttons are disabled with it.
class ScreenPanel {
  public:
    ScreenPanel(ToolBar* bar, QWidget* form);

    void layOut(const Box& page);
    void cover();    ///< Lays itself over the page.
    void uncover();  ///< Shows the page, and ends the viewing of a picture.
    bool isCovering() const { return !pic0->isHidden(); }

    bool isViewing() const { return !bar_->isEnabled(QStringLiteral("ty")); }
    /// Lays a picture of that size and its data strip out and takes the paging buttons away.
    void beginView(QSize size, const QString& data);
    /// Words in place of the picture in view.
    void sayInView(const QString& words);
    void endView();

    /// Loads a picture of `pmtp`, chosen by chance, for the next curtain.
    void changeCurtain();
    /// Ends the viewing of a picture and hides the page behind a fresh curtain. One that hangs already stays.
    void drawCurtain();

    void scrollBy(int pixels) { scroll_->scrollBy(pixels); }

    Surface* pic0;
    ImageBox *img0, *imgSh;
    Caption* txtB0;
    QLabel* lblWz;  ///< The words.

  private:
    void placePicture(QSize size);
    void placeStrip();
    void fitStartPicture();
    void showStartPicture(const Picture& picture);
    ToolBar* bar_;
    std::future<Picture> firstPicture_;  ///< The picture with which the window comes up, while it is being decoded.
    qint64 startPicture_ = 0;            ///< Its cache key when it is shown.
    std::unique_ptr<WheelScroll> scroll_;
};
