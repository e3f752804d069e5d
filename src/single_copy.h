#pragma once

#include <QLockFile>

/// Takes the lock beside the catalogue, and tells whether another copy of the program holds it. What a copy that has
/// ended, or one on another computer, has left behind counts for nothing: the folder may have been copied while the
/// program ran. Nor does a folder that cannot be written to: it holds no lock, and its catalogue cannot be changed by
/// two copies either.
bool isSecondCopy(QLockFile& lock);
