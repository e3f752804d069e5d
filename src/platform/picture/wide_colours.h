#pragma once

#include <QByteArray>

/// A profile for primaries by their number in ISO 23091-2: Display P3 (12) and BT.2020 (9), with the curve of the
/// screen. Empty for all others, which are those of the screen or nearly so.
QByteArray wideProfile(unsigned primaries);

/// The profile of colours that are given as Lab.
QByteArray labProfile();
