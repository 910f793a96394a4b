// One mouse driven by hand.
#include <csignal>

#include <gtest/gtest.h>

#include "vm/support/Driven.h"

namespace quorvi::test {
namespace {

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

} // namespace
} // namespace quorvi::test
