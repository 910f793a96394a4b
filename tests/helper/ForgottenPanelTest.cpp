// Only a bus monitor can see whether a list is sent to a panel that is gone.
#include "events/ProcessName.h"
#include "helper/HelperFixture.h"
#include "support/EventMonitor.h"

namespace quorvi::test {
namespace {

class ForgottenPanel : public HelperTest {
  protected:
    void SetUp() override {
        HelperTest::SetUp();
        start();
        EXPECT_EQ(leaving->command(kMessagePaneShown, 1), noErr);
        EXPECT_EQ(staying.command(kMessagePaneShown, 1), noErr);
        EXPECT_EQ(leaving->countAfterLists(1), 1);
        EXPECT_EQ(staying.countAfterLists(1), 1);
    }
    std::vector<std::string> destinationsOfTheNextList() {
        EventMonitor monitor(privateBus.address());
        EXPECT_EQ(detachSimulatedMouse(*bus, psn), noErr);
        return monitor.destinationsUntil(nameOf(staying));
    }
    static std::string nameOf(const Panel& panel) {
        return events::uniqueName(panel.bus->processSerialNumber());
    }

    std::unique_ptr<Panel> leaving = std::make_unique<Panel>(); // first, and so first in the helper's list
    Panel staying;
};

TEST_F(ForgottenPanel, WasOnTheList) {
    EXPECT_EQ(destinationsOfTheNextList(), (std::vector{nameOf(*leaving), nameOf(staying)}));
}

TEST_F(ForgottenPanel, IsOneThatLeftTheBus) {
    ASSERT_EQ(leaving->bus->ownName("Leaving"), NameResult::owned);
    leaving.reset();
    ASSERT_TRUE(waitFor(*bus, [&] { return bus->findProcessByName("Leaving", nullptr) == procNotFound; }));
    EXPECT_EQ(destinationsOfTheNextList(), std::vector{nameOf(staying)});
}

} // namespace
} // namespace quorvi::test
