// The package with the module for System Settings.
#include <algorithm>
#include <sstream>

#include "install/DebianPackages.h"

namespace quorvi::test {

namespace {

/// The files in the package, without folders, in order.
std::vector<std::string> filesIn(const std::string& package) {
    std::vector<std::string> files;
    std::istringstream lines(runProgram({"dpkg-deb", "-c", package}).output);
    for (std::string line; std::getline(lines, line);)
        if (!line.ends_with('/'))
            files.push_back(line.substr(line.find("./") + 1));
    std::sort(files.begin(), files.end());
    return files;
}

const std::string kModuleFile = "/usr/" QUORVI_MODULE_FOLDER "/kcm_kyvar_quorvi.so";
const std::string kDocuments = "/usr/share/doc/kyvar-quorvi-kde/";

/// The package by itself, which a build with Qt 5 makes, and one with Qt 6 beside the others.
class ModulePackage : public DebianPackages {
  protected:
    void SetUp() override { make({"-D", "CPACK_COMPONENTS_ALL=kde"}); }
};

} // namespace

#if QUORVI_QT == 5

TEST_F(ModulePackage, BringsOnlyWhatThePanelsHasNotAndHasNoErrors) {
    const std::string module = package("kyvar-quorvi-kde");
    ASSERT_NE(module, "");
    EXPECT_EQ(package("kyvar-quorvi"), "");
    EXPECT_EQ(
        filesIn(module), (std::vector<std::string>{
                             "/usr/lib/kyvar-quorvi/KyvarQuorvi.prefPane/Contents/Linux/KyvarQuorvi-qt5.so",
                             kModuleFile, kDocuments + "changelog.Debian.gz", kDocuments + "copyright"}));
    EXPECT_TRUE(hasNoErrors("kyvar-quorvi-kde"));
}

#else

TEST_F(ModulePackage, BringsTheModuleAloneForThePanelsOwnPlugInAndHasNoErrors) {
    const std::string module = package("kyvar-quorvi-kde");
    ASSERT_NE(module, "");
    EXPECT_EQ(filesIn(module), (std::vector<std::string>{kModuleFile, kDocuments + "changelog.Debian.gz",
                                   kDocuments + "copyright"}));
    const auto dependencies = runProgram({"dpkg-deb", "-f", module, "Depends"}).output;
    EXPECT_NE(dependencies.find("kyvar-quorvi (= "), std::string::npos) << dependencies;
    EXPECT_NE(dependencies.find("libqt6widgets6"), std::string::npos) << dependencies;
    EXPECT_TRUE(hasNoErrors("kyvar-quorvi-kde"));
}

#endif

} // namespace quorvi::test
