// The packages for Debian.
#include "install/DebianPackages.h"

namespace quorvi::test {

TEST_F(DebianPackages, AreMadeAndHaveNoErrorsByDebiansOwnChecker) {
    for (const char* name : {"kyvar-quorvi", "kyvar-quorvi-dev", "kyvar-quorvi-inputd"}) {
        ASSERT_NE(package(name), "") << name;
        EXPECT_TRUE(hasNoErrors(name));
    }
}

} // namespace quorvi::test
