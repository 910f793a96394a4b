// A program's system calls under strace: the tests kill it at each of them, or make each fail.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {

/// The exit code of a program that was killed.
inline constexpr auto kKilled = 128 + 9;

/// The nth call of that name since the program was started.
struct Call {
    std::string name;
    int nth;
    std::string line = {}; ///< as strace shows it
};

/// Runs the program by strace with these arguments.
inline ProgramResult runStraced(
    const std::vector<std::string>& strace, const std::vector<std::string>& program) {
    std::vector<std::string> command = program;
    if (!strace.empty()) {
        command = {"strace", "-qq"};
        command.insert(command.end(), strace.begin(), strace.end());
        command.insert(command.end(), program.begin(), program.end());
    }
    return runProgram(command, {"ASAN_OPTIONS=detect_leaks=0"}); // which strace is in the way of
}

/// The system calls that a program makes between two calls with the mark in them. `run` runs it under strace
/// with the arguments.
inline std::vector<Call> callsBetweenMarks(
    const std::string& mark, const std::function<ProgramResult(const std::vector<std::string>&)>& run) {
    const TemporaryFolder folder;
    EXPECT_EQ(run({"-o", folder.path("log")}).exitCode, 0);
    std::istringstream log(folder.read("log"));
    std::map<std::string, int> counts;
    std::vector<Call> calls;
    int marks = 0;
    for (std::string line; std::getline(log, line);) {
        const std::string name = line.substr(0, line.find('('));
        const int nth = ++counts[name];
        if (line.find(mark) != std::string::npos)
            ++marks;
        else if (marks == 1)
            calls.push_back({name, nth, line});
    }
    EXPECT_EQ(marks, 2) << "strace does not see the program";
    return calls;
}

/// strace's arguments for that effect at the call.
inline std::vector<std::string> inject(const Call& call, const std::string& what) {
    return {"-o", "/dev/null", "-e", "trace=" + call.name, "-e",
        "inject=" + call.name + ":" + what + ":when=" + std::to_string(call.nth)};
}

} // namespace quorvi::test
