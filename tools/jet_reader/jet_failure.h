#pragma once

#include "platform/database/jet_outcome.h"

/// Thrown where the reading ends before its time.
struct JetFailure {
    JetOutcome outcome;
};
