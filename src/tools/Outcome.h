// The result of a verb.
#pragma once

#include <string>

namespace quorvi::tools {

constexpr int kDone = 0;
constexpr int kRefused = 1; ///< the input, or the other side, does not allow it
constexpr int kMisused = 2; ///< the command line itself is wrong

struct Outcome {
    int exitCode = kDone;
    std::string reason; ///< for standard error, one line without its end; may be empty
};

[[nodiscard]] inline Outcome done(std::string warning = {}) {
    return {kDone, std::move(warning)};
}
[[nodiscard]] inline Outcome refused(std::string reason) {
    return {kRefused, std::move(reason)};
}
[[nodiscard]] inline Outcome misused(std::string reason) {
    return {kMisused, std::move(reason)};
}

} // namespace quorvi::tools
