// Waits for an action of another program that sends no notification.
#pragma once

#include <thread>

#include "support/ChildProcess.h"

namespace quorvi::test {

/// Polls until the condition holds; returns false if it never does.
template <typename Condition>
[[nodiscard]] bool waitUntil(Condition&& condition) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

} // namespace quorvi::test
