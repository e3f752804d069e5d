#pragma once

#include "catalogue/runs/run_report.h"
#include "settings/frame/settings_frame.h"

#include <QObject>
#include <QString>
#include <array>
#include <functional>

class QPushButton;
class QRadioButton;

/// The controls over the grid of the page 图册编辑: show the album in another order, and number its pictures anew in
/// that order. A renumbering changes all numbers or none.
class RenumberingRow : public QObject {
    Q_OBJECT

  public:
    RenumberingRow(const SettingsFrame& frame);

    void albumChosen();
    void albumLost();

    /// Asked before the records are read anew, which leaves the one that is shown.
    std::function<bool()> mayLeave;

  Q_SIGNALS:
    /// The grid shows the whole album.
    void wholeAlbumShown();

  private:
    void optP1Click(int index);
    void cmdJhClick();
    void finish(const RunReport& report);
    void mark(int option);
    QString question() const;
    bool isChangeable() const;

    SettingsFrame frame_;
    int order_ = 0;    ///< Which of optP1 was chosen last, 按原序号 before the first choice.
    int marked_ = -1;  ///< Which of them is marked.
    std::array<QRadioButton*, 3> optP1{};
    QPushButton* cmdJh;
    QPushButton* cmdS1;
};
