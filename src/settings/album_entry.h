#pragma once

#include "intake/form_state.h"

#include <QComboBox>
#include <functional>

/// The editable chooser of albums, cboBm. An album is chosen from its list, or by its table's name or its whole line
/// that is typed and confirmed with Enter. While anything else is being typed, none is. Asks before an album is left,
/// and shows it again when it is not.
class AlbumEntry : public QObject {
    Q_OBJECT

  public:
    AlbumEntry(QComboBox* chooser, FormState& state);

    /// Not set: always.
    std::function<bool()> mayLeave;

    /// Takes the text in the box for a choice, without asking: the album is `FormState::albumTable` then.
    void take();

  Q_SIGNALS:
    void chosen();
    void lost();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void choose();
    void enter();
    void typed();
    bool leaves();

    QComboBox* chooser_;
    FormState& state_;
};
