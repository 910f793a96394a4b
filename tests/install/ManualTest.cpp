// The manual pages match the programs.
#include "install/ToolVerbs.h"

namespace quorvi::test {

namespace {

std::string shownPage(const char* page) {
    const auto shown = runProgram({"man", "--warnings", "-l", std::string(QUORVI_SOURCE "/docs/man/") + page},
        {"MANWIDTH=1000", "LC_ALL=C.UTF-8", "MAN_KEEP_FORMATTING="});
    EXPECT_EQ(shown.exitCode, 0);
    EXPECT_EQ(shown.error, "");
    return shown.output;
}

} // namespace

TEST(Manual, ThePageOfTheToolNamesEveryVerb) {
    const auto page = shownPage("quorvictl.1");
    const auto all = toolVerbs();
    ASSERT_GE(all.size(), 10U);
    for (const auto& verb : all)
        EXPECT_NE(page.find(verb), std::string::npos) << verb;
}

TEST(Manual, ThePageOfTheServiceNamesItsOptions) {
    const auto page = shownPage("quorvi-inputd.8");
    for (const char* option : {"--device", "--record", "--sensor-dpi", "--version"})
        EXPECT_NE(page.find(option), std::string::npos) << option;
}

TEST(Manual, ThePageOfThePanelIsInOrder) {
    EXPECT_NE(shownPage("quorvi-settings.1").find("quorvi-settings"), std::string::npos);
}

} // namespace quorvi::test
