// The names of the Linux input layer's codes that the tests use.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

namespace quorvi::test {

/// KEY_A, BTN_LEFT, REL_X …; the number for any other code.
[[nodiscard]] std::string nameOfEvent(std::uint16_t type, std::uint16_t code);

/// The type and code of the name; a test failure if there is none.
[[nodiscard]] std::pair<std::uint16_t, std::uint16_t> codeOfEvent(const std::string& name);

} // namespace quorvi::test
