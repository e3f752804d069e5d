#pragma once

#include "viewer/filter_controls.h"
#include "viewer/window_layout.h"

#include <array>

/// The column of selection buttons with its two page corners and the frame that follows the mouse.
class ButtonPanel : public QObject {
    Q_OBJECT

  public:
    ButtonPanel(ViewerState& state, ToolStrip& strip, StatusLine& status, ScreenPanel& screen, Page& page,
                FilterControls& filters, QWidget* window, QWidget* form);

    void layOut(const WindowLayout& layout);

    /// Fills the column with the buttons of the open album. An album without buttons leaves it as it was. Throws where
    /// the catalogue cannot be read.
    void anxs();

    /// The column begins at its first button again; `anxs` fills it.
    void rewind();

    void putCursorOn(int index);
    void hideCursor() { shpAn->hide(); }
    void hideRollOver();

    ShapeBox *shpAb, *shpA1;

  Q_SIGNALS:
    void pressed();  ///< The mouse, on a button or a corner.

  private:
    /// The corners stand behind the buttons in the numbering of the roll-over.
    static constexpr int upperCorner = 5;
    static constexpr int lowerCorner = 6;

    ImageBox* button(int index);
    void listenTo(ImageBox* image, int rollOverIndex);
    void fillSlots(Recordset& buttons);
    void choose(int index);
    void pageUp();
    void pageDown();
    void loadCorner();
    void bkyd(int index);
    void anax();
    void antq();
    std::array<LineBox*, 4> rollOver() const { return {linS, linX, linZ, linY}; }

    ViewerState& state_;
    StatusLine& status_;
    ToolStrip& strip_;
    ScreenPanel& screen_;
    Page& page_;
    FilterControls& filters_;
    QWidget* window_;
    QWidget* form_;
    std::vector<ImageBox*> imgAn;
    ShapeBox* shpAn;
    ImageBox *imgSy, *imgXy;
    LineBox *linX, *linS, *linY, *linZ;
    ButtonColumn column_{0, 0};
    QCursor hand_;
};
