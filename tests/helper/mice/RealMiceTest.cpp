// The real helper with mice in use: its calls to the system's service, and its reaction to signals.
#include <algorithm>
#include <csignal>
#include <cstring>
#include <fstream>

#include <sys/stat.h>

#include "events/HelperCalls.h"
#include "events/HelperInterface.h"
#include "events/Introspection.h"
#include "helper/HelperFixture.h"
#include "helper/support/StandInService.h"
#include "model/ConfigRecord.h"
#include "model/Trees.h"
#include "plist/Writer.h"
#include "support/EnvironmentVariable.h"
#include "support/ProcessFigures.h"
#include "support/WaitUntil.h"

namespace quorvi::test {
namespace {

constexpr char kMouse[] = "1e7d:2dcb:one";

std::string vectorFile(const std::string& name) {
    return readFile(QUORVI_TEST_DATA "/vectors/" + name);
}

class RealMouse : public HelperTest {
  protected:
    void SetUp() override {
        HelperTest::SetUp();
        writeFile(userSettings, vectorFile("case-000.plist"));
        service = std::make_unique<StandInService>(std::vector<StandInMouse>{{kMouse}});
    }
    /// Whether the process waits for a time, by what the kernel tells of its timers.
    [[nodiscard]] static bool hasArmedTimer(pid_t process) {
        const auto descriptors = std::filesystem::path("/proc") / std::to_string(process) / "fdinfo";
        for (const auto& each : std::filesystem::directory_iterator(descriptors)) {
            const auto text = readFile(each.path());
            if (text.find("it_value: (") != std::string::npos &&
                text.find("it_value: (0, 0)") == std::string::npos)
                return true;
        }
        return false;
    }
    /// Starts the helper and puts the mouse to use.
    void startWithMouse() {
        start();
        ASSERT_EQ(listMice(*bus, psn, mice), noErr);
        ASSERT_EQ(useMouse(*bus, psn, kMouse, true), noErr);
        ASSERT_TRUE(becomes("driven"));
    }
    /// Waits until the mouse is in that state.
    [[nodiscard]] bool becomes(const std::string& state, const std::string& mouse = kMouse) {
        return waitUntil([&] { return stateOf(mouse) == state; });
    }
    [[nodiscard]] std::string stateOf(const std::string& mouse) {
        std::vector<MouseEntry> all;
        if (listMice(*bus, psn, all) != noErr)
            return "no answer";
        const auto found = std::ranges::find(all, mouse, &MouseEntry::id);
        return found == all.end() ? "not listed" : found->state;
    }
    [[nodiscard]] HelperState state() {
        HelperState state;
        EXPECT_EQ(getHelperState(*bus, psn, state), noErr);
        return state;
    }
    void save(const std::string& name) {
        writeFile(userSettings, vectorFile(name));
        EXPECT_EQ(ask(kMessageSettingsSaved, 0), 1);
    }
    [[nodiscard]] bool hasRecord(const std::string& name, const std::string& mouse = kMouse) const {
        return waitUntil([&] { return service->recordOf(mouse) == vectorFile(name); });
    }

    PrivateBus systemBus;
    EnvironmentVariable session{"DBUS_SESSION_BUS_ADDRESS", privateBus.address()};
    EnvironmentVariable system{"DBUS_SYSTEM_BUS_ADDRESS", systemBus.address()};
    std::unique_ptr<StandInService> service;
    std::vector<MouseEntry> mice;
};

TEST_F(RealMouse, IsListedAndNotUsedByItself) {
    start();
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    ASSERT_EQ(mice.size(), 1u);
    EXPECT_EQ(mice[0].id, kMouse);
    EXPECT_EQ(mice[0].name, "Test mouse");
    EXPECT_FALSE(mice[0].inUse);
    EXPECT_EQ(mice[0].state, "unused");
    EXPECT_TRUE(state().demonstration);
    EXPECT_EQ(service->calls(), std::vector<std::string>{"ListMice"}) << "and nothing before it was asked";
}

TEST_F(RealMouse, GetsTheRecordWhenItsUserChoosesIt) {
    startWithMouse();
    EXPECT_TRUE(hasRecord("case-000.bin"));
    EXPECT_FALSE(state().demonstration);
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    EXPECT_TRUE(mice.at(0).inUse);
}

TEST_F(RealMouse, GetsEachRecordThatIsSaved) {
    startWithMouse();
    for (const auto* name : {"case-004", "case-005", "case-000"}) {
        save(std::string(name) + ".plist");
        EXPECT_TRUE(hasRecord(std::string(name) + ".bin")) << name;
    }
}

TEST_F(RealMouse, TakesTheSimulatedOnesPlaceInTheDeviceList) {
    start();
    Panel panel;
    EXPECT_EQ(panel.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(panel.countAfterLists(1), 1);
    EXPECT_EQ(panel.lists.back().device[0].vendorID, 0x1209);
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    ASSERT_EQ(useMouse(*bus, psn, kMouse, true), noErr);
    ASSERT_TRUE(waitFor(*panel.bus,
        [&] { return panel.lists.back().count == 1 && panel.lists.back().device[0].vendorID == 0x1e7d; }));
    EXPECT_EQ(panel.lists.back().device[0].productID, 0x2dcb);
    ASSERT_EQ(useMouse(*bus, psn, kMouse, false), noErr);
    ASSERT_TRUE(waitFor(*panel.bus, [&] { return panel.lists.back().device[0].vendorID == 0x1209; }));
    EXPECT_TRUE(waitUntil([&] { return service->countOf(std::string("Forget ") + kMouse) == 1; }));
}

TEST_F(RealMouse, ThatIsUnpluggedLeavesNoDeviceUntilItIsBack) {
    startWithMouse();
    Panel panel;
    EXPECT_EQ(panel.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(panel.countAfterLists(1), 1);
    service->setMice({});
    ASSERT_TRUE(waitFor(*panel.bus, [&] { return panel.lists.back().count == 0; }));
    EXPECT_FALSE(state().demonstration);
    EXPECT_EQ(stateOf("1e7d:2dcb"), "absent") << "by its model";
    const auto before = service->countOf(std::string("Use ") + kMouse);
    service->setMice({{kMouse}});
    ASSERT_TRUE(waitFor(*panel.bus, [&] { return panel.lists.back().count == 1; }));
    EXPECT_EQ(service->countOf(std::string("Use ") + kMouse), before + 1);
}

TEST_F(RealMouse, IsUsedAgainAtAnotherPlug) {
    startWithMouse();
    service->setMice({{"1e7d:2dcb:two"}});
    // Nobody asks for the list meanwhile.
    EXPECT_TRUE(hasRecord("case-000.bin", "1e7d:2dcb:two"));
    EXPECT_TRUE(becomes("driven", "1e7d:2dcb:two"));
}

TEST_F(RealMouse, IsUsedAgainWithTheRecordOfNowWhenTheServiceHasStartedAnew) {
    startWithMouse();
    service.reset();
    writeFile(userSettings, vectorFile("case-004.plist"));
    EXPECT_EQ(ask(kMessageSettingsSaved, 0), 1);
    service = std::make_unique<StandInService>(std::vector<StandInMouse>{{kMouse}});
    EXPECT_TRUE(hasRecord("case-004.bin"));
    EXPECT_TRUE(becomes("driven"));
    EXPECT_FALSE(state().demonstration);
}

TEST_F(RealMouse, IsUsedAgainWhenTheSystemsBusHasDiedAndIsBack) {
    startWithMouse();
    Panel panel;
    EXPECT_EQ(panel.command(kMessagePaneShown, 1), noErr);
    for (const auto* name : {"case-004", "case-005"}) {
        systemBus.kill();
        ASSERT_TRUE(waitUntil([&] { return state().demonstration; }));
        EXPECT_EQ(stateOf(kMouse), "not listed");
        save(std::string(name) + ".plist");
        service.reset();
        systemBus.startAnew();
        service = std::make_unique<StandInService>(std::vector<StandInMouse>{{kMouse}});
        // Nobody asks for the list meanwhile.
        ASSERT_TRUE(hasRecord(std::string(name) + ".bin"));
        ASSERT_TRUE(becomes("driven"));
        EXPECT_FALSE(state().demonstration);
        EXPECT_TRUE(waitUntil([&] { return service->countOf("Watch 1") == 1; })) << "for the panel";
    }
}

TEST_F(RealMouse, ThatIsSetUpWhenTheSystemsBusDiesIsUsedAsBeforeAfterIt) {
    startWithMouse();
    ASSERT_EQ(beginMouseSetUp(*bus, psn, kMouse), noErr);
    const auto usual = engine::usualButtonCodes;
    ASSERT_TRUE(waitUntil([&] { return service->optionsOf(kMouse).buttonCodes != usual; }));
    systemBus.kill();
    ASSERT_TRUE(waitUntil([&] { return state().demonstration; }));
    EXPECT_EQ(endMouseSetUp(*bus, psn), noErr);
    service.reset();
    systemBus.startAnew();
    service = std::make_unique<StandInService>(std::vector<StandInMouse>{{kMouse}});
    EXPECT_TRUE(becomes("driven"));
    EXPECT_EQ(service->optionsOf(kMouse).buttonCodes, usual);
}

TEST_F(RealMouse, SleepsWhileThereIsNoBusOfTheSystem) {
    startWithMouse();
    systemBus.kill();
    ASSERT_TRUE(waitUntil([&] { return state().demonstration; }));
    // The socket that was left behind is tried twenty times, and then forgotten until there is a new one.
    EXPECT_TRUE(hasArmedTimer(helper->pid()));
    // Between two tries no timer is armed for a moment: only a helper at rest says that it is done. What was
    // on its way to it may still come then.
    EXPECT_TRUE(waitUntil([&] {
        if (!comesToRest(helper->pid()) || hasArmedTimer(helper->pid()))
            return false;
        const auto before = sleepsOf(helper->pid());
        return comesToRest(helper->pid()) && sleepsOf(helper->pid()) == before; // half a second each
    }));
}

TEST_F(RealMouse, IsUsedAgainByAHelperThatWasKilled) {
    startWithMouse();
    helper->signal(SIGKILL);
    (void)helper->wait();
    ASSERT_TRUE(
        waitFor(*bus, [&] { return bus->findProcessByName("KyvarQuorviHelper", nullptr) == procNotFound; }));
    EXPECT_EQ(service->countOf(std::string("Forget ") + kMouse), 0);
    const auto before = service->countOf(std::string("Use ") + kMouse);
    start();
    EXPECT_TRUE(becomes("driven"));
    EXPECT_GT(service->countOf(std::string("Use ") + kMouse), before) << "it may have missed a save";
    EXPECT_TRUE(hasRecord("case-000.bin"));
}

TEST_F(RealMouse, ThatNobodyHasAllowedIsSaidToBeRefusedAndTheSimulatedOneStandsIn) {
    service->denies = true;
    start();
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    ASSERT_EQ(useMouse(*bus, psn, kMouse, true), noErr);
    EXPECT_TRUE(becomes("refused"));
    EXPECT_TRUE(state().demonstration);
    save("case-004.plist");
    EXPECT_EQ(service->countOf(std::string("Use ") + kMouse), 1) << "nobody is asked again by itself";
    service->denies = false;
    ASSERT_EQ(useMouse(*bus, psn, kMouse, true), noErr);
    EXPECT_TRUE(becomes("driven"));
    EXPECT_FALSE(state().demonstration);
}

TEST_F(RealMouse, IsNobodysWhileAnotherUserSitsAtTheMachine) {
    startWithMouse();
    service->deniesLists = true;
    service->setMice({{kMouse}});
    ASSERT_TRUE(waitUntil([&] { return state().demonstration; }));
    service->deniesLists = false;
    service->setMice({{kMouse}});
    EXPECT_TRUE(becomes("driven"));
    EXPECT_FALSE(state().demonstration);
}

TEST_F(RealMouse, RunsWhatTheServiceSays) {
    startWithMouse();
    ASSERT_TRUE(waitUntil([&] { return state().profile == 1; }));
    int news = 0;
    const auto listener = HelperListener::listen(*bus, psn, {{}, [&] { ++news; }, {}, {}});
    service->tellStatus(kMouse, "driven", 3, 2, 1200);
    ASSERT_TRUE(waitFor(*bus, [&] { return news > 0 && state().profile == 3; }));
    EXPECT_EQ(state().stage, 2u);
}

TEST_F(RealMouse, IsNotBelievedToBeWhatAStrangerSays) {
    startWithMouse();
    // The simulated mouse's profile is 1 as well: this one is the service's, and the last of its start.
    service->tellStatus(kMouse, "driven", 3, 1, 800);
    ASSERT_TRUE(waitUntil([&] { return state().profile == 3; }));
    const auto calls = service->calls().size();
    int news = 0;
    const auto listener = HelperListener::listen(*bus, psn, {{}, [&] { ++news; }, {}, {}});
    sd_bus* raw = nullptr;
    ASSERT_GE(sd_bus_open_system(&raw), 0);
    const events::BusPtr stranger(raw);
    const auto tell = [&](const char* member, auto append) {
        sd_bus_message* message = nullptr;
        ASSERT_GE(
            sd_bus_message_new_signal(raw, &message, "/com/kyvar/Inputd1", "com.kyvar.Inputd1", member), 0);
        const auto signal = events::adopt(message);
        append(message);
        ASSERT_GE(sd_bus_message_set_destination(message, service->caller().c_str()), 0);
        ASSERT_GE(sd_bus_send(raw, message, nullptr), 0);
    };
    tell("StatusChanged", [](sd_bus_message* signal) {
        sd_bus_message_append(signal, "ssyyqqq", kMouse, "driven", 4, 4, 400, 400, 0);
    });
    tell("MiceChanged", [](sd_bus_message*) {});
    ASSERT_GE(sd_bus_flush(raw), 0);
    // Behind them comes one that is true.
    service->tellStatus(kMouse, "driven", 2, 1, 800);
    ASSERT_TRUE(waitFor(*bus, [&] { return news > 0 && state().profile == 2; }));
    EXPECT_EQ(news, 1);
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    EXPECT_EQ(service->calls().size(), calls + 1) << "that list alone";
}

TEST_F(RealMouse, TellsItsPressesToShownPanelsAlone) {
    startWithMouse();
    EXPECT_EQ(service->countOf("Watch 1"), 0) << "nobody looks";
    std::vector<std::string> heard;
    const auto note = [&heard](const std::string& mouse, int input, bool pressed) {
        heard.push_back(mouse + " " + std::to_string(input) + (pressed ? "+" : "-"));
    };
    Panel panel;
    EXPECT_EQ(panel.command(kMessagePaneShown, 1), noErr);
    ASSERT_TRUE(waitUntil([&] { return service->countOf("Watch 1") == 1; }));
    const auto ofPanel = HelperListener::listen(*panel.bus, psn, {{}, {}, note, {}});
    std::vector<std::string> strangers;
    const auto ofStranger = HelperListener::listen(
        *bus, psn, {{}, {}, [&](const std::string& mouse, int, bool) { strangers.push_back(mouse); }, {}});
    service->tellInput(kMouse, 4, true);
    service->tellInput(kMouse, 8, true);
    ASSERT_TRUE(waitFor(*panel.bus, [&] { return heard.size() == 2; }));
    EXPECT_EQ(heard, (std::vector<std::string>{"1e7d:2dcb:one 4+", "1e7d:2dcb:one 8+"}));
    EXPECT_EQ(state().inputs, 1U << 3U) << "a notch of the wheel is not down";
    service->tellInput(kMouse, 4, false);
    ASSERT_TRUE(waitFor(*panel.bus, [&] { return heard.size() == 3; }));
    EXPECT_EQ(state().inputs, 0U);
    EXPECT_TRUE(strangers.empty());
    EXPECT_EQ(panel.command(kMessagePaneShown, 0), noErr);
    EXPECT_TRUE(waitUntil([&] { return service->countOf("Watch 0") >= 2; }));
}

TEST_F(RealMouse, KeepsNobodyWaitingWhenTheServiceIsSlow) {
    startWithMouse();
    ASSERT_TRUE(hasRecord("case-000.bin"));
    service->isSlow = true;
    for (int i = 0; i < 20; ++i)
        save(i % 2 == 0 ? "case-004.plist" : "case-005.plist");
    ASSERT_TRUE(waitUntil([&] { return service->unanswered() > 0; }));
    EXPECT_EQ(service->unanswered(), 1) << "the rest waits";
    EXPECT_TRUE(hasRecord("case-004.bin"));
    service->isSlow = false;
    EXPECT_TRUE(hasRecord("case-005.bin")) << "the last one";
}

TEST_F(RealMouse, GetsTheDpiOfItsSensorAndTheInputsCodes) {
    service->setMice({{.id = kMouse, .dpi = 3200}});
    startWithMouse();
    ASSERT_TRUE(waitUntil([&] { return service->optionsOf(kMouse).sensorDpi == 3200; })) << "by the hardware";
    EXPECT_EQ(setMouseDpi(*bus, psn, kMouse, 1200), noErr);
    ASSERT_TRUE(waitUntil([&] { return service->optionsOf(kMouse).sensorDpi == 1200; })) << "by the user";
    EXPECT_EQ(setMouseCodes(*bus, psn, kMouse, {272, 273, 274, 279, 30, 0, 277}), noErr);
    const engine::ButtonCodes codes{272, 273, 274, 279, 30, 0, 277};
    EXPECT_TRUE(waitUntil([&] { return service->optionsOf(kMouse).buttonCodes == codes; }));
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    EXPECT_EQ(mice.at(0).dpi, 1200);
    EXPECT_EQ(mice.at(0).hardwareDpi, 3200);
    EXPECT_TRUE(std::ranges::equal(mice.at(0).codes, codes));
}

TEST_F(RealMouse, PlaysNoMacroWhileThePanelRecordsOne) {
    startWithMouse();
    EXPECT_EQ(ask(kMessageRecording, 1), 1);
    EXPECT_TRUE(waitUntil([&] { return service->optionsOf(kMouse).macrosAreQuiet; }));
    EXPECT_EQ(ask(kMessageRecording, 0), 0);
    EXPECT_TRUE(waitUntil([&] { return !service->optionsOf(kMouse).macrosAreQuiet; }));
}

TEST_F(RealMouse, IsPlainWhileItIsSetUpAndTellsItsCodesToWhoDoesThat) {
    startWithMouse();
    auto sheet = EventBus::connect();
    std::vector<int> codes;
    const auto listener = HelperListener::listen(*sheet, psn,
        {{}, {}, {}, [&](const std::string&, std::uint16_t code, bool) { codes.push_back(code); }});
    ASSERT_EQ(beginMouseSetUp(*sheet, psn, kMouse), noErr);
    EXPECT_EQ(beginMouseSetUp(*bus, psn, kMouse), errAEEventFailed) << "one at a time";
    ASSERT_TRUE(waitUntil([&] { return service->countOf(std::string("WatchCodes ") + kMouse + " 1") == 1; }));
    const engine::ButtonCodes none{};
    EXPECT_TRUE(waitUntil([&] { return service->optionsOf(kMouse).buttonCodes == none; }));
    service->tellCode(kMouse, 279, true);
    EXPECT_TRUE(waitFor(*sheet, [&] { return codes == std::vector{279}; }));
    sheet.reset(); // a panel that is killed ends nothing by itself
    EXPECT_TRUE(waitUntil([&] { return service->countOf(std::string("WatchCodes ") + kMouse + " 0") == 1; }));
    EXPECT_TRUE(
        waitUntil([&] { return service->optionsOf(kMouse).buttonCodes == engine::usualButtonCodes; }));
    EXPECT_EQ(beginMouseSetUp(*bus, psn, kMouse), noErr);
    EXPECT_EQ(endMouseSetUp(*bus, psn), noErr);
}

TEST_F(RealMouse, TellsOfItsKeyToWhoSetsItUpAndWaitsForIt) {
    startWithMouse();
    Panel panel;
    EXPECT_EQ(panel.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(watchMouseKey(*panel.bus, psn, KEY_F13), errAEEventFailed) << "there is no set-up";
    std::vector<int> codes;
    int inputs = 0;
    const auto listener = HelperListener::listen(*panel.bus, psn,
        {{}, {}, [&](const std::string&, std::uint8_t, bool) { ++inputs; },
            [&](const std::string&, std::uint16_t code, bool down) {
                codes.push_back(down ? code : -code);
            }});
    ASSERT_EQ(beginMouseSetUp(*panel.bus, psn, kMouse), noErr);
    EXPECT_EQ(watchMouseKey(*bus, psn, KEY_F13), errAEEventFailed) << "somebody else's set-up";
    EXPECT_EQ(watchMouseKey(*panel.bus, psn, KEY_MAX + 1), paramErr);
    EXPECT_EQ(watchMouseKey(*panel.bus, psn, KEY_F13), noErr);
    const engine::ButtonCodes watched{0, 0, 0, 0, 0, 0, KEY_F13};
    ASSERT_TRUE(waitUntil([&] { return service->optionsOf(kMouse).buttonCodes == watched; }));
    ConfigRecord record;
    ASSERT_TRUE(waitUntil([&] {
        const auto bytes = service->recordOf(kMouse);
        std::memcpy(&record, bytes.data(), std::min(bytes.size(), sizeof record));
        return record.profiles[0].buttons[6].command == 0;
    })) << "the key does nothing else meanwhile";
    service->tellInput(kMouse, 7, true);
    service->tellInput(kMouse, 7, false);
    ASSERT_TRUE(waitFor(*panel.bus, [&] { return codes.size() == 2; }));
    EXPECT_EQ(codes, (std::vector<int>{KEY_F13, -KEY_F13}));
    EXPECT_EQ(inputs, 0);
    EXPECT_EQ(endMouseSetUp(*panel.bus, psn), noErr);
    EXPECT_TRUE(hasRecord("case-000.bin"));
    EXPECT_TRUE(
        waitUntil([&] { return service->optionsOf(kMouse).buttonCodes == engine::usualButtonCodes; }));
}

TEST_F(RealMouse, ThatComesBackInItsSetUpIsStillSetUp) {
    startWithMouse();
    ASSERT_EQ(beginMouseSetUp(*bus, psn, kMouse), noErr);
    const auto begun = std::string("WatchCodes ") + kMouse + " 1";
    ASSERT_TRUE(waitUntil([&] { return service->countOf(begun) == 1; }));
    service->setMice({});
    ASSERT_TRUE(becomes("absent", "1e7d:2dcb"));
    service->setMice({{kMouse}});
    EXPECT_TRUE(waitUntil([&] { return service->countOf(begun) == 2; }));
    service.reset();
    service = std::make_unique<StandInService>(std::vector<StandInMouse>{{kMouse}});
    EXPECT_TRUE(waitUntil([&] { return service->countOf(begun) == 1; })) << "it has forgotten everything";
    const engine::ButtonCodes none{};
    EXPECT_TRUE(waitUntil([&] { return service->optionsOf(kMouse).buttonCodes == none; }));
}

TEST_F(RealMouse, IsAPlainOneNoLongerWhenAnotherIsSetUpInItsPlace) {
    service->setMice({{kMouse}, {.id = "1e7d:2dcb:two"}});
    startWithMouse();
    ASSERT_TRUE(becomes("driven", "1e7d:2dcb:two"));
    ASSERT_EQ(beginMouseSetUp(*bus, psn, kMouse), noErr);
    ASSERT_EQ(beginMouseSetUp(*bus, psn, "1e7d:2dcb:two"), noErr);
    EXPECT_TRUE(waitUntil([&] { return service->countOf(std::string("WatchCodes ") + kMouse + " 0") == 1; }));
    EXPECT_TRUE(
        waitUntil([&] { return service->optionsOf(kMouse).buttonCodes == engine::usualButtonCodes; }));
}

TEST_F(RealMouse, IsNewsOnceAndNotWithEachLookAtIt) {
    start();
    int news = 0;
    const auto listener = HelperListener::listen(*bus, psn, {[&] { ++news; }, {}, {}, {}});
    for (int i = 0; i < 5; ++i)
        ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    ASSERT_TRUE(waitFor(*bus, [&] { return news > 0; }));
    EXPECT_EQ(news, 1);
    ASSERT_EQ(useMouse(*bus, psn, kMouse, true), noErr);
    ASSERT_TRUE(becomes("driven"));
    ASSERT_EQ(setMouseDpi(*bus, psn, kMouse, 3200), noErr);
    ASSERT_EQ(setMouseCodes(*bus, psn, kMouse, {272, 273, 274, 275, 276, 0, 0}), noErr);
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    bus->process(); // what came before that answer
    const int after = news;
    EXPECT_GE(after, 4) << "in use, driven, the DPI, the codes";
    ASSERT_EQ(setMouseDpi(*bus, psn, kMouse, 3200), noErr);
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    bus->process();
    EXPECT_EQ(news, after) << "nothing is another";
    service->setMice({});
    EXPECT_TRUE(waitFor(*bus, [&] { return news > after; }));
}

TEST_F(RealMouse, IsRefusedWhatItIsNot) {
    start();
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    EXPECT_EQ(useMouse(*bus, psn, "no such mouse", true), resNotFound);
    EXPECT_EQ(useMouse(*bus, psn, "", true), resNotFound);
    EXPECT_EQ(setMouseDpi(*bus, psn, kMouse, 99), paramErr);
    EXPECT_EQ(setMouseDpi(*bus, psn, kMouse, 64001), paramErr);
    EXPECT_EQ(setMouseCodes(*bus, psn, kMouse, {272}), paramErr);
    EXPECT_EQ(setMouseCodes(*bus, psn, kMouse, {272, 273, 274, 275, 276, 277, 768}), paramErr);
    EXPECT_EQ(beginMouseSetUp(*bus, psn, kMouse), errAEEventFailed) << "it is not in use";
    EXPECT_FALSE(std::filesystem::exists(chosenMice)) << "nothing was written";
    // A file that cannot be written is said so, and chooses nothing.
    writeFile(configuration, "no folder");
    EXPECT_EQ(useMouse(*bus, psn, kMouse, true), ioErr);
    EXPECT_TRUE(state().demonstration);
}

TEST_F(RealMouse, IsOneOfEightAtMostInTheDeviceList) {
    std::vector<StandInMouse> many;
    for (int i = 0; i < 10; ++i)
        many.push_back({.id = std::string("1e7d:2dcb:") + static_cast<char>('a' + i)});
    service->setMice(many);
    start();
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    ASSERT_EQ(mice.size(), 10u);
    ASSERT_EQ(useMouse(*bus, psn, "1e7d:2dcb:a", true), noErr) << "and with it all of its model";
    ASSERT_TRUE(waitUntil([&] { return stateOf("1e7d:2dcb:j") == "driven"; }));
    Panel panel;
    EXPECT_EQ(panel.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(panel.countAfterLists(1), 8);
}

TEST_F(RealMouse, IsKeptInAFileForItsUserAlone) {
    startWithMouse();
    struct stat facts {};
    ASSERT_EQ(stat(chosenMice.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777U, 0600U);
    EXPECT_FALSE(std::filesystem::exists(userSettings.parent_path() / "mice.plist"));
    EXPECT_EQ(readFile(userSettings), vectorFile("case-000.plist")) << "never in the settings";
}

TEST_F(RealMouse, CostsNoWakeUpAndLittleMemory) {
    startWithMouse();
    ASSERT_TRUE(comesToRest(helper->pid()));
    const auto before = sleepsOf(helper->pid());
    ASSERT_TRUE(comesToRest(helper->pid())); // half a second
    EXPECT_EQ(sleepsOf(helper->pid()), before);
#ifndef __SANITIZE_ADDRESS__
    std::ifstream file("/proc/" + std::to_string(helper->pid()) + "/smaps_rollup");
    long share = 0;
    for (std::string word; file >> word;)
        if (word == "Pss:")
            file >> share;
    RecordProperty("PssInKiB", std::to_string(share));
    EXPECT_GT(share, 0);
    EXPECT_LT(share, 8192) << "in KiB";
#endif
}

TEST_F(RealMouse, IsDescribedByTheFileThatIsInstalled) {
    start();
    auto description = fileText(QUORVI_EVENTS_SOURCE "/com.kyvar.Helper1.xml");
    description = std::regex_replace(description, std::regex("<!--[^>]*-->"), "");
    EXPECT_EQ(interfaceElement(description, "com.kyvar.Helper1"),
        interfaceElement(introspect(psn, helperinterface::kPath), helperinterface::kInterface));
}

class NoService : public RealMouse {
  protected:
    void SetUp() override {
        RealMouse::SetUp();
        service.reset();
    }
};

TEST_F(NoService, LeavesTheSimulatedMouse) {
    start();
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    EXPECT_TRUE(mice.empty());
    EXPECT_TRUE(state().demonstration);
    Panel panel;
    EXPECT_EQ(panel.command(kMessagePaneShown, 1), noErr);
    EXPECT_EQ(panel.countAfterLists(1), 1);
    EXPECT_EQ(panel.lists.back().device[0].vendorID, 0x1209);
}

TEST_F(NoService, LeavesTheSimulatedMouseToWhoHasChosenOneUntilItIsThere) {
    std::filesystem::create_directories(chosenMice.parent_path());
    writeFile(chosenMice,
        plist::writeXml(dict({{"mice", dict({{"1e7d:2dcb", dict({{"inuse", true}})}})}})).value());
    start();
    EXPECT_TRUE(state().demonstration);
    service = std::make_unique<StandInService>(std::vector<StandInMouse>{{kMouse}});
    EXPECT_TRUE(becomes("driven"));
    EXPECT_FALSE(state().demonstration);
}

TEST_F(NoService, NorAnySystemBusIsNeeded) {
    const EnvironmentVariable none("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent");
    start();
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    EXPECT_TRUE(mice.empty());
    EXPECT_TRUE(state().demonstration);
}

TEST_F(NoService, AndABusThatComesLaterIsTaken) {
    std::filesystem::create_directories(chosenMice.parent_path());
    writeFile(chosenMice,
        plist::writeXml(dict({{"mice", dict({{"1e7d:2dcb", dict({{"inuse", true}})}})}})).value());
    systemBus.kill();
    start();
    EXPECT_TRUE(state().demonstration);
    systemBus.startAnew();
    service = std::make_unique<StandInService>(std::vector<StandInMouse>{{kMouse}});
    EXPECT_TRUE(becomes("driven"));
}

TEST_F(NoService, ButABusThatAnswersNobodyKeepsNobodyWaiting) {
    systemBus.pause();
    start();
    EXPECT_EQ(ask(kMessagePaneShown, 1), 1);
    EXPECT_TRUE(state().demonstration);
    systemBus.goOn();
}

} // namespace
} // namespace quorvi::test
