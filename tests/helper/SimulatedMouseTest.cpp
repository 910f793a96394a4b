// The simulated mouse of the real helper, used over the bus: its output under the user's settings.
#include <algorithm>

#include <linux/input-event-codes.h>

#include "helper/HelperFixture.h"
#include "model/Trees.h"
#include "plist/Writer.h"

namespace quorvi::test {
namespace {

/// A change without its time.
struct Seen {
    int type = 0;
    int code = 0;
    int value = 0;

    bool operator==(const Seen&) const = default;
};

void PrintTo(const Seen& seen, std::ostream* stream) {
    *stream << seen.type << ' ' << seen.code << ' ' << seen.value;
}

constexpr Seen kEndOfFrame{EV_SYN, SYN_REPORT, 0};

plist::Dictionary profileWith(std::u16string name, plist::Dictionary buttons) {
    auto made = profile(std::move(name));
    made.set("buttons", buttons);
    made.set("stages", list({stage(800, 400), stage(1600, 1600)}));
    made.set("defaultstage", 2);
    return made;
}

plist::Dictionary step(int command, int argument, int delay) {
    return dict({{"command", command}, {"argument", argument}, {"delay", delay}});
}

plist::Dictionary everyday() {
    const auto first = dict({{"01", assignment(1, 0, 0)}, {"02", assignment(97, 0, 0)},
        {"03", assignment(65, 7, 1)}, {"04", assignment(16, 0, 0)}, {"05", assignment(34, 2, 0)},
        {"06", assignment(9, 0, 0)}, {"08", assignment(8, 0, 0)}, {"09", assignment(84, 0, 0)}});
    auto macro7 = macro(7);
    macro7.set("delay", 0);
    macro7.set("steps", list({step(1, 4, 20), step(0, 4, 130), step(1, 5, 10), step(0, 5, 0)}));
    auto made =
        tree(list({profileWith(u"One", first), profileWith(u"Two", dict({{"01", assignment(1, 0, 0)}}))}),
            list({macro7}));
    made.set("settings", dict({{"profileid", 1}, {"stage", 1}, {"dpix", 800}, {"dpiy", 400}}));
    return made;
}

class SimulatedMouseByHand : public HelperTest {
  protected:
    void SetUp() override {
        HelperTest::SetUp();
        save(everyday());
        start();
        listener = SimulatedMouseListener::listen(*bus, psn, [this](std::span<const EmittedEvent> frame) {
            heard.insert(heard.end(), frame.begin(), frame.end());
        });
        ASSERT_NE(listener, nullptr);
    }

    void save(const plist::Dictionary& settings) const {
        writeFile(userSettings, plist::writeXml(dict({{"quorvi", settings}})).value());
    }
    void press(int input) {
        EXPECT_EQ(pressSimulatedMouse(*bus, psn, static_cast<std::uint8_t>(input)), noErr);
    }
    void release(int input) {
        EXPECT_EQ(releaseSimulatedMouse(*bus, psn, static_cast<std::uint8_t>(input)), noErr);
    }
    /// What was heard, once it is as long as the list.
    void expectHeard(const std::vector<Seen>& expected) {
        EXPECT_TRUE(waitFor(*bus, [&] { return heard.size() >= expected.size(); }));
        std::vector<Seen> seen;
        for (const auto& event : heard)
            seen.push_back({event.type, event.code, event.value});
        EXPECT_EQ(seen, expected);
    }
    [[nodiscard]] std::pair<unsigned, unsigned> running() {
        std::uint32_t profile = 99;
        std::uint32_t stage = 99;
        EXPECT_EQ(getSimulatedMouseProfile(*bus, psn, profile), noErr);
        EXPECT_EQ(getSimulatedMouseStage(*bus, psn, stage), noErr);
        return {profile, stage};
    }
    /// What the kernel says of the helper's timer.
    [[nodiscard]] bool timerIsOff() const {
        const auto files = "/proc/" + std::to_string(helper->pid()) + "/fdinfo";
        for (const auto& file : std::filesystem::directory_iterator(files))
            if (const auto text = readFile(file.path()); text.find("clockid:") != std::string::npos)
                return text.find("it_value: (0, 0)") != std::string::npos;
        ADD_FAILURE() << "it has no timer";
        return false;
    }

    std::unique_ptr<SimulatedMouseListener> listener;
    std::vector<EmittedEvent> heard;
};

TEST_F(SimulatedMouseByHand, SendsWhatItsSettingsSay) {
    press(1);
    release(1);
    press(2);
    release(2);
    press(8);
    release(8);
    press(9);
    expectHeard({{EV_KEY, BTN_LEFT, 1}, kEndOfFrame, {EV_KEY, BTN_LEFT, 0}, kEndOfFrame,
        {EV_KEY, KEY_PAGEDOWN, 1}, kEndOfFrame, {EV_KEY, KEY_PAGEDOWN, 0}, kEndOfFrame,
        {EV_REL, REL_WHEEL, 1}, {EV_REL, REL_WHEEL_HI_RES, 120}, kEndOfFrame, {EV_KEY, KEY_VOLUMEUP, 1},
        kEndOfFrame, {EV_KEY, KEY_VOLUMEUP, 0}, kEndOfFrame});
    EXPECT_TRUE(timerIsOff());
}

TEST_F(SimulatedMouseByHand, HasASensorOf1600Dpi) {
    EXPECT_EQ(moveSimulatedMouse(*bus, psn, 10, -8), noErr);
    expectHeard({{EV_REL, REL_X, 5}, {EV_REL, REL_Y, -2}, kEndOfFrame});
}

TEST_F(SimulatedMouseByHand, TellsTheTimeOfTheSteadyClock) {
    const auto now = [] {
        return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::microseconds>(
            std::chrono::steady_clock::now().time_since_epoch())
                                              .count());
    };
    const auto before = now();
    press(1);
    ASSERT_TRUE(waitFor(*bus, [&] { return !heard.empty(); }));
    EXPECT_GE(heard[0].time, before);
    EXPECT_LE(heard[0].time, now());
}

TEST_F(SimulatedMouseByHand, PlaysAMacroWithItsDelays) {
    const std::vector<std::uint64_t> delays{20'000, 130'000, 10'000};
    std::vector<std::uint64_t> least(delays.size(), 1'000'000);
    const auto isToTheMillisecond = [](auto is, auto wanted) { return is <= wanted + 1000; };
    // A machine that is busy wakes the helper late now and then, and never too early.
    for (int attempt = 0; attempt < 50 && !std::ranges::equal(least, delays, isToTheMillisecond); ++attempt) {
        heard.clear();
        press(3);
        release(3);
        expectHeard({{EV_KEY, KEY_A, 1}, kEndOfFrame, {EV_KEY, KEY_A, 0}, kEndOfFrame, {EV_KEY, KEY_B, 1},
            kEndOfFrame, {EV_KEY, KEY_B, 0}, kEndOfFrame});
        ASSERT_FALSE(HasFailure());
        for (std::size_t i = 0; i < delays.size(); ++i)
            least[i] = std::min(least[i], heard[2 * i + 2].time - heard[2 * i].time);
    }
    for (std::size_t i = 0; i < delays.size(); ++i) {
        EXPECT_GE(least[i], delays[i]);
        EXPECT_LE(least[i], delays[i] + 1000);
    }
    EXPECT_TRUE(waitFor(*bus, [&] { return timerIsOff(); }));
}

TEST_F(SimulatedMouseByHand, GoesOnScrollingUntilTheRelease) {
    press(6);
    EXPECT_FALSE(timerIsOff());
    ASSERT_TRUE(waitFor(*bus, [&] { return heard.size() >= 9; }));
    release(6);
    EXPECT_TRUE(timerIsOff());
    EXPECT_EQ(heard[0].value, -1);
    EXPECT_GE(heard[3].time - heard[0].time, 300'000U);
    EXPECT_GE(heard[6].time - heard[3].time, 60'000U);
}

TEST_F(SimulatedMouseByHand, SaysWhichProfileAndStageItRuns) {
    EXPECT_EQ(running(), std::pair(1U, 1U));
    press(4);
    EXPECT_EQ(running(), std::pair(1U, 2U));
    release(4);
    press(5);
    EXPECT_EQ(running(), std::pair(2U, 2U));
    auto other = everyday();
    other.dictionary("settings").set("stage", 2);
    save(other);
    EXPECT_EQ(ask(kMessageSettingsSaved, 0), 1);
    EXPECT_EQ(running(), std::pair(1U, 2U));
}

TEST_F(SimulatedMouseByHand, FollowsTheAccelerationOfItsProfile) {
    auto fast = everyday();
    fast.array("profiles").dictionary(0).set("driver", dict({{"acceleration", 2.0}, {"enableaccel", true}}));
    fast.array("profiles").dictionary(0).set("stages", list({stage(1600, 1600)}));
    save(fast);
    EXPECT_EQ(ask(kMessageSettingsSaved, 0), 1);
    // However long one call takes: by the second the hand is the fastest.
    const auto end = std::chrono::steady_clock::now() + kPatience;
    std::int32_t largest = 0;
    while (largest < 20000 && std::chrono::steady_clock::now() < end) {
        EXPECT_EQ(moveSimulatedMouse(*bus, psn, 10000, 0), noErr);
        bus->process();
        for (const auto& event : heard)
            largest = std::max(largest, event.value);
    }
    EXPECT_EQ(largest, 20000);
}

TEST_F(SimulatedMouseByHand, RefusesInputsThatItDoesNotHave) {
    for (const int input : {0, 10, 255}) {
        EXPECT_EQ(pressSimulatedMouse(*bus, psn, static_cast<std::uint8_t>(input)), paramErr);
        EXPECT_EQ(releaseSimulatedMouse(*bus, psn, static_cast<std::uint8_t>(input)), paramErr);
    }
    EXPECT_TRUE(heard.empty());
}

TEST_F(SimulatedMouseByHand, LetsGoOfEverythingWhenItIsUnplugged) {
    press(2);
    EXPECT_EQ(detachSimulatedMouse(*bus, psn), noErr);
    EXPECT_EQ(releaseSimulatedMouse(*bus, psn, 2), errAEEventFailed);
    EXPECT_EQ(pressSimulatedMouse(*bus, psn, 2), errAEEventFailed);
    EXPECT_EQ(moveSimulatedMouse(*bus, psn, 1, 1), errAEEventFailed);
    EXPECT_EQ(attachSimulatedMouse(*bus, psn), noErr);
    press(1);
    expectHeard({{EV_KEY, KEY_PAGEDOWN, 1}, kEndOfFrame, {EV_KEY, KEY_PAGEDOWN, 0}, kEndOfFrame,
        {EV_KEY, BTN_LEFT, 1}, kEndOfFrame});
}

TEST_F(SimulatedMouseByHand, PlaysNoMacroWhileThePanelRecordsOne) {
    EXPECT_EQ(ask(kMessageRecording, 1), 1);
    press(3);
    EXPECT_EQ(ask(kMessageRecording, 0), 0);
    EXPECT_TRUE(timerIsOff());
    release(3);
    press(1);
    expectHeard({{EV_KEY, BTN_LEFT, 1}, kEndOfFrame});
}

} // namespace
} // namespace quorvi::test
