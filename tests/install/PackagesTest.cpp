// The packages for Debian.
#include "install/Installed.h"

namespace quorvi::test {

TEST(Packages, AreMadeAndHaveNoErrorsByDebiansOwnChecker) {
    const TemporaryFolder folder;
    ASSERT_TRUE(succeeds({QUORVI_CPACK, "--config", QUORVI_BUILD "/CPackConfig.cmake", "-B", folder.path()}));
    for (const char* name : {"kyvar-quorvi_", "kyvar-quorvi-dev_"}) {
        std::string package;
        for (const auto& file : folder.names())
            if (file.starts_with(name))
                package = folder.path(file);
        ASSERT_NE(package, "") << name;
        const auto checked = runProgram({"lintian", "--allow-root", "--fail-on", "error", package});
        EXPECT_EQ(checked.exitCode, 0) << checked.output << checked.error;
    }
}

} // namespace quorvi::test
