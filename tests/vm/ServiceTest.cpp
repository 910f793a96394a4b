// The service on the machine's bus: its access rules, and the life of a mouse in use.
#include <algorithm>
#include <csignal>
#include <fstream>
#include <regex>

#include "events/Introspection.h"
#include "support/ProcessFigures.h"
#include "vm/support/Serviced.h"

namespace quorvi::test {
namespace {

constexpr char kNoAccess[] = "org.freedesktop.DBus.Error.AccessDenied";
constexpr char kNotValid[] = "org.freedesktop.DBus.Error.InvalidArgs";
constexpr char kNoMouse[] = "com.kyvar.Inputd1.Error.NoSuchMouse";

/// What the kernel counts as the process' own share of memory (Pss), in KiB; 0 when it is gone.
long proportionalMemoryOf(pid_t process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/smaps_rollup");
    for (std::string word; file >> word;)
        if (word == "Pss:" && file >> word)
            return std::stol(word);
    return 0;
}

TEST_F(ServicedTest, TheUserAtTheMachineUsesAMouseAndForgetsIt) {
    use(mouse, busyRecord());
    mouse.press(BTN_SIDE);
    mouse.release(BTN_SIDE);
    EXPECT_TRUE(desk.waitForKey(KEY_LEFTSHIFT, 0));
    EXPECT_EQ(desk.keys(), "42+ 30+ 30- 42-");
    const auto id = anna.mouseNamed("Test mouse");
    EXPECT_EQ(anna.forget(id), "");
    EXPECT_EQ(stateOf(id), kNoMouse);
    EXPECT_TRUE(isPlainAgain(mouse));
}

TEST_F(ServicedTest, NobodyElseSeesAMouseUsesItChangesItOrForgetsIt) {
    use(mouse, busyRecord());
    const auto id = anna.mouseNamed("Test mouse");
    Caller root(0);
    for (auto* other : {&berta, &root}) {
        std::vector<ListedMouse> mice;
        Status status;
        EXPECT_EQ(other->list(mice), kNoAccess);
        EXPECT_EQ(other->use(id, TestRecord()), kNoAccess);
        EXPECT_EQ(other->use("no such mouse", TestRecord()), kNoAccess);
        EXPECT_EQ(other->setRecord(id, TestRecord()), kNoAccess);
        EXPECT_EQ(other->forget(id), kNoAccess);
        EXPECT_EQ(other->status(id, status), kNoAccess);
        EXPECT_EQ(other->watch(true), kNoAccess);
    }
    EXPECT_EQ(stateOf(id), "driven");
}

TEST_F(ServicedTest, NeitherARemoteSessionNorAGreeterNorOneThatEndsIsAtTheMachine) {
    std::vector<ListedMouse> mice;
    showSession({kAnna, "user", "active", true});
    EXPECT_EQ(anna.list(mice), kNoAccess);
    showSession({kAnna, "greeter", "active", false});
    EXPECT_EQ(anna.list(mice), kNoAccess);
    showSession({kAnna, "user", "closing", false});
    EXPECT_EQ(anna.list(mice), kNoAccess);
    showNobody();
    EXPECT_EQ(anna.list(mice), kNoAccess);
    showSession({});
    EXPECT_EQ(anna.list(mice), "");
}

TEST_F(ServicedTest, PolkitIsAskedOnceForAUserAlsoOverARestart) {
    use(mouse, busyRecord());
    EXPECT_EQ(managers.timesAsked(), 1);
    const auto id = anna.mouseNamed("Test mouse");
    EXPECT_EQ(anna.forget(id), "");
    inputd->signal(SIGTERM);
    EXPECT_EQ(inputd->wait(), 0);
    startService();
    use(mouse, busyRecord());
    EXPECT_EQ(managers.timesAsked(), 1);
}

TEST_F(ServicedTest, WhomPolkitDoesNotLetUsesNoMouse) {
    managers.letsUser = false;
    const auto id = anna.mouseNamed("Test mouse");
    EXPECT_EQ(anna.use(id, busyRecord()), kNoAccess);
    EXPECT_EQ(stateOf(id), kNoMouse);
    EXPECT_FALSE(desk.has("Quorvi virtual keyboard"));
    EXPECT_EQ(anna.use(id, busyRecord()), kNoAccess);
    EXPECT_EQ(managers.timesAsked(), 2);
}

TEST_F(ServicedTest, AnotherSessionReleasesWhatIsHeldAndForgetsTheMouse) {
    use(mouse, busyRecord());
    mouse.press(BTN_EXTRA);
    ASSERT_TRUE(desk.waitForKey(KEY_LEFTCTRL, 1));
    const auto id = anna.mouseNamed("Test mouse");
    showSession({kBerta});
    EXPECT_TRUE(desk.waitForKey(KEY_LEFTCTRL, 0));
    EXPECT_EQ(stateOf(id), kNoAccess);
    mouse.release(BTN_EXTRA);
    EXPECT_TRUE(isPlainAgain(mouse));
    // Who comes back starts anew.
    showSession({});
    EXPECT_EQ(stateOf(id), kNoMouse);
    EXPECT_TRUE(isPlainAgain(mouse));
    use(mouse, busyRecord());
}

TEST_F(ServicedTest, LoggingOutReleasesWhatIsHeldAndForgetsTheMouse) {
    use(mouse, busyRecord());
    mouse.press(BTN_EXTRA);
    ASSERT_TRUE(desk.waitForKey(KEY_LEFTCTRL, 1));
    showNobody();
    EXPECT_TRUE(desk.waitForKey(KEY_LEFTCTRL, 0));
    mouse.release(BTN_EXTRA);
    EXPECT_TRUE(isPlainAgain(mouse));
}

TEST_F(ServicedTest, TheMouseKeepsItsRecordWhenWhoSetItHasLeftTheBus) {
    {
        Caller helper(kAnna);
        ASSERT_EQ(helper.use(helper.mouseNamed("Test mouse"), busyRecord()), "");
    }
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    mouse.press(BTN_SIDE);
    EXPECT_TRUE(desk.waitForKey(KEY_A, 1));
    mouse.release(BTN_SIDE);
    EXPECT_TRUE(desk.waitForKey(KEY_LEFTSHIFT, 0));
}

TEST_F(ServicedTest, AMouseThatIsPluggedInAgainIsDrivenAgain) {
    auto other = std::make_unique<FakeMouse>(MouseDescription{"Second mouse", 2, {}});
    use(*other, busyRecord(), "Second mouse");
    const auto id = anna.mouseNamed("Second mouse");
    other->press(BTN_EXTRA);
    ASSERT_TRUE(desk.waitForKey(KEY_LEFTCTRL, 1));
    other->unplug();
    EXPECT_TRUE(desk.waitForKey(KEY_LEFTCTRL, 0));
    EXPECT_TRUE(waitUntil([&] { return stateOf(id) == "absent"; }));
    EXPECT_TRUE(desk.waitForNoDevice("Quorvi virtual pointer"));
    other = std::make_unique<FakeMouse>(MouseDescription{"Second mouse", 2, {}});
    EXPECT_TRUE(waitUntil([&] { return stateOf(id) == "driven"; })) << stateOf(id);
    ASSERT_TRUE(waitUntilDriven(*other, desk));
    other->press(BTN_SIDE);
    EXPECT_TRUE(desk.waitForKey(KEY_A, 1));
    other->release(BTN_SIDE);
    EXPECT_TRUE(desk.waitForKey(KEY_LEFTSHIFT, 0));
}

TEST_F(ServicedTest, AKeyThatTwoMiceHoldComesUpWithTheLast) {
    FakeMouse other({"Second mouse", 2, {}});
    use(mouse, busyRecord());
    use(other, busyRecord(), "Second mouse");
    mouse.press(BTN_EXTRA);
    ASSERT_TRUE(desk.waitForKey(KEY_LEFTCTRL, 1));
    other.press(BTN_EXTRA);
    other.move(1, 0);
    ASSERT_TRUE(desk.waitUntil([&] { return desk.sum(REL_X) == 1; }));
    mouse.release(BTN_EXTRA);
    mouse.move(1, 0);
    ASSERT_TRUE(desk.waitUntil([&] { return desk.sum(REL_X) == 2; }));
    EXPECT_EQ(desk.keys(), "29+");
    other.release(BTN_EXTRA);
    EXPECT_TRUE(desk.waitForKey(KEY_LEFTCTRL, 0));
    EXPECT_EQ(desk.keys(), "29+ 29-");
}

TEST_F(ServicedTest, WhatIsHeldIsReleasedBeforeTheComputerSleepsWhichWaitsForIt) {
    EXPECT_FALSE(managers.isSleepDelayed());
    use(mouse, busyRecord());
    EXPECT_TRUE(waitUntil([&] { return managers.isSleepDelayed(); }));
    mouse.press(BTN_EXTRA);
    ASSERT_TRUE(desk.waitForKey(KEY_LEFTCTRL, 1));
    managers.sayPrepareForSleep(true);
    EXPECT_TRUE(waitUntil([&] { return !managers.isSleepDelayed(); }));
    desk.look();
    EXPECT_EQ(desk.keys(), "29+ 29-");
    mouse.release(BTN_EXTRA);
    managers.sayPrepareForSleep(false);
    EXPECT_TRUE(waitUntil([&] { return managers.isSleepDelayed(); }));
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    EXPECT_EQ(anna.forget(anna.mouseNamed("Test mouse")), "");
    EXPECT_TRUE(waitUntil([&] { return !managers.isSleepDelayed(); }));
}

TEST_F(ServicedTest, WhoPlaysTheLogInManagerIsNotHeard) {
    use(mouse, busyRecord());
    const auto id = anna.mouseNamed("Test mouse");
    for (const char* destination : {"com.kyvar.Inputd1", ""})
        berta.signal(destination, "/org/freedesktop/login1", "org.freedesktop.login1.Manager",
            "PrepareForSleep", true);
    // Who is heard would be heard before the answer to this.
    Status status;
    EXPECT_NE(berta.status(id, status), "");
    EXPECT_EQ(stateOf(id), "driven");
}

TEST_F(ServicedTest, AnAdministratorIsAskedOneQuestionAtATimeForAUser) {
    managers.isSlow = true;
    const auto id = anna.mouseNamed("Test mouse");
    anna.useWithoutWaiting(id, busyRecord());
    ASSERT_TRUE(waitUntil([&] { return managers.timesAsked() == 1; }));
    EXPECT_EQ(anna.use(id, busyRecord()), "org.freedesktop.DBus.Error.LimitsExceeded");
    managers.isSlow = false;
    EXPECT_TRUE(waitUntil([&] { return stateOf(id) == "driven"; })) << stateOf(id);
    EXPECT_EQ(managers.timesAsked(), 1);
}

TEST_F(ServicedTest, WhatAnAdministratorAllowsIsNotDoneForWhoHasLeftTheMachineMeanwhile) {
    managers.isSlow = true;
    const auto id = anna.mouseNamed("Test mouse");
    anna.useWithoutWaiting(id, busyRecord());
    ASSERT_TRUE(waitUntil([&] { return managers.timesAsked() == 1; }));
    showSession({kBerta});
    managers.isSlow = false;
    Status status;
    EXPECT_EQ(berta.status(id, status), kNoMouse);
    EXPECT_TRUE(isPlainAgain(mouse));
    EXPECT_EQ(berta.status(id, status), kNoMouse);
}

TEST_F(ServicedTest, AMouseIsNotTakenWhileAButtonIsDown) {
    mouse.press(BTN_LEFT);
    const auto id = anna.mouseNamed("Test mouse");
    ASSERT_EQ(anna.use(id, busyRecord()), "");
    ASSERT_TRUE(desk.waitForDevice("Quorvi virtual pointer"));
    EXPECT_TRUE(isPlainAgain(mouse));
    EXPECT_EQ(stateOf(id), "waiting");
    mouse.release(BTN_LEFT);
    EXPECT_TRUE(desk.waitForKey(BTN_LEFT, 0)); // the desktop has its release
    EXPECT_TRUE(waitUntil([&] { return stateOf(id) == "driven"; }));
}

TEST_F(ServicedTest, AMouseThatAnotherProgramHasIsTakenWhenThatLetsGo) {
    auto other = startInputd(mouse.node(), TestRecord());
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    const auto id = anna.mouseNamed("Test mouse");
    ASSERT_EQ(anna.use(id, busyRecord()), "");
    EXPECT_TRUE(waitUntil([&] { return stateOf(id) == "busy"; })) << stateOf(id);
    other->kill();
    EXPECT_TRUE(waitUntil([&] {
        mouse.move(1, 0);
        return stateOf(id) == "driven";
    })) << stateOf(id);
}

TEST_F(ServicedTest, RecordsAndOptionsOutOfTheirBoundsAreRefused) {
    use(mouse, busyRecord());
    const auto id = anna.mouseNamed("Test mouse");
    const auto setBytes = [&](std::size_t size) {
        return anna.call("SetRecord", [&](sd_bus_message* message) {
            const std::vector<std::uint8_t> bytes(size);
            sd_bus_message_append(message, "s", id.c_str());
            sd_bus_message_append_array(message, 'y', bytes.data(), bytes.size());
        });
    };
    for (const std::size_t size : {0, 1, 13231, 13233, 1'000'000})
        EXPECT_EQ(setBytes(size), kNotValid) << size;
    // A record of zeroes has profile 1 without a name, whose number is not its slot's.
    EXPECT_EQ(setBytes(13232), kNotValid);
    const auto setDpi = [&](int dpi) {
        return anna.call("SetOptions", [&](sd_bus_message* message) {
            sd_bus_message_append(message, "sa{sv}", id.c_str(), 1, "SensorDpi", "q", dpi);
        });
    };
    EXPECT_EQ(setDpi(99), kNotValid);
    EXPECT_EQ(setDpi(64001), kNotValid);
    EXPECT_EQ(setDpi(3200), "");
    EXPECT_EQ(anna.call("SetOptions",
                  [&](sd_bus_message* message) {
                      sd_bus_message_append(message, "sa{sv}", id.c_str(), 1, "Unheard", "b", 1);
                  }),
        kNotValid);
    EXPECT_EQ(anna.call("SetOptions",
                  [&](sd_bus_message* message) {
                      sd_bus_message_append(message, "sa{sv}", id.c_str(), 1, "SensorDpi", "s", "800");
                  }),
        kNotValid);
    EXPECT_EQ(stateOf(id), "driven");
    // 3200 counts an inch at a stage of 1600: half of each.
    mouse.move(100, -60);
    EXPECT_TRUE(desk.waitUntil([&] { return desk.sum(REL_X) == 50 && desk.sum(REL_Y) == -30; }));
}

TEST_F(ServicedTest, ItsOwnDevicesAreNoMiceToItAndAFineSensorIsKnownByItsName) {
    FakeMouse fine({"Test mouse of 3200 DPI", 3, {}});
    use(mouse, busyRecord());
    std::vector<ListedMouse> mice;
    ASSERT_EQ(anna.list(mice), "");
    ASSERT_EQ(mice.size(), 2U);
    for (const auto& each : mice) {
        EXPECT_EQ(each.vendor, 0x1234);
        const bool isFine = each.name == "Test mouse of 3200 DPI";
        EXPECT_EQ(each.dpi, isFine ? 3200 : 0);
        EXPECT_EQ(each.used, !isFine);
    }
}

TEST_F(ServicedTest, WhoWatchesIsToldOfTheirMiceAlone) {
    ASSERT_EQ(anna.watch(true), "");
    use(mouse, busyRecord());
    mouse.press(BTN_SIDE);
    mouse.release(BTN_SIDE);
    mouse.turn(1);
    mouse.press(BTN_BACK);
    mouse.release(BTN_BACK);
    const auto has = [&](const char* signal) {
        return waitUntil([&] {
            const auto& all = anna.signalsSoFar();
            return std::find(all.begin(), all.end(), signal) != all.end();
        });
    };
    EXPECT_TRUE(has("StatusChanged waiting 1 1"));
    EXPECT_TRUE(has("StatusChanged driven 1 1"));
    EXPECT_TRUE(has("InputChanged 4 1"));
    EXPECT_TRUE(has("InputChanged 4 0"));
    EXPECT_TRUE(has("InputChanged 8 1"));
    EXPECT_TRUE(has("StatusChanged driven 2 1"));
    EXPECT_EQ(anna.forget(anna.mouseNamed("Test mouse")), "");
    EXPECT_TRUE(has("StatusChanged unused 2 1"));
    for (const auto& signal : berta.signalsSoFar())
        EXPECT_EQ(signal, "MiceChanged");
}

TEST_F(ServicedTest, TheInstalledDescriptionIsWhatTheRunningServiceOffers) {
    const auto described =
        std::regex_replace(fileText("/quorvi/com.kyvar.Inputd1.xml"), std::regex("<!--[^]*?-->"), "");
    EXPECT_EQ(interfaceElement(described, inputd::kInterface),
        interfaceElement(anna.introspection(), inputd::kInterface));
}

TEST_F(ServicedTest, ItTakesLessThanFourMebibytesWithAMouseInUse) {
    use(mouse, busyRecord());
    EXPECT_GT(proportionalMemoryOf(inputd->pid()), 0);
    EXPECT_LT(proportionalMemoryOf(inputd->pid()), 4096) << "KiB";
    std::printf("memory: %ld KiB\n", static_cast<long>(proportionalMemoryOf(inputd->pid())));
}

TEST_F(ServicedTest, WhileNothingHappensItSleeps) {
    use(mouse, busyRecord());
    ASSERT_TRUE(comesToRest(inputd->pid()));
    const auto before = sleepsOf(inputd->pid());
    std::this_thread::sleep_for(std::chrono::seconds(3)); // what is measured is this time
    EXPECT_EQ(sleepsOf(inputd->pid()), before);
}

} // namespace
} // namespace quorvi::test
