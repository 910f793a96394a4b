// The files installed by the project's rules, in a temporary folder.
#pragma once

#include <gtest/gtest.h>

#include "support/ChildProcess.h"
#include "support/Files.h"
#include "support/PatientProgram.h"

namespace quorvi::test {

/// The contents of the bundle below the prefix.
inline const std::string kBundle = "lib/kyvar-quorvi/KyvarQuorvi.prefPane/Contents/";

class Installed : public ::testing::Test {
  protected:
    void install(const std::string& component) const {
        const auto done = runProgram(
            {QUORVI_CMAKE, "--install", QUORVI_BUILD, "--prefix", m_folder.path(), "--component", component});
        ASSERT_EQ(done.exitCode, 0) << done.error;
    }

    /// The paths of all files below the folder, without its own.
    [[nodiscard]] std::set<std::string> files() const {
        std::set<std::string> paths;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(m_folder.path()))
            if (!entry.is_directory())
                paths.insert(entry.path().lexically_relative(m_folder.path()));
        return paths;
    }

    TemporaryFolder m_folder;
};

/// Passes when the program ends with 0; says what it said otherwise.
[[nodiscard]] inline ::testing::AssertionResult succeeds(const std::vector<std::string>& command,
    const std::vector<std::string>& environment = {}, std::chrono::milliseconds patience = kPatience) {
    const auto result = runProgram(command, environment, patience);
    if (result.exitCode == 0)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << command.front() << ": " << result.output << result.error;
}

} // namespace quorvi::test
