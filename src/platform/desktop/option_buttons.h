#pragma once

#include <QRadioButton>
#include <span>

/// Makes option buttons a group of their own, at most one of them chosen, whatever other options stand around them.
/// Left to itself the toolkit takes all options below one parent for one group, those in frames on it too.
void groupOptions(std::span<QRadioButton* const> options);

/// Makes an option of such a group the unchosen one again, so that none of the group is chosen.
void clearOption(QRadioButton* option);

/// No option of the group is chosen.
void clearOptions(std::span<QRadioButton* const> options);
