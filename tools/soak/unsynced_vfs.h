#pragma once

#include <cstdint>

/// Makes the engine of this process write through a layer that holds everything back until the engine asks for it to be
/// on the disk: as a computer does. What is held is lost when the process is killed, as it is when the power fails.
/// Now and then some of it reaches the disk before its time, piece by piece in any order. Upon SIGUSR1 the process soon
/// kills itself in the midst of a write or a sync, after some of what is held has still reached the disk.
void loseUnsyncedWrites(uint32_t seed);
