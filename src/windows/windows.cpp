#include "windows/windows.h"
