// Kills a program that keeps a copy and then saves at each system call, and makes each call of the copy fail:
// the settings are always the old or the new ones, no older copy is lost, and a failed copy does not prevent
// the save.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

#include "base/ScriptedCalls.h"
#include "history/Histories.h"
#include "model/SaveProgram.h"
#include "model/SettingsDocument.h"
#include "support/EnvironmentVariable.h"
#include "support/Files.h"
#include "support/StracedCalls.h"

namespace quorvi::test {
namespace {

namespace fs = std::filesystem;

constexpr int kOld = 125;
constexpr int kNew = 1000;

/// A home folder with settings, and with as many copies of the day as may stay.
class Home {
  public:
    Home() {
        if (!saveSettings(treeWithRate(kOld), settings()))
            throw std::runtime_error("no settings to begin with");
        for (int copy = 1; copy <= static_cast<int>(kCopiesOfToday); ++copy)
            if (history.keep(treeWithRate(copy), CopyReason::firstChangeOfDay,
                    noon(2026, 11, 22) - std::chrono::minutes(100 - copy)) != 0)
                throw std::runtime_error("no copies to begin with");
    }

    [[nodiscard]] fs::path settings() const { return userSettingsPath(m_folder.path()); }
    [[nodiscard]] int rate() const {
        return getDefaultSettings(settings()).dictionary("settings").integer("pollingrate");
    }
    /// The rates of the copies, newest first; 0 for one that cannot be read.
    [[nodiscard]] std::vector<int> copies() const {
        std::vector<int> result;
        for (const auto& copy : history.list())
            result.push_back(rateOf(history.read(copy)));
        return result;
    }
    [[nodiscard]] ProgramResult run(const std::vector<std::string>& strace) const {
        return runStraced(strace, {QUORVI_COPY_PROGRAM, m_folder.path(), std::to_string(kNew)});
    }

  private:
    EnvironmentVariable m_zone{"TZ", "UTC"};
    TemporaryFolder m_folder;

  public:
    History history{m_folder / "history"};
};

class CopyOfAProgram : public testing::Test {
  protected:
    CopyOfAProgram() {
        const Home home;
        before = home.copies();
        calls = callsBetweenMarks(
            kSaveMark, [&](const std::vector<std::string>& strace) { return home.run(strace); });
        EXPECT_EQ(home.rate(), kNew);
        after = home.copies();
        EXPECT_EQ(after, (std::vector<int>{kOld, 10, 9, 8, 7, 6, 5, 4, 3, 1}));
    }

    /// Those before, those after, or, for the moment before one is removed, both.
    [[nodiscard]] bool hasLostNone(const std::vector<int>& copies) const {
        std::vector<int> both = before;
        both.insert(both.begin(), kOld);
        return copies == before || copies == after || copies == both;
    }

    std::vector<int> before;
    std::vector<int> after;
    std::vector<Call> calls;
};

TEST_F(CopyOfAProgram, thatIsKilledAtAnyCallLosesNeitherSettingsNorAnOlderCopy) {
    int withoutCopy = 0;
    int withCopy = 0;
    for (const Call& call : calls) {
        SCOPED_TRACE(call.name + " " + std::to_string(call.nth));
        Home home;
        ASSERT_EQ(home.run(inject(call, "signal=KILL")).exitCode, kKilled);
        EXPECT_TRUE(home.rate() == kOld || home.rate() == kNew);
        const auto copies = home.copies();
        EXPECT_TRUE(hasLostNone(copies)) << testing::PrintToString(copies);
        EXPECT_TRUE(home.rate() == kOld || copies == after) << "the copy comes before the save";
        ++(copies == before ? withoutCopy : withCopy);
        // The next one begins with what a killed one has left.
        EXPECT_EQ(home.run({}).exitCode, 0);
        EXPECT_EQ(home.rate(), kNew);
    }
    std::printf("killed at each of %zu calls: %d times without the new copy, %d times with it\n",
        calls.size(), withoutCopy, withCopy);
    EXPECT_GE(withoutCopy, 10);
    EXPECT_GE(withCopy, 10);
}

TEST_F(CopyOfAProgram, forWhichTheDiskIsFullSavesAllTheSame) {
    // The first one of a property list is the copy's. A sanitizer writes as well, to try addresses.
    const auto write = std::find_if(calls.begin(), calls.end(), [](const Call& call) {
        return call.name == "write" && call.line.find("<?xml") != std::string::npos;
    });
    ASSERT_NE(write, calls.end());
    const Home home;
    EXPECT_EQ(home.run(inject(*write, "error=ENOSPC")).exitCode, 1);
    EXPECT_EQ(home.rate(), kNew);
    EXPECT_EQ(home.copies(), before);
}

} // namespace
} // namespace quorvi::test
