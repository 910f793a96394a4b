// The packages for Debian.
#include "install/DebianPackages.h"

namespace quorvi::test {

TEST_F(DebianPackages, AreMadeAndHaveNoErrorsByDebiansOwnChecker) {
    for (const char* name : {"kyvar-quorvi", "kyvar-quorvi-dev", "kyvar-quorvi-inputd"}) {
        ASSERT_NE(package(name), "") << name;
        EXPECT_TRUE(hasNoErrors(name));
    }
}

TEST_F(DebianPackages, TheServicesHasAllThatTheSystemHasToKnowOfIt) {
    const auto contents = runProgram({"dpkg-deb", "--contents", package("kyvar-quorvi-inputd")});
    for (const char* file : {"/usr/libexec/quorvi-inputd", "/usr/lib/systemd/system/quorvi-inputd.service",
             "/usr/lib/sysusers.d/kyvar-quorvi-inputd.conf",
             "/usr/lib/modules-load.d/kyvar-quorvi-inputd.conf",
             "/usr/lib/udev/rules.d/60-kyvar-quorvi-inputd.rules",
             "/usr/share/dbus-1/system.d/com.kyvar.Inputd1.conf",
             "/usr/share/dbus-1/system-services/com.kyvar.Inputd1.service",
             "/usr/share/dbus-1/interfaces/com.kyvar.Inputd1.xml",
             "/usr/share/polkit-1/actions/com.kyvar.inputd.policy", "/usr/share/man/man8/quorvi-inputd.8.gz"})
        EXPECT_NE(contents.output.find(std::string(".") + file + "\n"), std::string::npos) << file;
}

} // namespace quorvi::test
