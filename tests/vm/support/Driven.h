// A test with a fake mouse, a desktop, and the service that drives the one for the other.
#pragma once

#include <gtest/gtest.h>

#include <csignal>

#include "vm/support/Desk.h"
#include "vm/support/FakeMouse.h"
#include "vm/support/Inputd.h"

namespace quorvi::test {

/// Waits until the mouse is driven: what it does comes from the virtual pointer. Moves it meanwhile, and
/// forgets that at the end.
[[nodiscard]] bool waitUntilDriven(FakeMouse& mouse, Desk& desk);

class DrivenTest : public testing::Test {
  protected:
    /// Drives the mouse by the record. Fails the test when that does not come to be.
    void drive(const TestRecord& record) {
        inputd = startInputd(mouse.node(), record);
        const bool driven = waitUntilDriven(mouse, desk);
        if (!driven)
            inputd->signal(SIGTERM);
        ASSERT_TRUE(driven) << inputd->readError();
    }
    void TearDown() override {
        if (inputd && inputd->isRunning())
            inputd->kill();
        EXPECT_TRUE(desk.waitForNoDevice("Quorvi virtual pointer"));
        EXPECT_TRUE(desk.waitForNoDevice("Quorvi virtual keyboard"));
    }

    FakeMouse mouse;
    Desk desk;
    std::unique_ptr<ChildProcess> inputd;
};

} // namespace quorvi::test
