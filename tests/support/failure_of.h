#pragma once

#include "platform/base/error.h"

#include <functional>

/// Text of the failure of a step, empty when there was none.
inline QString failureOf(const std::function<void()>& step) {
    try {
        step();
    } catch (const Error& error) {
        return error.text();
    }
    return {};
}
