// Waiting for what another program does, where nothing announces it.
#pragma once

#include <thread>

#include "support/ChildProcess.h"

namespace quorvi::test {

/// Looks again and again until the condition holds; false when it never does.
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
