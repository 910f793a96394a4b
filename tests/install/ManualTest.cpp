// The manual pages and the shell's completion know what the programs know.
#include <sstream>

#include "install/Installed.h"

namespace quorvi::test {

namespace {

/// What can stand behind the name of quorvictl, by its own word.
std::vector<std::string> verbs() {
    std::istringstream lines(runProgram({QUORVI_QUORVICTL, "--help"}).output);
    std::vector<std::string> verbs;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line.substr(line.find("quorvictl")));
        std::string program;
        std::string verb;
        words >> program >> verb;
        verbs.push_back(verb);
    }
    return verbs;
}

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
    const auto all = verbs();
    ASSERT_GE(all.size(), 10U);
    for (const auto& verb : all)
        EXPECT_NE(page.find(verb), std::string::npos) << verb;
}

TEST(Manual, ThePageOfThePanelIsInOrder) {
    EXPECT_NE(shownPage("quorvi-settings.1").find("quorvi-settings"), std::string::npos);
}

TEST(Completion, OffersEveryVerbAndNoOther) {
    const auto offered = runProgram({"bash", "-c",
        ". " QUORVI_SOURCE "/packaging/completions/quorvictl.bash; COMP_WORDS=(quorvictl ''); COMP_CWORD=1; "
        "_quorvictl; printf '%s\\n' \"${COMPREPLY[@]}\""});
    std::string expected;
    for (const auto& verb : verbs())
        expected += verb + "\n";
    EXPECT_EQ(offered.output, expected);
}

TEST(Completion, OffersFilesWhereFilesStand) {
    const TemporaryFolder folder;
    const auto settings = folder.write("settings.plist", "");
    const auto offered = runProgram({"bash", "-c",
        ". " QUORVI_SOURCE "/packaging/completions/quorvictl.bash; COMP_WORDS=(quorvictl encode \"$0\"); "
        "COMP_CWORD=2; _quorvictl; printf '%s\\n' \"${COMPREPLY[@]}\"",
        folder.path("set")});
    EXPECT_EQ(offered.output, settings + "\n");
}

} // namespace quorvi::test
