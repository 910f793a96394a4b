// Running a program that takes longer than what tests usually wait for.
#pragma once

#include "support/ChildProcess.h"

namespace quorvi::test {

/// As runProgram() without the last argument: the program is killed when it runs for longer than that.
[[nodiscard]] ProgramResult runProgram(std::vector<std::string> command,
    const std::vector<std::string>& environment, std::chrono::milliseconds patience);

} // namespace quorvi::test
