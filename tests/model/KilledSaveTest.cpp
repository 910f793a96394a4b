// Kills a program that saves its settings at each system call of the save, and makes each call fail with each
// error: the file is always the complete old or new one.
//
// By hand: build/bin/quorvi-killed-save-tests

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <set>

#include "base/ScriptedCalls.h"
#include "model/SaveProgram.h"
#include "model/SettingsDocument.h"
#include "model/Trees.h"
#include "support/Files.h"
#include "support/StracedCalls.h"

namespace quorvi {
namespace {

using namespace test;
namespace fs = std::filesystem;
using Names = std::set<std::string>;

enum class Scenario { firstSave, overAnOldFile, throughALink, overAnotherProgramsSettings };

/// A home folder with the scenario's files.
class Home {
  public:
    explicit Home(Scenario scenario) : m_scenario(scenario) {
        if (scenario == Scenario::firstSave)
            return;
        if (scenario == Scenario::throughALink) {
            fs::create_directories(file().parent_path());
            fs::create_directory(m_folder / "elsewhere");
            fs::create_symlink(m_folder / "elsewhere/target", file());
        }
        if (!saveSettings(dict({{"rate", 1}}), file()) || run({}, 125).exitCode != 0)
            throw std::runtime_error("no settings to begin with");
    }

    [[nodiscard]] fs::path file() const { return userSettingsPath(m_folder.path()); }
    /// The settings file's bytes; std::nullopt if there is none.
    [[nodiscard]] std::optional<std::string> content() const {
        return fs::exists(file()) ? std::optional(readFile(file())) : std::nullopt;
    }
    /// The names in the file's folder.
    [[nodiscard]] Names names() const {
        Names result;
        std::error_code error;
        for (const auto& entry : fs::directory_iterator(fs::weakly_canonical(file()).parent_path(), error))
            result.insert(entry.path().filename());
        return result;
    }
    /// Runs the program that saves, under strace if there are arguments.
    [[nodiscard]] ProgramResult run(const std::vector<std::string>& strace, int rate) const {
        std::vector<std::string> program{QUORVI_SAVE_PROGRAM, m_folder.path(), std::to_string(rate)};
        if (m_scenario == Scenario::overAnotherProgramsSettings)
            program.emplace_back("500");
        return runStraced(strace, program);
    }

  private:
    Scenario m_scenario;
    TemporaryFolder m_folder;
};

/// The system calls that the program makes between its marks.
std::vector<Call> callsOfASave(const Home& home) {
    return callsBetweenMarks(
        kSaveMark, [&](const std::vector<std::string>& strace) { return home.run(strace, 1000); });
}

bool isLeftover(const std::string& name) {
    return name.starts_with(".quorvi-");
}

class SaveOfAProgram : public testing::TestWithParam<Scenario> {
  protected:
    SaveOfAProgram() {
        Home home(GetParam());
        old = home.content();
        calls = callsOfASave(home);
        renewed = home.content();
        complete = home.names();
    }
    /// The next start removes the leftovers, and its save succeeds.
    void expectANewStart(const Home& home) const {
        // A save without changes would adopt the other program's tree, so make a change.
        if (GetParam() == Scenario::overAnotherProgramsSettings) {
            EXPECT_EQ(home.run({}, 250).exitCode, 0);
        }
        EXPECT_EQ(home.run({}, 1000).exitCode, 0);
        EXPECT_EQ(home.content(), renewed);
        const auto names = home.names();
        EXPECT_EQ(std::count_if(names.begin(), names.end(), isLeftover), 0);
    }
    /// Whether this is the content before the save: the other program's settings if there is one.
    [[nodiscard]] bool isOld(const std::optional<std::string>& content) const {
        return GetParam() == Scenario::overAnotherProgramsSettings
                   ? content && content->ends_with("</plist>\n") &&
                         content->find("<integer>500</integer>") != std::string::npos
                   : content == old;
    }
    /// Another program's settings, if any, are in the file or in a copy.
    void expectNothingLost(const Home& home) const {
        if (GetParam() == Scenario::overAnotherProgramsSettings && home.content() == renewed) {
            EXPECT_EQ(home.names(), complete);
        }
    }

    std::optional<std::string> old;
    std::optional<std::string> renewed;
    Names complete;
    std::vector<Call> calls;
};

TEST_P(SaveOfAProgram, thatIsKilledAtAnyCallLeavesTheOldFileOrTheNewOne) {
    int oldFiles = 0;
    int newFiles = 0;
    int leftovers = 0;
    for (const Call& call : calls) {
        SCOPED_TRACE(call.name + " " + std::to_string(call.nth));
        const Home home(GetParam());
        ASSERT_EQ(home.run(inject(call, "signal=KILL"), 1000).exitCode, kKilled);
        const auto content = home.content();
        const bool isNew = content == renewed;
        EXPECT_TRUE(isNew || isOld(content));
        expectNothingLost(home);
        ++(isNew ? newFiles : oldFiles);
        const auto names = home.names();
        leftovers += static_cast<int>(std::count_if(names.begin(), names.end(), isLeftover));
        expectANewStart(home);
    }
    std::printf("killed at each of %zu calls: %d times the old file, %d times the new one, %d leftovers\n",
        calls.size(), oldFiles, newFiles, leftovers);
    EXPECT_GE(oldFiles, 10);
    EXPECT_GE(newFiles, 2);
    EXPECT_GE(leftovers, 4);
}

/// Only calls on files can fail.
bool isCallWithFiles(const Call& call) {
    static const std::set<std::string> others{"access", "brk", "futex", "getpid", "getrandom", "gettid",
        "madvise", "mmap", "mprotect", "munmap", "rt_sigaction", "rt_sigprocmask", "sched_yield"};
    return !others.contains(call.name);
}

/// Calls that signals can interrupt.
bool isRepeated(const Call& call) {
    static const std::set<std::string> repeated{
        "close", "fchmod", "fchown", "fsync", "read", "renameat", "renameat2", "write"};
    return repeated.contains(call.name);
}

TEST_P(SaveOfAProgram, oneCallOfWhichFailsSaysSoAndLeavesTheOldFileOrSavesAllTheSame) {
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer looks for leaks at the end with calls of its own, which would fail too";
#endif
    int failures = 0;
    int saves = 0;
    for (const Call& call : calls) {
        if (!isCallWithFiles(call))
            continue;
        for (const auto& error : {FileError{"EINTR", EINTR}, kFileErrors[0], kFileErrors[1], kFileErrors[2],
                 kFileErrors[3], kFileErrors[4], kFileErrors[5]}) {
            SCOPED_TRACE(call.name + " " + std::to_string(call.nth) + " " + error.name);
            const Home home(GetParam());
            const auto exitCode = home.run(inject(call, "error=" + std::string(error.name)), 1000).exitCode;
            const bool isNew = home.content() == renewed;
            // Only the last call, the sync of the folder, may fail with the new file in place.
            EXPECT_TRUE(exitCode == 0 ? isNew : exitCode == 1 && (!isNew || call.name == "fsync"));
            EXPECT_TRUE(exitCode == 0 || error.number != EINTR || !isRepeated(call));
            const auto names = home.names();
            // The old file ends up under the temporary name, and its removal may fail.
            const bool stays = call.name == "unlinkat" && error.number != EINTR;
            EXPECT_EQ(std::count_if(names.begin(), names.end(), isLeftover), stays ? 1 : 0);
            if (!stays)
                expectNothingLost(home);
            ++(exitCode == 0 ? saves : failures);
            expectANewStart(home);
        }
    }
    std::printf("failed calls: %d times said so, %d times saved all the same\n", failures, saves);
    EXPECT_GE(failures, 40);
    EXPECT_GE(saves, 10);
}

INSTANTIATE_TEST_SUITE_P(Scenarios, SaveOfAProgram,
    testing::Values(Scenario::firstSave, Scenario::overAnOldFile, Scenario::throughALink,
        Scenario::overAnotherProgramsSettings),
    [](const auto& tested) {
        switch (tested.param) {
        case Scenario::firstSave:
            return "firstSave";
        case Scenario::overAnOldFile:
            return "overAnOldFile";
        case Scenario::throughALink:
            return "throughALink";
        default:
            return "overAnotherProgramsSettings";
        }
    });

} // namespace
} // namespace quorvi
