// A panel killed while recording sends no message: the helper must notice its end.
#include "events/ProcessName.h"
#include "helper/HelperFixture.h"
#include "support/EventMonitor.h"

namespace quorvi::test {
namespace {

class LostRecorder : public HelperTest {
  protected:
    void SetUp() override {
        HelperTest::SetUp();
        start();
    }
    [[nodiscard]] bool isRecording() {
        bool recording = false;
        EXPECT_EQ(getSimulatedMouseRecording(*bus, psn, recording), noErr);
        return recording;
    }
    /// Waits for the helper to have taken it in.
    [[nodiscard]] bool tells(Panel& panel, FourCharCode message, std::int32_t parameter, bool recording) {
        return panel.command(message, parameter) == noErr &&
               waitFor(*bus, [&] { return isRecording() == recording; });
    }
    /// The bus has told everybody that the panel is gone, and the helper has answered since.
    void lose(std::unique_ptr<Panel>& panel) {
        ASSERT_EQ(panel->bus->ownName("Lost"), NameResult::owned);
        panel.reset();
        ASSERT_TRUE(waitFor(*bus, [&] { return bus->findProcessByName("Lost", nullptr) == procNotFound; }));
    }

    std::unique_ptr<Panel> recorder = std::make_unique<Panel>();
    std::unique_ptr<Panel> other = std::make_unique<Panel>();
};

TEST_F(LostRecorder, EndsItsRecording) {
    ASSERT_EQ(recorder->command(kMessagePaneShown, 1), noErr);
    ASSERT_TRUE(tells(*recorder, kMessageRecording, 1, true));
    lose(recorder);
    EXPECT_TRUE(waitFor(*bus, [&] { return !isRecording(); }));
}

TEST_F(LostRecorder, EndsItsRecordingAfterItWasHidden) {
    ASSERT_EQ(recorder->command(kMessagePaneShown, 1), noErr);
    ASSERT_TRUE(tells(*recorder, kMessageRecording, 1, true));
    ASSERT_EQ(recorder->command(kMessagePaneShown, 0), noErr);
    lose(recorder);
    EXPECT_TRUE(waitFor(*bus, [&] { return !isRecording(); }));
}

TEST_F(LostRecorder, LeavesTheRecordingOfAnother) {
    ASSERT_EQ(recorder->command(kMessagePaneShown, 1), noErr);
    ASSERT_TRUE(tells(*recorder, kMessageRecording, 1, true));
    ASSERT_EQ(other->command(kMessagePaneShown, 1), noErr);
    ASSERT_TRUE(tells(*other, kMessageRecording, 1, true));
    ASSERT_EQ(other->countAfterLists(1), 1); // the other's recording came before it
    lose(recorder);
    other->catchUp();
    EXPECT_TRUE(isRecording());
    lose(other);
    EXPECT_TRUE(waitFor(*bus, [&] { return !isRecording(); }));
}

// As when somebody types the command.
TEST_F(LostRecorder, KeepsTheRecordingOfAProgramThatOnlyCameToSaySo) {
    ASSERT_TRUE(tells(*recorder, kMessageRecording, 1, true));
    lose(recorder);
    other->catchUp();
    EXPECT_TRUE(isRecording());
}

// As a panel it is watched on.
TEST_F(LostRecorder, IsNotToldOfTheMouseAfterItsRecording) {
    ASSERT_EQ(recorder->command(kMessagePaneShown, 1), noErr);
    ASSERT_TRUE(tells(*recorder, kMessageRecording, 1, true));
    ASSERT_TRUE(tells(*recorder, kMessageRecording, 0, false));
    ASSERT_EQ(other->command(kMessagePaneShown, 1), noErr);
    ASSERT_EQ(other->countAfterLists(1), 1);
    lose(recorder);
    EventMonitor monitor(privateBus.address());
    ASSERT_EQ(detachSimulatedMouse(*bus, psn), noErr);
    const std::string last = events::uniqueName(other->bus->processSerialNumber());
    EXPECT_EQ(monitor.destinationsUntil(last), std::vector{last});
}

} // namespace
} // namespace quorvi::test
