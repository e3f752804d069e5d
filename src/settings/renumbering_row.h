#pragma once

#include "intake/form_state.h"
#include "intake/shared_controls.h"

#include <QObject>
#include <QString>
#include <array>

class QPushButton;
class QRadioButton;

/// The controls over the grid of the page 图册编辑: show the album in another order, and number its pictures anew in
/// that order. A renumbering changes all numbers or none.
class RenumberingRow : public QObject {
    Q_OBJECT

  public:
    RenumberingRow(SharedControls& controls, FormState& state);

    void albumChosen();
    void albumLost();

  Q_SIGNALS:
    /// The grid shows the whole album.
    void wholeAlbumShown();

  private:
    void optP1Click(int index);
    void cmdJhClick();
    void renumber();
    QString sortCaption() const;
    bool isChangeable() const;

    SharedControls& controls_;
    FormState& state_;
    QString sortField;  ///< Column of the order chosen last; empty before the first choice.
    std::array<QRadioButton*, 3> optP1{};
    QPushButton* cmdJh;
    QPushButton* cmdS1;
};
