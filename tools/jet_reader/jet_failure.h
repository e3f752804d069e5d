#pragma once

#include "platform/database/foreign/jet_outcome.h"

/// Thrown where the reading ends before its time.
struct JetFailure {
    JetOutcome outcome;
};
