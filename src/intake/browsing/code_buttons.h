#pragma once

#include "catalogue/selection_buttons.h"
#include "settings/frame/frame_part.h"
#include "settings/frame/settings_frame.h"

#include <QObject>
#include <QPoint>
#include <array>
#include <vector>

class QLabel;
class QPushButton;
class TextBox;

/// The buttons cmdBh(0), cmdBh(1) … with the selection codes of an album, which filter the grid by code, and the texts
/// about them (lblBx, txtB0). They stand on the pages 图片录入 and 图片转存.
class CodeButtons : public QObject, public FramePart {
    Q_OBJECT

  public:
    explicit CodeButtons(const SettingsFrame& frame);

    void pageTurned() override { ycbh(); }
    void albumLost() override;

    /// How the buttons and their texts move on the page in front.
    void setGrowth(const Growth& growth);
    /// Puts the heading over the buttons on the page in front, in twips.
    void moveHeading(int left, int top);
    /// Where the first button stands on the page in front, in twips, and how many stand in a row.
    void moveTo(int left, int top, int buttonsPerRow);
    /// Where the line about the button under the mouse stands.
    void moveText(int left, int top, int width);

    /// Builds the buttons for the chosen album.
    void bhan();
    /// Hides the buttons and their texts.
    void ycbh();
    /// The code that the page 图片转存 was filtered by last, "v" for all.
    QString chosenCode() const;

  Q_SIGNALS:
    /// The grid was filtered by a code ("v": all) whose name is `name`; `total` records remain.
    void filtered(const QString& code, const QString& name, int total);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void buttonClicked(int index);
    QPushButton* button(int index);
    void placeButton(int index);
    void placeText();
    /// Buttons in a row and the distance between them, narrowed when there are more than the page has rows for.
    int rows() const;
    int columns() const;
    int pitch() const;

    SettingsFrame frame_;
    QLabel* lbl1_;
    std::vector<QPushButton*> cmdBh_;
    std::vector<SelectionCode> codes_;
    std::array<QLabel*, 2> lblBx_{};  ///< Of the pages 图片转存 and 图片录入.
    TextBox* txtB0;
    QPoint first_{5450, 5415};
    int perRow_ = 13;
    QPoint text_{5940, 6165};
    int textWidth_ = 1400;
    Growth growth_;
};
