// The packages that a build makes, judged by Debian's own checker.
#pragma once

#include "install/Installed.h"

namespace quorvi::test {

/// All programs are compressed and looked through, which takes some seconds, and a minute beside a build.
constexpr std::chrono::minutes kPatienceWithPackages{2};

class DebianPackages : public ::testing::Test {
  protected:
    void SetUp() override { make({}); }
    /// Makes the packages; with options, other than the build does by itself.
    void make(std::vector<std::string> options) {
        options.insert(options.begin(),
            {QUORVI_CPACK, "--config", QUORVI_BUILD "/CPackConfig.cmake", "-B", m_folder.path()});
        ASSERT_TRUE(succeeds(options, {}, kPatienceWithPackages));
    }
    /// The file of the package; empty when there is none.
    [[nodiscard]] std::string package(const std::string& name) const {
        for (const auto& file : m_folder.names())
            if (file.starts_with(name + "_"))
                return m_folder.path(file);
        return {};
    }
    [[nodiscard]] ::testing::AssertionResult hasNoErrors(const std::string& name) const {
        return succeeds(
            {"lintian", "--allow-root", "--fail-on", "error", package(name)}, {}, kPatienceWithPackages);
    }

    TemporaryFolder m_folder;
};

} // namespace quorvi::test
