// The package with the module for System Settings.
#include "install/DebianPackages.h"

namespace quorvi::test {

TEST_F(DebianPackages, ThatOfTheModuleBringsOnlyWhatThePanelsHasNotAndHasNoErrors) {
    const std::string module = package("kyvar-quorvi-kde");
    ASSERT_NE(module, "");
    EXPECT_EQ(package("kyvar-quorvi"), "");
    const auto files = runProgram({"dpkg-deb", "-c", module}).output;
    for (const char* file : {"/usr/" QUORVI_MODULE_FOLDER "/kcm_kyvar_quorvi.so\n",
             "/usr/lib/kyvar-quorvi/KyvarQuorvi.prefPane/Contents/Linux/KyvarQuorvi-qt5.so\n"})
        EXPECT_NE(files.find(file), std::string::npos) << files;
    EXPECT_EQ(files.find("/KyvarQuorvi.so\n"), std::string::npos);
    EXPECT_TRUE(hasNoErrors("kyvar-quorvi-kde"));
}

} // namespace quorvi::test
