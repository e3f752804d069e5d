#include "shell/windows.h"
