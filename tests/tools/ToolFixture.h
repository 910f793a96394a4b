// The real quorvictl, and files to give it.
#pragma once

#include <gtest/gtest.h>

#include "support/ChildProcess.h"
#include "support/Files.h"

namespace quorvi::test {

inline std::string vectorPath(const std::string& name) {
    return QUORVI_TEST_DATA "/vectors/" + name;
}

inline ProgramResult quorvictl(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), QUORVI_QUORVICTL);
    return runProgram(std::move(arguments));
}

/// Exit code 1, nothing on standard output, and this one line on standard error, within a second.
inline void expectRefused(const std::vector<std::string>& arguments, const std::string& reason) {
    const auto result = quorvictl(arguments);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error, "quorvictl: " + reason + "\n");
#ifndef __SANITIZE_ADDRESS__
    EXPECT_LT(result.duration, std::chrono::seconds(1));
#endif
}

/// Exit code 2, and on standard error a line with the reason and the usage.
inline void expectMisused(const std::vector<std::string>& arguments, const std::string& reason) {
    const auto result = quorvictl(arguments);
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_TRUE(result.error.starts_with("quorvictl: " + reason + "\nusage: quorvictl encode "))
        << result.error;
}

inline void expectDone(const std::vector<std::string>& arguments, const std::string& output) {
    const auto result = quorvictl(arguments);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, output);
    EXPECT_EQ(result.error, "");
}

} // namespace quorvi::test
