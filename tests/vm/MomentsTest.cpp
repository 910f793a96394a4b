// Whatever happens to the service or the mouse, at whatever moment: no key stays down, and the plain mouse is
// back with its next report. tests/vm/run sets the number of moments and the seed.
#include <array>
#include <csignal>
#include <cstdlib>
#include <random>

#include "vm/support/Serviced.h"

namespace quorvi::test {
namespace {

int numberOf(const char* variable, int usual) {
    const char* text = std::getenv(variable);
    return text ? std::atoi(text) : usual;
}

class MomentsTest : public ServicedTest {
  protected:
    int moments = numberOf("QUORVI_VM_MOMENTS", 8);

    /// A number from 0 on, below the limit.
    int chance(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }

    /// Does something with the mouse, in the midst of which the moment comes.
    void stir(FakeMouse& fake, std::set<std::uint16_t>& held) {
        constexpr std::array buttons{
            BTN_LEFT, BTN_RIGHT, BTN_MIDDLE, BTN_SIDE, BTN_EXTRA, BTN_FORWARD, BTN_BACK};
        for (int act = chance(6); act >= 0; --act) {
            const auto button = static_cast<std::uint16_t>(buttons[static_cast<std::size_t>(chance(7))]);
            if (chance(4) == 0)
                fake.move(chance(9) - 4, 1);
            else if (held.insert(button).second)
                fake.press(button);
            else if (held.erase(button) > 0)
                fake.release(button);
        }
        // The moment itself is what chance chooses.
        std::this_thread::sleep_for(std::chrono::microseconds(chance(30'000)));
    }
    static void letGo(FakeMouse& fake, std::set<std::uint16_t>& held) {
        for (const auto button : held)
            fake.release(button);
        held.clear();
    }
    [[nodiscard]] bool allUp() {
        return desk.waitUntil([&] { return desk.held().empty(); });
    }
    /// One report, and it is there, from the mouse itself.
    [[nodiscard]] bool nextReportIsPlain(FakeMouse& fake) {
        desk.look();
        desk.forget();
        fake.send({{FakeMouse::Part{EV_REL, REL_X, 77}}});
        return desk.waitUntil([&] {
            for (const auto& event : desk.events())
                if (event.device == "Test mouse" && event.value == 77)
                    return true;
            return false;
        });
    }
    void waitUntilItIsDriven() { ASSERT_TRUE(waitUntilDriven(mouse, desk)); }

    static TestRecord record() {
        auto record = busyRecord();
        for (const int profile : {1, 2})
            record.function(profile, 1, 1).function(profile, 2, kPageDown).function(profile, 3, 8);
        return record;
    }

    std::set<std::uint16_t> down;

  private:
    std::mt19937 m_random{static_cast<unsigned>(numberOf("QUORVI_VM_SEED", 1))};
};

TEST_F(MomentsTest, KilledItLeavesNoKeyDownAndAPlainMouse) {
    for (int moment = 0; moment < moments; ++moment) {
        SCOPED_TRACE(moment);
        use(mouse, record());
        stir(mouse, down);
        inputd->kill();
        ASSERT_TRUE(allUp());
        ASSERT_TRUE(nextReportIsPlain(mouse));
        letGo(mouse, down);
        ASSERT_TRUE(allUp());
        startService();
    }
}

TEST_F(MomentsTest, StoppedAndContinuedItLeavesNoKeyDown) {
    use(mouse, record());
    for (int moment = 0; moment < moments; ++moment) {
        SCOPED_TRACE(moment);
        stir(mouse, down);
        inputd->signal(SIGSTOP);
        stir(mouse, down);
        for (int i = chance(3) * 100; i > 0; --i)
            mouse.move(1, 0); // more than the kernel keeps
        letGo(mouse, down);
        inputd->signal(SIGCONT);
        ASSERT_TRUE(allUp());
        waitUntilItIsDriven();
    }
}

TEST_F(MomentsTest, UnpluggedTheMouseLeavesNoKeyDown) {
    auto fake = std::make_unique<FakeMouse>(MouseDescription{"Second mouse", 2, {}});
    use(*fake, record(), "Second mouse");
    for (int moment = 0; moment < moments; ++moment) {
        SCOPED_TRACE(moment);
        stir(*fake, down);
        fake->unplug();
        down.clear();
        ASSERT_TRUE(allUp());
        fake = std::make_unique<FakeMouse>(MouseDescription{"Second mouse", 2, {}});
        ASSERT_TRUE(waitUntilDriven(*fake, desk));
    }
}

TEST_F(MomentsTest, ASecondMouseThatComesAndGoesLeavesTheFirstItsKeys) {
    use(mouse, record());
    auto fake = std::make_unique<FakeMouse>(MouseDescription{"Second mouse", 2, {}});
    use(*fake, record(), "Second mouse");
    std::set<std::uint16_t> otherDown;
    for (int moment = 0; moment < moments; ++moment) {
        SCOPED_TRACE(moment);
        stir(*fake, otherDown);
        mouse.press(BTN_EXTRA);
        ASSERT_TRUE(desk.waitUntil([&] { return desk.held().contains(KEY_LEFTCTRL); }));
        stir(*fake, otherDown);
        fake->unplug();
        otherDown.clear();
        ASSERT_TRUE(desk.waitUntil([&] { return desk.held() == std::set<std::uint16_t>{KEY_LEFTCTRL}; }));
        mouse.release(BTN_EXTRA);
        ASSERT_TRUE(allUp());
        fake = std::make_unique<FakeMouse>(MouseDescription{"Second mouse", 2, {}});
        ASSERT_TRUE(waitUntilDriven(*fake, desk));
    }
}

TEST_F(MomentsTest, AnotherSessionLeavesNoKeyDownAndAPlainMouse) {
    for (int moment = 0; moment < moments; ++moment) {
        SCOPED_TRACE(moment);
        use(mouse, record());
        stir(mouse, down);
        showSession({kBerta});
        ASSERT_TRUE(desk.waitForNoDevice("Quorvi virtual pointer"));
        ASSERT_TRUE(allUp());
        ASSERT_TRUE(nextReportIsPlain(mouse));
        letGo(mouse, down);
        ASSERT_TRUE(allUp());
        showSession({});
    }
}

} // namespace
} // namespace quorvi::test
