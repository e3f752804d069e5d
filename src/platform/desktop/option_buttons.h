#pragma once

#include <QRadioButton>
#include <span>

/// Makes option buttons a group of their own, of which at most one is chosen. Without this the toolkit takes all
/// options below one parent for one group, those in its frames too.
void groupOptions(std::span<QRadioButton* const> options);

/// Makes an option of such a group the unchosen one again, so that none of the group is chosen.
void clearOption(QRadioButton* option);

/// No option of the group is chosen.
void clearOptions(std::span<QRadioButton* const> options);
