// The helper in a storm of malformed events and of commands. The full one, of 10,000 of either:
//     QUORVI_STORM=10000 build/bin/quorvi-helper-tests --gtest_filter='HelperStorm.*'
#include "support/Storm.h"

#include <csignal>

#include "helper/HelperFixture.h"
#include "support/ProcessFigures.h"

namespace quorvi::test {
namespace {

/// By how much memory may differ after the storm, in KiB: pages that the allocator happens to touch.
constexpr std::int64_t kMemoryMargin = 512;

class HelperStorm : public HelperTest {
  protected:
    void SetUp() override {
        HelperTest::SetUp();
        writeFile(userSettings, readFile(QUORVI_TEST_DATA "/vectors/case-023.plist"));
        start();
        storm = std::make_unique<Storm>(psn);
    }
    void sendCommands(int count) {
        constexpr std::array messages{kMessagePaneShown, kMessageSettingsSaved, kMessageRecording};
        constexpr std::array parameters{1, 0, -1, 1 << 30, -(1 << 30)};
        for (std::size_t i = 0; i < std::size_t(count); ++i) {
            storm->sendMalformed();
            storm->sendCommand(messages[i % messages.size()], parameters[i % parameters.size()]);
        }
    }

    std::unique_ptr<Storm> storm;
};

TEST_F(HelperStorm, LeavesTheMouseAndTheMemoryAsTheyWere) {
    const int size = stormSize();
    const std::string before = record();
    sendCommands(size / 10);
    ASSERT_TRUE(storm->isTakenIn());
    const MemoryFigures first = memoryOf(helper->pid());
    sendCommands(size - size / 10);
    ASSERT_TRUE(storm->isTakenIn());
    const MemoryFigures last = memoryOf(helper->pid());
    std::printf("%d commands and %d malformed events: memory %lld -> %lld KiB, heap %lld -> %lld KiB\n", size,
        size, static_cast<long long>(first.resident), static_cast<long long>(last.resident),
        static_cast<long long>(first.anonymous), static_cast<long long>(last.anonymous));
#ifndef __SANITIZE_ADDRESS__
    EXPECT_LE(last.resident, first.resident + kMemoryMargin);
    EXPECT_LE(last.anonymous, first.anonymous + kMemoryMargin);
#endif
    EXPECT_EQ(record(), before);
    EXPECT_EQ(ask(kMessageRecording, 0), 0);
    EXPECT_EQ(ask(kMessagePaneShown, 1), 1);
    helper->signal(SIGTERM);
    EXPECT_EQ(helper->wait(), 0);
    EXPECT_EQ(helper->readError(), "");
}

TEST_F(HelperStorm, WakesTheHelperNoMoreWhenItIsOver) {
    sendCommands(50);
    ASSERT_TRUE(storm->isTakenIn());
    ASSERT_TRUE(comesToRest(helper->pid()));
    const auto before = sleepsOf(helper->pid());
    std::this_thread::sleep_for(std::chrono::seconds(1)); // nothing announces that nothing happens
    EXPECT_EQ(sleepsOf(helper->pid()), before);
}

TEST_F(HelperStorm, DoesNotKeepTheHelperFromEnding) {
    std::atomic<bool> stop = false;
    std::atomic<int> sent = 0;
    std::thread sender([&] {
        // Each of them reads the settings file, so that more have come by the time it is done.
        for (; !stop && sent < 200'000; ++sent)
            storm->sendCommand(kMessageSettingsSaved, 0);
    });
    while (sent < 1000)
        std::this_thread::yield();
    const auto asked = std::chrono::steady_clock::now();
    helper->signal(SIGTERM);
    EXPECT_EQ(helper->wait(std::chrono::seconds(5)), 0);
    const auto taken = std::chrono::steady_clock::now() - asked;
    std::printf("ended after %lld ms\n",
        static_cast<long long>(std::chrono::duration_cast<std::chrono::milliseconds>(taken).count()));
    stop = true;
    sender.join();
}

} // namespace
} // namespace quorvi::test
