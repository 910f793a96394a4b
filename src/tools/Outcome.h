// How a verb of the command line ends.
#pragma once

#include <string>

namespace quorvi::tools {

constexpr int kDone = 0;
constexpr int kRefused = 1; ///< the input, or the other side, does not allow it
constexpr int kMisused = 2; ///< the command line itself is wrong

struct Outcome {
    int exitCode = kDone;
    std::string reason; ///< one line without its end; empty when done
};

[[nodiscard]] inline Outcome done() {
    return {};
}
[[nodiscard]] inline Outcome refused(std::string reason) {
    return {kRefused, std::move(reason)};
}
[[nodiscard]] inline Outcome misused(std::string reason) {
    return {kMisused, std::move(reason)};
}

} // namespace quorvi::tools
