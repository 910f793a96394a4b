// One mouse driven without a bus.
#include <gtest/gtest.h>

#include <csignal>
#include <numeric>

#include "vm/support/Driven.h"

namespace quorvi::test {
namespace {

class StoppedTest : public DrivenTest {
  protected:
    /// Reports of one to that many counts while the service stands still; those of them that reach the
    /// desktop once it goes on.
    [[nodiscard]] std::vector<int> passedAfter(int reports) {
        inputd->signal(SIGSTOP);
        for (int counts = 1; counts <= reports; ++counts)
            mouse.move(counts, 0);
        inputd->signal(SIGCONT);
        std::vector<int> passed;
        EXPECT_TRUE(desk.waitUntil([&] {
            passed.clear();
            for (const auto& event : desk.events())
                if (event.type == EV_REL && event.code == REL_X)
                    passed.push_back(event.value);
            return !passed.empty() && passed.back() == reports;
        }));
        return passed;
    }
    /// The last of so many reports.
    [[nodiscard]] static std::vector<int> last(int count, int reports) {
        std::vector<int> numbers(static_cast<std::size_t>(count));
        std::iota(numbers.begin(), numbers.end(), reports - count + 1);
        return numbers;
    }
};

TEST_F(DrivenTest, AButtonTypesItsKeyAndMovesReachTheDesktopThroughTheVirtualPointer) {
    drive(TestRecord().function(1, 4, kSingleKey, kUsageA));
    mouse.press(BTN_SIDE);
    EXPECT_TRUE(desk.waitForKey(KEY_A, 1));
    mouse.release(BTN_SIDE);
    EXPECT_TRUE(desk.waitForKey(KEY_A, 0));
    mouse.move(7, -3);
    EXPECT_TRUE(desk.waitUntil([&] { return desk.sum(REL_X) == 7 && desk.sum(REL_Y) == -3; }));
    for (const auto& event : desk.events())
        EXPECT_NE(event.device, "Test mouse");
}

TEST_F(DrivenTest, TheVirtualPointerIsThereOnlyWhileAMouseIsDriven) {
    EXPECT_FALSE(desk.has("Quorvi virtual pointer"));
    drive(TestRecord());
    EXPECT_TRUE(desk.has("Quorvi virtual pointer"));
    inputd->signal(SIGTERM);
    EXPECT_EQ(inputd->wait(), 0);
    EXPECT_TRUE(desk.waitForNoDevice("Quorvi virtual pointer"));
}

// A mouse's queue in the kernel has room for 128 events, here of two a report.
TEST_F(StoppedTest, LosesNothingThatTheKernelHadRoomFor) {
    drive(TestRecord());
    EXPECT_EQ(passedAfter(63), last(63, 63));
}

// When it is full, the kernel keeps the newest event and a note that there were more, and goes on from there.
// Of 400 events those after the 380th are left, which ended a report itself.
TEST_F(StoppedTest, PassesOnWhatTheKernelStillHasOfAQueueThatRanOver) {
    drive(TestRecord());
    EXPECT_EQ(passedAfter(200), last(10, 200));
}

} // namespace
} // namespace quorvi::test
