#pragma once

#include "platform/database/records/recordset.h"
#include "platform/desktop/image_box.h"
#include "platform/desktop/shapes.h"
#include "viewer/window_layout.h"

#include <QCursor>
#include <array>
#include <vector>

/// The column of selection buttons with its two page corners and the frame that follows the mouse. Only shows the
/// buttons and says which one was clicked.
class ButtonPanel : public QObject {
    Q_OBJECT

  public:
    explicit ButtonPanel(QWidget* form);

    void layOut(const WindowLayout& layout);
    void wearColours();
    void setOuterFrame(const QColor& colour) { shpAb->setBorderColor(colour); }
    void setInnerFrame(const QColor& colour) { shpA1->setBorderColor(colour); }
    void setFill(const QColor& colour) { shpAb->setFillColor(colour); }

    /// Fills the column with the buttons of the current album. An album without buttons leaves it as it was. Throws
    /// where the catalogue cannot be read.
    void anxs();

    /// Goes back to the first button of the column; `anxs` fills it.
    void rewind();

    /// Marks the active button.
    void putCursorOn(int index);
    void hideCursor() { shpAn->hide(); }
    void hideRollOver();

  Q_SIGNALS:
    void pressed();  ///< The mouse, on a button or a corner.
    void chosen(int index, const QString& name);

  private:
    struct Button {
        ImageBox* imgAn;  ///< Its picture.
        QString name;
    };

    /// Numbers of the corners for the roll-over, which counts them after five buttons.
    static constexpr int upperCorner = 5;
    static constexpr int lowerCorner = 6;

    Button& button(int index);
    void addButton(int index);
    void addCorners();
    void listenTo(ImageBox* image, int rollOverIndex);
    void fillSlots(Recordset& buttons);
    void choose(int index);
    void pageUp();
    void pageDown();
    void loadCorner();
    bool isFirstPage() const { return first_ == 1; }
    /// Lays the roll-over frame around a button or a corner.
    void bkyd(int index);
    /// The frame looks sunken: the mouse is pressed.
    void anax();
    /// The frame looks raised.
    void antq();
    std::array<LineBox*, 4> rollOver() const { return {linS, linX, linZ, linY}; }

    QWidget* form_;   ///< Below the menu bar; parent of all of these.
    ShapeBox* shpAb;  ///< Outer frame of the column.
    ShapeBox* shpA1;  ///< Inner frame of the column.
    ShapeBox* shpAn;  ///< Cursor around the active button.
    std::vector<Button> buttons_;
    ImageBox* imgSy;                     ///< Upper corner: page up.
    ImageBox* imgXy;                     ///< Lower corner: page down.
    LineBox *linX, *linS, *linY, *linZ;  ///< Roll-over frame: bottom, top, right, left.
    int first_ = 1;                      ///< Number of the button in the top slot, from 1.
    int stripHeight_ = 0;                ///< Room for the buttons, in twips.
    ButtonColumn column_{0, 0};
    QCursor hand_;
};
