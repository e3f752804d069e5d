#pragma once

#include "viewer/small_dialog.h"

#include <QCheckBox>
#include <QSlider>

/// The dialog `picYc` for the slide show. Writes `幻灯延时` and `幻灯循环`.
class ShowDialog : public SmallDialog {
    Q_OBJECT

  public:
    explicit ShowDialog(QWidget* form);

    /// In the middle of the window, with the stored settings.
    void open();

  private:
    void buildSlider();
    void showInterval(int milliseconds);
    void store();

    QLabel* lblCc;     ///< The stored interval.
    QSlider* sliSj;    ///< Interval between two pictures, in milliseconds.
    QCheckBox* chkYc;  ///< Whether the show begins anew after the last picture.
};
