// Runs of a recording, on a clock of the test's own.

#include "macros/MacroRecorder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "keyboard/VirtualKeys.h"
#include "macros/StepCodes.h"
#include "macros/StepDelays.h"
#include "macros/Steps.h"

namespace quorvi {
namespace {

using test::macroOf;
using test::stepsOf;
using test::TestMacro;

// Virtual key codes, and the USB usages that they are stored as.
constexpr std::uint8_t kA = 0x00;
constexpr std::uint8_t kB = 0x0B;
constexpr std::uint8_t kC = 0x08;
constexpr int kUsageA = 0x04;
constexpr int kUsageB = 0x05;
constexpr int kUsageC = 0x06;
constexpr int kUsageEscape = 0x29;
constexpr int kUsageCommand = 0xE3;
constexpr int kUsageShift = 0xE1;
constexpr int kUsageCapsLock = 0x39;
constexpr int kUsageOption = 0xE2;
constexpr int kUsageControl = 0xE0;

class Recording : public testing::Test {
  protected:
    void start(bool oneStep = false, std::int32_t row = -1) {
        recorder.start(oneStep);
        m_row = row;
    }
    /// The time runs on by that much before the next event.
    void wait(double milliseconds) { now += milliseconds / 1000.0; }
    bool key(std::uint8_t code, bool down, std::uint16_t modifiers = 0) {
        return recorder.receiveKey({steps, m_row}, code, modifiers, down, now);
    }
    bool modifiers(std::uint16_t word) { return key(noKey, true, word); }
    void mouse(std::uint32_t code) { recorder.receiveMouse({steps, m_row}, code, now); }
    void fill(int count) {
        for (int number = 0; number < count; ++number)
            steps.append(test::dict({{"command", 1}, {"argument", 4 + number}, {"delay", 0}}));
    }

    MacroRecorder recorder;
    plist::Array steps = plist::Array::create();
    double now = 1000.0;

  private:
    std::int32_t m_row = -1;
};

TEST_F(Recording, KeysTypedAtEvenIntervalsGetTheDelayAboveThem) {
    start();
    key(kA, true);
    wait(120);
    key(kA, false);
    wait(120);
    key(kB, true);
    wait(120);
    key(kB, false);
    EXPECT_EQ(macroOf(steps),
        (TestMacro{{1, kUsageA, 150}, {0, kUsageA, 150}, {1, kUsageB, 150}, {0, kUsageB, 0}}));
}

TEST_F(Recording, AStepHasThreeEntries) {
    start();
    key(kA, true);
    EXPECT_TRUE(plist::Value(steps) ==
                plist::Value(test::list({test::dict({{"command", 1}, {"argument", 4}, {"delay", 0}})})));
}

TEST_F(Recording, AModifierHeldAroundAKeyIsPressedBeforeAndReleasedAfterIt) {
    start();
    modifiers(shiftModifier);
    key(kA, true, shiftModifier);
    key(kA, false, shiftModifier);
    modifiers(0);
    EXPECT_EQ(macroOf(steps),
        (TestMacro{{1, kUsageShift, 10}, {1, kUsageA, 10}, {0, kUsageA, 10}, {0, kUsageShift, 0}}));
}

TEST_F(Recording, TwoModifiersAtOnceAreRecordedInTheOrderOfTheirBits) {
    start();
    modifiers(controlModifier | commandModifier);
    modifiers(shiftModifier | commandModifier);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kUsageCommand, 10}, {1, kUsageControl, 10}, {1, kUsageShift, 10},
                                  {0, kUsageControl, 0}}));
}

TEST_F(Recording, EveryBitOfTheWordStandsForItsKey) {
    start();
    for (const int bit : {0x0100, 0x0200, 0x0800, 0x1000, 0x2000, 0x4000, 0x8000}) {
        steps.removeAll();
        modifiers(static_cast<std::uint16_t>(bit));
        modifiers(0);
        const int usage = bit == 0x0100                    ? kUsageCommand
                          : bit == 0x0200 || bit == 0x2000 ? kUsageShift
                          : bit == 0x0800 || bit == 0x4000 ? kUsageOption
                                                           : kUsageControl;
        EXPECT_EQ(macroOf(steps), (TestMacro{{1, usage, 10}, {0, usage, 0}})) << bit;
    }
}

TEST_F(Recording, BitsThatAreNoModifiersAreIgnored) {
    start();
    modifiers(0x00FF);
    EXPECT_EQ(macroOf(steps), TestMacro{});
}

TEST_F(Recording, CapsLockIsPressedAndReleasedWhicheverWayItTurns) {
    start();
    modifiers(capsLockModifier);
    wait(200);
    modifiers(0);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kUsageCapsLock, 10}, {0, kUsageCapsLock, 300},
                                  {1, kUsageCapsLock, 10}, {0, kUsageCapsLock, 0}}));
}

TEST_F(Recording, AKeyWithModifiersThatHaveChangedComesBehindThem) {
    start();
    key(kA, true, shiftModifier);
    key(kA, false, 0);
    EXPECT_EQ(macroOf(steps),
        (TestMacro{{1, kUsageShift, 10}, {1, kUsageA, 10}, {0, kUsageShift, 10}, {0, kUsageA, 0}}));
}

TEST_F(Recording, EveryRunBeginsWithoutModifiers) {
    start();
    modifiers(shiftModifier);
    recorder.stop();
    steps.removeAll();
    start();
    key(kA, true, shiftModifier);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kUsageShift, 10}, {1, kUsageA, 0}}));
}

TEST_F(Recording, AnEventThatSaysNothingNewLeavesNoStepAndCounts) {
    start();
    EXPECT_TRUE(modifiers(0));
    EXPECT_EQ(steps.size(), 0U);
    modifiers(shiftModifier);
    EXPECT_TRUE(modifiers(shiftModifier));
    EXPECT_EQ(steps.size(), 1U);
    EXPECT_TRUE(key(kA, true, shiftModifier));
}

TEST_F(Recording, MouseButtonsAndKeysFollowEachOther) {
    start();
    mouse(stepcodes::button2Down);
    wait(30);
    mouse(stepcodes::buttonsUp);
    wait(60);
    key(kA, true);
    EXPECT_EQ(macroOf(steps), (TestMacro{{130, 0, 40}, {128, 0, 100}, {1, kUsageA, 0}}));
}

TEST_F(Recording, TheFirstStepOfARunCountsAsFiftyMillisecondsAfterTheOneBefore) {
    fill(1);
    start();
    wait(3000);
    key(kA, true);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, 4, 100}, {1, kUsageA, 0}}));
}

TEST_F(Recording, TheFirstStepsDelayIsTheSameOnEveryClock) {
    for (const double reading : {0.0, 0.05, 1e7, 780123456.789, 1.76e9, -5.0}) {
        steps.removeAll();
        fill(1);
        now = reading;
        start();
        key(kA, true);
        EXPECT_EQ(macroOf(steps).front().delay, 100) << reading;
    }
}

TEST_F(Recording, AClockThatStandsAtZeroCountsOnFromThere) {
    now = 0;
    start();
    key(kA, true);
    wait(120);
    key(kA, false);
    EXPECT_EQ(macroOf(steps).front().delay, 150);
}

TEST_F(Recording, AnotherRunForgetsWhenTheLastOneEnded) {
    start();
    key(kA, true);
    recorder.stop();
    wait(4500);
    start();
    key(kA, false);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kUsageA, 100}, {0, kUsageA, 0}}));
}

TEST_F(Recording, AClockThatIsSetBackGivesTheShortestDelayAndCountsOnFromThere) {
    start();
    key(kA, true);
    wait(-3600000);
    key(kA, false);
    wait(120);
    key(kB, true);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kUsageA, 10}, {0, kUsageA, 150}, {1, kUsageB, 0}}));
}

TEST_F(Recording, AClockWithoutSenseGivesDelaysOfTheScale) {
    start();
    for (const double reading : {1e300, -1e300, std::numeric_limits<double>::infinity(), std::nan(""), 5.0}) {
        now = reading;
        key(kA, true);
    }
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kUsageA, 10}, {1, kUsageA, 5000}, {1, kUsageA, 10},
                                  {1, kUsageA, 10}, {1, kUsageA, 0}}));
}

TEST_F(Recording, TheSeventeenthStepIsNotStored) {
    start();
    for (int number = 0; number < 17; ++number) {
        key(number % 2 == 0 ? kA : kB, true);
        wait(120);
    }
    ASSERT_EQ(steps.size(), 16U);
    EXPECT_EQ(macroOf(steps).back(), (test::TestStep{1, kUsageB, 0}));
    EXPECT_TRUE(recorder.isRecording());
}

TEST_F(Recording, AMacroThatIsLongerAlreadyStaysAsItIs) {
    fill(20);
    const TestMacro before = macroOf(steps);
    start();
    key(kA, true);
    mouse(stepcodes::button1Down);
    EXPECT_EQ(macroOf(steps), before);
}

TEST_F(Recording, OfTwoModifiersOnlyTheOneThatFitsIsStored) {
    fill(15);
    start();
    modifiers(commandModifier | shiftModifier);
    ASSERT_EQ(steps.size(), 16U);
    EXPECT_EQ(macroOf(steps).back(), (test::TestStep{1, kUsageCommand, 0}));
}

TEST_F(Recording, WithoutStepsNothingIsRecorded) {
    start();
    steps = {};
    EXPECT_FALSE(key(kA, true, shiftModifier));
    mouse(stepcodes::button1Down);
    EXPECT_FALSE(steps);
    // The modifiers were not followed either.
    steps = plist::Array::create();
    key(kA, true, shiftModifier);
    EXPECT_EQ(steps.size(), 2U);
}

TEST_F(Recording, ARunForOneStepReplacesTheSelectedOneAndLeavesItsDelay) {
    steps = stepsOf({{1, kUsageA, 300}, {0, kUsageA, 500}, {1, kUsageB, 20}, {0, kUsageB, 0}});
    start(true, 0);
    key(kC, true);
    EXPECT_EQ(
        macroOf(steps), (TestMacro{{1, kUsageC, 300}, {0, kUsageC, 500}, {1, kUsageB, 20}, {0, kUsageB, 0}}));
}

TEST_F(Recording, ARunForOneStepWithNoneSelectedAppends) {
    fill(1);
    for (const std::int32_t row : {-1, 2, 100}) {
        const std::size_t before = steps.size();
        start(true, row);
        key(kA, true);
        EXPECT_EQ(steps.size(), before + 1) << row;
    }
}

TEST_F(Recording, ARunForOneStepKeepsItsModeWhenItStops) {
    start(true);
    EXPECT_TRUE(recorder.isForOneStep());
    recorder.stop();
    EXPECT_TRUE(recorder.isForOneStep());
    EXPECT_FALSE(recorder.isRecording());
    start(false);
    EXPECT_FALSE(recorder.isForOneStep());
}

TEST_F(Recording, AStepIsSetAtAnIndexAndAppendedOutsideTheList) {
    fill(2);
    recorder.start(false);
    recorder.setStep(steps, 129, 0, 1, now);
    recorder.setStep(steps, 128, 0, 2, now);
    recorder.setStep(steps, 128, 7, -5, now);
    recorder.setStep(steps, 5, 9, std::numeric_limits<std::int32_t>::max(), now);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, 4, 0}, {129, 0, 100}, {128, 0, 10}, {128, 7, 10}, {5, 9, 0}}));
}

TEST_F(Recording, AppendingHasNoLimitOfItsOwn) {
    fill(16);
    recorder.start(false);
    recorder.appendStep(steps, 1, 255, now);
    EXPECT_EQ(steps.size(), 17U);
    EXPECT_EQ(macroOf(steps).back(), (test::TestStep{1, 255, 0}));
}

TEST(SetDelayForAllSteps, LeavesTheLastWithout) {
    const auto steps = stepsOf({{1, 4, 10}, {0, 4, 0}, {1, 5, 70}});
    setDelayForAllSteps(steps, 400);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, 4, 400}, {0, 4, 400}, {1, 5, 0}}));
    setDelayForAllSteps(steps, 0);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, 4, 0}, {0, 4, 0}, {1, 5, 0}}));
    setDelayForAllSteps({}, 5);
    setDelayForAllSteps(plist::Array::create(), 5);
}

TEST_F(Recording, AHeldEscapeIsTakenBackWithTheDelayThatItGave) {
    start();
    key(kA, true);
    key(kA, false);
    wait(700);
    key(escapeKey, true);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kUsageA, 10}, {0, kUsageA, 1000}, {1, kUsageEscape, 0}}));
    EXPECT_TRUE(recorder.isEscapeHeld());
    recorder.takeBackEscape(steps);
    EXPECT_FALSE(recorder.isEscapeHeld());
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kUsageA, 10}, {0, kUsageA, 0}}));
    recorder.takeBackEscape(steps);
    EXPECT_EQ(macroOf(steps).size(), 2U);
}

TEST_F(Recording, AHeldEscapeThatIsTheFirstStepLeavesTheMacroAsItWas) {
    steps = stepsOf({{1, kUsageA, 20}, {0, kUsageA, 30}});
    start();
    key(escapeKey, true);
    recorder.takeBackEscape(steps);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, kUsageA, 20}, {0, kUsageA, 30}}));
    steps.removeAll();
    start();
    key(escapeKey, true);
    recorder.takeBackEscape(steps);
    EXPECT_EQ(macroOf(steps), TestMacro{});
}

TEST_F(Recording, AnInsertionLeavesWhatStandsBeforeItAndWaitsForWhatFollows) {
    fill(3);
    steps.dictionary(0).set("delay", 70);
    recorder.startAt(1);
    key(kA, true);
    wait(120);
    key(kA, false);
    EXPECT_EQ(
        macroOf(steps), (TestMacro{{1, 4, 70}, {1, kUsageA, 150}, {0, kUsageA, 100}, {1, 5, 0}, {1, 6, 0}}));
    EXPECT_EQ(recorder.nextPlace(steps.size()), 3U);
}

TEST_F(Recording, AnInsertionAtTheEndIsAsAnyOtherRecording) {
    fill(1);
    recorder.startAt(1);
    key(kA, true);
    key(kA, false);
    EXPECT_EQ(macroOf(steps), (TestMacro{{1, 4, 100}, {1, kUsageA, 10}, {0, kUsageA, 0}}));
    recorder.stop();
    start();
    key(kB, true);
    EXPECT_EQ(macroOf(steps).back(), (test::TestStep{1, kUsageB, 0}));
}

TEST_F(Recording, AnInsertionEndsAtSixteenSteps) {
    fill(15);
    recorder.startAt(0);
    key(kA, true);
    key(kA, false);
    EXPECT_EQ(steps.size(), 16U);
    EXPECT_EQ(macroOf(steps).front(), (test::TestStep{1, kUsageA, 100}));
    EXPECT_EQ(macroOf(steps)[1], (test::TestStep{1, 4, 0}));
}

TEST_F(Recording, AHeldEscapeIsTakenBackFromAnInsertion) {
    fill(2);
    recorder.startAt(1);
    key(kA, true);
    wait(500);
    const TestMacro before = macroOf(steps);
    key(escapeKey, true);
    EXPECT_EQ(steps.size(), 4U);
    recorder.takeBackEscape(steps);
    EXPECT_EQ(macroOf(steps), before);
    key(kA, false);
    EXPECT_EQ(macroOf(steps)[2].command, 0);
    recorder.startAt(0);
    key(escapeKey, true);
    recorder.takeBackEscape(steps);
    EXPECT_EQ(macroOf(steps).front(), (test::TestStep{1, 4, 0}));
}

TEST_F(Recording, AMacroThatIsFullLosesNoStepToAHeldEscape) {
    fill(16);
    start();
    key(escapeKey, true);
    EXPECT_TRUE(recorder.isEscapeHeld());
    recorder.takeBackEscape(steps);
    EXPECT_EQ(steps.size(), 16U);
}

TEST_F(Recording, EscapeIsNoLongerHeldAfterAnyOtherEvent) {
    const auto isHeldAfter = [&](const auto& event) {
        start();
        key(escapeKey, true);
        event();
        return recorder.isEscapeHeld();
    };
    EXPECT_TRUE(isHeldAfter([] {}));
    EXPECT_FALSE(isHeldAfter([&] { key(escapeKey, false); }));
    EXPECT_FALSE(isHeldAfter([&] { key(kA, true); }));
    EXPECT_FALSE(isHeldAfter([&] { modifiers(shiftModifier); }));
    EXPECT_FALSE(isHeldAfter([&] { mouse(stepcodes::buttonsUp); }));
    EXPECT_FALSE(isHeldAfter([&] { recorder.stop(); }));
    EXPECT_FALSE(isHeldAfter([&] { start(); }));
}

TEST_F(Recording, EscapeIsHeldOnlyByItselfAndNotInARunOfOneStep) {
    for (const std::uint16_t word : {shiftModifier, controlModifier, commandModifier, optionModifier}) {
        start();
        key(escapeKey, true, word);
        EXPECT_FALSE(recorder.isEscapeHeld()) << word;
    }
    start();
    key(escapeKey, true, capsLockModifier); // the lock stays on for hours
    EXPECT_TRUE(recorder.isEscapeHeld());
    start();
    key(kA, true);
    EXPECT_FALSE(recorder.isEscapeHeld());
    start(true, 0);
    key(escapeKey, true);
    EXPECT_FALSE(recorder.isEscapeHeld());
}

TEST_F(Recording, TellsWhereCapsLockIsThatWasOnBefore) {
    fill(2);
    start();
    recorder.findModifiers(capsLockModifier);
    key(kA, true, capsLockModifier);
    EXPECT_EQ(recorder.placeOfFoundCapsLock(), 2U);
    EXPECT_EQ(steps.dictionary(2).integer("argument"), kUsageCapsLock);
    EXPECT_EQ(steps.dictionary(3).integer("argument"), kUsageCapsLock);
    start();
    EXPECT_FALSE(recorder.placeOfFoundCapsLock());
}

TEST_F(Recording, TellsWhereCapsLockIsInTheMiddle) {
    fill(2);
    recorder.startAt(1);
    recorder.findModifiers(capsLockModifier);
    key(kA, true, capsLockModifier);
    EXPECT_EQ(recorder.placeOfFoundCapsLock(), 1U);
    EXPECT_EQ(steps.dictionary(1).integer("argument"), kUsageCapsLock);
}

TEST_F(Recording, TellsNothingOfCapsLockThatIsTyped) {
    start();
    recorder.findModifiers(0);
    modifiers(capsLockModifier);
    EXPECT_EQ(steps.size(), 2U);
    EXPECT_FALSE(recorder.placeOfFoundCapsLock());
    recorder.findModifiers(capsLockModifier); // before the second event
    key(kA, true, capsLockModifier);
    modifiers(0);
    EXPECT_FALSE(recorder.placeOfFoundCapsLock());
}

TEST_F(Recording, TellsNothingOfCapsLockThatIsSwitchedOffFirst) {
    start();
    recorder.findModifiers(capsLockModifier);
    modifiers(0);
    modifiers(capsLockModifier);
    EXPECT_EQ(steps.size(), 2U);
    EXPECT_FALSE(recorder.placeOfFoundCapsLock());
}

TEST_F(Recording, TellsNothingOfCapsLockThatAFullMacroOrAStepTakes) {
    fill(15);
    start();
    recorder.findModifiers(capsLockModifier);
    key(kA, true, capsLockModifier);
    EXPECT_FALSE(recorder.placeOfFoundCapsLock());
    start(true, 3);
    recorder.findModifiers(capsLockModifier);
    key(kA, true, capsLockModifier);
    EXPECT_FALSE(recorder.placeOfFoundCapsLock());
    EXPECT_EQ(steps.dictionary(3).integer("argument"), kUsageA);
}

} // namespace
} // namespace quorvi
