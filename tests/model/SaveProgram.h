// What the program that saves once and the tests that watch it have in common.
#pragma once

namespace quorvi::test {

/// A file that there is not.
inline constexpr auto kSaveMark = "/quorvi-save-mark";

} // namespace quorvi::test
