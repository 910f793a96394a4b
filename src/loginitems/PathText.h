// Paths as text.
#pragma once

#include <string_view>

namespace quorvi {

[[nodiscard]] bool isUtf8(std::string_view text);

/// Whether two UTF-8 paths are equal when each code point is folded by itself (simple case folding, by the
/// character tables of the C.UTF-8 locale whatever the process's own locale is; ASCII letters alone where a
/// system lacks those). No normalisation: a composed letter and the same letter with a combining mark differ,
/// as they do on disk. Paths that are not UTF-8 are equal when their bytes are.
[[nodiscard]] bool equalIgnoringCase(std::string_view a, std::string_view b);

} // namespace quorvi
