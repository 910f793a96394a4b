#include "helper/HelperFixture.h"

namespace quorvi::test {
namespace {

using HelperDeviceList = HelperTest;

TEST_F(HelperDeviceList, ComesToAPanelThatSaysItIsShown) {
    start();
    Panel panel;
    EXPECT_EQ(panel.command(kMessagePaneShown, 1), noErr);
    ASSERT_EQ(panel.countAfterLists(1), 1);
    EXPECT_EQ(panel.lists[0].device[0].vendorID, 0x1209);
    EXPECT_EQ(panel.lists[0].device[0].productID, 0x0001);
    EXPECT_EQ(panel.lists[0].device[0].deviceIndex, 0);
    EXPECT_EQ(panel.lists[0].device[1].vendorID, 0);
}

TEST_F(HelperDeviceList, ComesToAPanelThatWasShownBeforeTheHelperStarted) {
    Panel panel;
    ASSERT_EQ(panel.bus->ownName("KyvarQuorviPane"), NameResult::owned);
    EXPECT_EQ(panel.command(kMessagePaneShown, 1), procNotFound) << "too early: lost";
    start();
    EXPECT_EQ(panel.countAfterLists(1), 1);
    EXPECT_EQ(detachSimulatedMouse(*bus, psn), noErr);
    EXPECT_EQ(panel.countAfterLists(2), 0) << "and what changes later";
}

TEST_F(HelperDeviceList, ComesToEveryPanelThatWasShownBeforeTheHelperStarted) {
    Panel first;
    Panel second;
    ASSERT_EQ(first.bus->ownName("KyvarQuorviPane"), NameResult::owned);
    ASSERT_EQ(second.bus->ownName("KyvarQuorviPane"), NameResult::queued);
    start();
    EXPECT_EQ(first.countAfterLists(1), 1);
    EXPECT_EQ(second.countAfterLists(1), 1);
}

TEST_F(HelperDeviceList, ComesWhoeverStartsFirst) {
    for (int i = 0; i < 10; ++i) {
        const auto started = launch();
        Panel panel;
        ASSERT_EQ(panel.bus->ownName("KyvarQuorviPane"), NameResult::owned);
        (void)panel.command(kMessagePaneShown, 1); // lost when the helper is not there yet
        ASSERT_EQ(panel.countAfterLists(1), 1);
        started->kill();
        ASSERT_TRUE(
            waitFor(*bus, [&] { return bus->findProcessByName("KyvarQuorviHelper", nullptr) != noErr; }));
    }
}

TEST_F(HelperDeviceList, ComesToEveryPanelWheneverTheDevicesChange) {
    start();
    Panel first;
    Panel second;
    EXPECT_EQ(first.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(second.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(first.countAfterLists(1), 1);
    EXPECT_EQ(second.countAfterLists(1), 1);

    EXPECT_EQ(detachSimulatedMouse(*bus, psn), noErr);
    EXPECT_FALSE(isAttached());
    EXPECT_EQ(first.countAfterLists(2), 0);
    EXPECT_EQ(second.countAfterLists(2), 0);
    EXPECT_EQ(second.lists.back().device[0].vendorID, 0);

    EXPECT_EQ(attachSimulatedMouse(*bus, psn), noErr);
    EXPECT_TRUE(isAttached());
    EXPECT_EQ(first.countAfterLists(3), 1);
    EXPECT_EQ(second.countAfterLists(3), 1);
}

TEST_F(HelperDeviceList, StaysTheSameWhenTheMouseIsAttachedOrDetachedAgain) {
    start();
    Panel panel;
    EXPECT_EQ(panel.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(panel.countAfterLists(1), 1);
    EXPECT_EQ(attachSimulatedMouse(*bus, psn), noErr);
    EXPECT_EQ(panel.countAfterLists(2), 1);
    EXPECT_EQ(detachSimulatedMouse(*bus, psn), noErr);
    EXPECT_EQ(detachSimulatedMouse(*bus, psn), noErr);
    EXPECT_EQ(panel.countAfterLists(4), 0);
}

TEST_F(HelperDeviceList, NoLongerComesToAPanelThatIsHidden) {
    start();
    Panel hidden;
    Panel shown;
    EXPECT_EQ(hidden.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(shown.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(hidden.countAfterLists(1), 1);
    EXPECT_EQ(hidden.command(kMessagePaneShown, 0), noErr);
    EXPECT_EQ(detachSimulatedMouse(*hidden.bus, psn), noErr) << "behind the command, on one connection";
    EXPECT_EQ(shown.countAfterLists(2), 0);
    hidden.catchUp();
    EXPECT_EQ(hidden.lists.size(), 1u);

    EXPECT_EQ(hidden.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(hidden.countAfterLists(2), 0) << "shown again";
}

TEST_F(HelperDeviceList, ComesOnceToAPanelThatSaysTwiceThatItIsShown) {
    start();
    Panel panel;
    EXPECT_EQ(panel.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(panel.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(panel.countAfterLists(2), 1);
    EXPECT_EQ(detachSimulatedMouse(*panel.bus, psn), noErr);
    panel.catchUp();
    EXPECT_EQ(panel.lists.size(), 3u);
}

TEST_F(HelperDeviceList, StillComesToTheOthersWhenAPanelDies) {
    start();
    auto dying = std::make_unique<Panel>();
    Panel living;
    EXPECT_EQ(dying->command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(living.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(living.countAfterLists(1), 1);
    dying.reset();
    EXPECT_EQ(detachSimulatedMouse(*bus, psn), noErr);
    EXPECT_EQ(living.countAfterLists(2), 0);
    EXPECT_TRUE(helper->isRunning());
}

} // namespace
} // namespace quorvi::test
