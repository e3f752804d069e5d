#pragma once

#include "platform/desktop/image_box.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/surface.h"

#include <array>

/// The two picture buttons of the help window, each with a frame of lines that rises under the mouse and sinks when the
/// button is pressed.
class RaisedButtons : public Surface {
    Q_OBJECT

  public:
    explicit RaisedButtons(QWidget* parent = nullptr);

    void hideFrames();
    void wearColours();  ///< Those of the program.

  Q_SIGNALS:
    void backClicked();
    void endClicked();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void showFrame(int firstLine);
    void paintFrame(int firstLine, bool isRaised);
    ImageBox* addButton(const QString& name, const QString& tip, int left, int firstLine);

    ImageBox* imgFh;                   ///< Back to the main window.
    ImageBox* imgGb;                   ///< Ends the program.
    std::array<LineBox*, 8> linFh_{};  ///< Their frames: top, left, bottom and right of each.
};
