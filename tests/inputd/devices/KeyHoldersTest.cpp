// The mice that hold keys of the shared keyboard.
#include "inputd/devices/KeyHolders.h"

#include <gtest/gtest.h>

namespace quorvi::inputd {
namespace {

class KeyHoldersTest : public testing::Test {
  protected:
    bool down(int code) { return passes(code, 1); }
    bool up(int code) { return passes(code, 0); }
    bool passes(int code, int value) {
        input_event event{};
        event.type = EV_KEY;
        event.code = static_cast<std::uint16_t>(code);
        event.value = value;
        return holders.passes(event);
    }
    KeyHolders holders;
};

TEST_F(KeyHoldersTest, AKeyGoesDownWithTheFirstAndUpWithTheLast) {
    EXPECT_TRUE(down(KEY_A));
    EXPECT_FALSE(down(KEY_A));
    EXPECT_TRUE(passes(KEY_A, 2));
    EXPECT_FALSE(up(KEY_A));
    EXPECT_TRUE(up(KEY_A));
    EXPECT_TRUE(down(KEY_A));
    EXPECT_FALSE(passes(KEY_B, 2));
}

TEST_F(KeyHoldersTest, WithAltAndSysRqNoCommandReachesTheKernel) {
    for (const int alt : {KEY_LEFTALT, KEY_RIGHTALT}) {
        EXPECT_TRUE(down(alt));
        EXPECT_TRUE(down(KEY_SYSRQ)); // by itself it is a picture of the window
        EXPECT_FALSE(down(KEY_B));
        EXPECT_FALSE(down(KEY_LEFTSHIFT));
        EXPECT_TRUE(up(KEY_SYSRQ));
        EXPECT_TRUE(down(KEY_B));
        EXPECT_TRUE(up(KEY_B));
        EXPECT_TRUE(up(alt));
    }
}

TEST_F(KeyHoldersTest, WhatWasHeldBeforeComesUp) {
    EXPECT_TRUE(down(KEY_B));
    EXPECT_TRUE(down(KEY_LEFTALT));
    EXPECT_TRUE(down(KEY_SYSRQ));
    EXPECT_TRUE(up(KEY_B));
}

TEST_F(KeyHoldersTest, WhatIsNoKeyPasses) {
    input_event scan{};
    scan.type = EV_MSC;
    scan.code = MSC_SCAN;
    EXPECT_TRUE(holders.passes(scan));
    EXPECT_TRUE(passes(KEY_CNT, 1));
}

} // namespace
} // namespace quorvi::inputd
