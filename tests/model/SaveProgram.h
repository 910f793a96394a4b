// Shared by the program that saves once and its tests.
#pragma once

namespace quorvi::test {

/// A file that does not exist.
inline constexpr auto kSaveMark = "/quorvi-save-mark";

} // namespace quorvi::test
