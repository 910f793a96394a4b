// Recognising a window's application.
#include "helper/front/Recognition.h"

#include <gtest/gtest.h>

#include "support/Files.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {
namespace {

using front::FrontWindow;
using front::ProcessFacts;
using front::recognise;

class RecognisedApplication : public testing::Test {
  protected:
    RecognisedApplication() {
        add("drawing", "Name=Drawing\nExec=drawing\nStartupWMClass=Draw\n");
        add("org.example.Writing", "Name=Writing\nExec=flatpak run org.example.Writing\n");
        add("terminal", "Name=Terminal\nExec=terminal\n");
        add("Hats", "Name=Hats\nExec=steam steam://rungameid/440\n");
        add("steam", "Name=Steam\nExec=steam %U\n");
        entries.refresh();
    }
    void add(const std::string& id, const std::string& keys) const {
        writeFile(folder / (id + ".desktop"), "[Desktop Entry]\nType=Application\n" + keys);
    }
    [[nodiscard]] std::string idOf(const FrontWindow& window, const ProcessFacts& process = {}) const {
        return recognise(window, entries, process).identifier;
    }

    TemporaryFolder folder;
    front::DesktopEntries entries{{folder.path()}};
};

TEST_F(RecognisedApplication, IsTheOneThatTheDesktopNames) {
    EXPECT_EQ(idOf({"org.example.Writing", "Draw", "", 0}), "org.example.Writing");
    EXPECT_EQ(idOf({"terminal.desktop", "", "", 0}), "terminal");
}

TEST_F(RecognisedApplication, IsTheOneOfTheWindowsClass) {
    EXPECT_EQ(idOf({"", "Draw", "x", 0}), "drawing");
    EXPECT_EQ(idOf({"", "Nobody", "terminal", 0}), "terminal");
    EXPECT_EQ(idOf({"Draw", "", "", 0}), "drawing");
}

TEST_F(RecognisedApplication, IsTheOneOfTheUnitBeforeTheProgram) {
    EXPECT_EQ(idOf({"", "Nobody", "", 0}, {{"org.example.Writing"}, {"drawing"}, {}}), "org.example.Writing");
    EXPECT_EQ(idOf({"", "Nobody", "", 0}, {{"unknown"}, {"drawing"}, {}}), "drawing");
}

TEST_F(RecognisedApplication, HasTheNameOfItsClassWithoutAnEntry) {
    const auto application = recognise({"", "Solver", "solver", 12}, entries, {{}, {"solver-bin"}, {}});
    EXPECT_EQ(application.shownName, "Solver");
    EXPECT_EQ(application.identifier, "");
    EXPECT_EQ(application.programs, std::vector<std::string>{"solver-bin"});
    EXPECT_EQ(application.pid, 12);
    EXPECT_EQ(recognise({"", "", "", 12}, entries, {{}, {"solver-bin"}, {}}).shownName, "solver-bin");
}

TEST_F(RecognisedApplication, IsTheGameAndNotItsLauncher) {
    const auto known =
        recognise({"", "steam_app_440", "steam_app_440", 0}, entries, {{"steam"}, {"steam"}, {}});
    EXPECT_EQ(known.identifier, "Hats");
    EXPECT_EQ(known.games, std::vector<std::string>{"steam_app_440"});
    const auto native =
        recognise({"", "hats_linux", "", 0}, entries, {{"steam"}, {"hats"}, {"steam_app_440"}});
    EXPECT_EQ(native.identifier, "Hats");
    const auto unknown = recognise({"", "steam_app_7", "", 0}, entries, {{"steam"}, {"steam"}, {}});
    EXPECT_EQ(unknown.identifier, "");
    EXPECT_EQ(unknown.games, std::vector<std::string>{"steam_app_7"});
}

} // namespace
} // namespace quorvi::test
