// Runs a program that takes longer than the tests' usual patience.
#pragma once

#include "support/ChildProcess.h"

namespace quorvi::test {

/// Like the other runProgram(), but kills the program only after that time.
[[nodiscard]] ProgramResult runProgram(std::vector<std::string> command,
    const std::vector<std::string>& environment, std::chrono::milliseconds patience);

} // namespace quorvi::test
