// The kernel's information about the process behind a window.
#include "helper/front/ProcessFacts.h"

#include <gtest/gtest.h>

#include "support/ChildProcess.h"
#include "support/Files.h"
#include "support/TemporaryFolder.h"
#include "support/WaitUntil.h"

namespace quorvi::test {
namespace {

using front::desktopIdsOfUnit;
using front::factsOf;
using front::programNames;
using Names = std::vector<std::string>;

TEST(UnitOfAnApplication, NamesItsEntry) {
    EXPECT_EQ(desktopIdsOfUnit("app-org.example.Drawing-4711.scope"), Names{"org.example.Drawing"});
    EXPECT_EQ(desktopIdsOfUnit("app-flatpak-org.example.Drawing-4711.scope"),
        (Names{"org.example.Drawing", "flatpak-org.example.Drawing"}));
    EXPECT_EQ(desktopIdsOfUnit("app-gnome-image\\x2deditor-4711.scope"),
        (Names{"image-editor", "gnome-image-editor"}));
    EXPECT_EQ(desktopIdsOfUnit("app-org.example.Drawing@0a1b.service"), Names{"org.example.Drawing"});
    EXPECT_EQ(desktopIdsOfUnit("app-org.example.Drawing.service"), Names{"org.example.Drawing"});
    EXPECT_EQ(desktopIdsOfUnit("app-drawing.slice"), Names{"drawing"});
    EXPECT_EQ(desktopIdsOfUnit("snap.drawing.draw-0a1b-2c3d.scope"), Names{"drawing_draw"});
}

TEST(UnitOfAnApplication, IsNoOtherUnit) {
    for (const char* unit : {"", "session-2.scope", "user@1000.service", "app", "app-", "app-.scope",
             "snap.x.scope", "app-drawing", "vte-spawn-1.scope"})
        EXPECT_EQ(desktopIdsOfUnit(unit), Names{}) << unit;
}

TEST(ProgramsName, IsThatOfItsFileBeforeItsCommandLine) {
    EXPECT_EQ(programNames({"drawing", "a.png"}, "/usr/lib/drawing/drawing-bin"),
        (Names{"drawing-bin", "drawing"}));
    EXPECT_EQ(programNames({"/usr/bin/drawing"}, "/usr/bin/drawing (deleted)"), Names{"drawing"});
    EXPECT_EQ(programNames({}, ""), Names{});
}

TEST(ProgramsName, IsThatOfAScriptBeforeItsInterpreter) {
    EXPECT_EQ(programNames({"/usr/bin/python3", "-E", "/usr/bin/solver", "x"}, "/usr/bin/python3.11"),
        (Names{"solver", "python3.11", "python3"}));
    EXPECT_EQ(programNames({"python3"}, "/usr/bin/python3.11"), (Names{"python3.11", "python3"}));
    EXPECT_EQ(programNames({"shotwell", "a"}, "/usr/bin/shotwell"), Names{"shotwell"});
}

TEST(ProgramsName, IsThatOfAProgramForWindowsBeforeWine) {
    EXPECT_EQ(programNames({"C:\\Games\\Race\\Race.exe", "-full"}, "/opt/wine/bin/wine64-preloader"),
        (Names{"Race.exe", "wine64-preloader"}));
    EXPECT_EQ(programNames({"/opt/wine/bin/wine", "/games/Race.exe"}, "/opt/wine/bin/wine-preloader"),
        (Names{"Race.exe", "wine-preloader", "wine"}));
}

TEST(FactsOfAProcess, AreThoseOfTheRunningProgram) {
    const ChildProcess program({"sleep", "1000"}, {"SteamAppId=440"});
    ASSERT_TRUE(waitUntil([&] { return factsOf(program.pid()).programs == Names{"sleep"}; }));
    // A process that becomes another program has its command line a moment before its environment.
    EXPECT_TRUE(waitUntil([&] { return factsOf(program.pid()).games == Names{"steam_app_440"}; }));
}

TEST(FactsOfAProcess, AreThoseOfWhatStartedItToo) {
    // A shell that has a command behind its child stays.
    ChildProcess launcher({"sh", "-c", "sleep 1000 & echo $!; wait", "SteamLaunch", "AppId=441", "--"});
    const auto child = launcher.readLine();
    ASSERT_TRUE(child);
    // Until it has become another program it has the shell's command line.
    ASSERT_TRUE(waitUntil([&] { return factsOf(std::stoi(*child)).programs == Names{"sleep"}; }));
    EXPECT_EQ(factsOf(std::stoi(*child)).games, Names{"steam_app_441"});
}

TEST(FactsOfAProcess, AreNoneOfOneThatIsGone) {
    for (const pid_t process : {0, -1, 0x7FFFFFFF}) {
        const auto facts = factsOf(process);
        EXPECT_TRUE(facts.programs.empty() && facts.games.empty() && facts.unitIds.empty()) << process;
    }
}

TEST(FactsOfAProcess, FindTheUnitAboveAGroupOfItsOwn) {
    const TemporaryFolder proc;
    std::filesystem::create_directories(proc / "7");
    writeFile(proc / "7/cgroup",
        "0::/user.slice/user-1000.slice/user@1000.service/app.slice/app-gnome-drawing-12.scope/part\n");
    EXPECT_EQ(factsOf(7, proc.path()).unitIds, (Names{"drawing", "gnome-drawing"}));
}

} // namespace
} // namespace quorvi::test
