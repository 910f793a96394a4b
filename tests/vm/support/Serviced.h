// A test with the service on the machine's bus, and Anna at the machine.
#pragma once

#include <gtest/gtest.h>

#include "support/WaitUntil.h"
#include "vm/support/Caller.h"
#include "vm/support/Driven.h"
#include "vm/support/Managers.h"
#include "vm/support/Seat.h"

namespace quorvi::test {

class ServicedTest : public testing::Test {
  protected:
    ServicedTest() : seat((showSession({}), 0)) {}
    void SetUp() override;
    void TearDown() override;

    /// Starts the service, or starts it again, and waits until it has its name.
    void startService();
    /// Has Anna use the mouse and waits until it is driven.
    void use(FakeMouse& fake, const TestRecord& record, const std::string& name = "Test mouse");
    /// The state that the service says of Anna's mouse; the error when there is one.
    std::string stateOf(const std::string& id);
    /// Waits until a plain mouse moves what it says.
    [[nodiscard]] bool isPlainAgain(FakeMouse& fake, const std::string& name = "Test mouse");

    int seat;
    Managers managers;
    FakeMouse mouse;
    Desk desk;
    std::unique_ptr<ChildProcess> inputd;
    Caller anna{kAnna};
    Caller berta{kBerta};
};

} // namespace quorvi::test
