#pragma once

#include "soak/killer.h"

/// Starts the program beside an old catalogue, as a person does who wants it converted. Returns 0 when a new one is
/// open.
int convertOnce(const QString& folder);

/// Kills that at any time, starts it again now and then, and looks each time whether the old catalogue is whole under
/// one of its names, and the new one nowhere but whole. Prints the result on the standard output; returns 0 when
/// nothing was wrong.
int killConversions(const KillOrder& order);
