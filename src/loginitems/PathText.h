// Paths as text.
#pragma once

#include <string_view>

namespace quorvi {

[[nodiscard]] bool isUtf8(std::string_view text);

/// Whether two UTF-8 paths are equal after simple case folding of each code point (with the tables of the
/// C.UTF-8 locale, whatever the process's locale; only ASCII letters on systems without it). No
/// normalisation: a composed letter and the same letter with a combining mark differ, as they do on disk.
/// Paths that are not UTF-8 are compared by their bytes.
[[nodiscard]] bool equalIgnoringCase(std::string_view a, std::string_view b);

} // namespace quorvi
