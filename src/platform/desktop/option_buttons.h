#pragma once

#include <QRadioButton>

/// Makes an option button of a group the unchosen one again, so that none of the group is chosen.
inline void clearOption(QRadioButton* option) {
    option->setAutoExclusive(false);
    option->setChecked(false);
    option->setAutoExclusive(true);
}
