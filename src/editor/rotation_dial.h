#pragma once

#include "platform/desktop/shapes.h"

#include <array>

/// The dial beside the box for an angle: its hand turns counter-clockwise from twelve, as the picture will.
class RotationDial {
  public:
    explicit RotationDial(QWidget* panel);

    void setVisible(bool on);
    /// Turns the hand.
    void turnTo(double degrees);

  private:
    std::array<LineBox*, 4> linJd_;  ///< The hand; the cross of the dial and the mark at twelve.
};
