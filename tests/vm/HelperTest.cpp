// The user's helper with the real service: from a settings file to the keys that a mouse types.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include <grp.h>
#include <unistd.h>

#include "events/HelperCalls.h"
#include "events/SimulatedMouse.h"
#include "model/CommandCodes.h"
#include "model/SettingsDocument.h"
#include "model/Trees.h"
#include "support/EnvironmentVariable.h"
#include "vm/support/HidMouse.h"
#include "vm/support/Serviced.h"

namespace quorvi::test {
namespace {

constexpr int kUsageC = 6;
constexpr std::uint8_t kUsageOfF13 = 0x68;
constexpr char kBundle[] = "/quorvi/Kyvar.prefPane/Contents/Resources";

/// A connection to the session's bus as another user has it: who calls is told by the socket.
class AsUser {
  public:
    explicit AsUser(uid_t user) {
        EXPECT_EQ(setresgid(user, user, 0), 0);
        EXPECT_EQ(setresuid(user, user, 0), 0);
    }
    ~AsUser() {
        EXPECT_EQ(setresuid(0, 0, 0), 0);
        EXPECT_EQ(setresgid(0, 0, 0), 0);
    }
    AsUser(const AsUser&) = delete;
    AsUser& operator=(const AsUser&) = delete;
};

/// One user's session: a bus, a home folder, the helper.
class UserSession {
  public:
    explicit UserSession(uid_t user) : m_user(user), m_home("/tmp/home-" + std::to_string(user)) {
        std::filesystem::create_directories(m_home);
        own(m_home);
        const auto configuration = m_home + "/bus.conf";
        std::ofstream(configuration)
            << "<busconfig><type>session</type><listen>unix:dir=" << m_home
            << "</listen><auth>EXTERNAL</auth><policy context=\"default\"><allow send_destination=\"*\" "
               "eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
               "<allow own=\"*\"/></policy></busconfig>";
        m_daemon =
            start({"/bin/dbus-daemon", "--nofork", "--config-file=" + configuration, "--print-address=1"});
        m_address = m_daemon->readLine().value_or("");
        EXPECT_NE(m_address, "") << m_daemon->readError();
        const EnvironmentVariable address("DBUS_SESSION_BUS_ADDRESS", m_address);
        const AsUser user_(user);
        m_bus = EventBus::connect(kPatience);
        if (!m_bus)
            throw std::runtime_error("the user has no session's bus");
    }
    ~UserSession() { std::filesystem::remove_all(m_home); }
    UserSession(const UserSession&) = delete;
    UserSession& operator=(const UserSession&) = delete;

    /// Has input 4 type the key, as the panel does it.
    void save(int usage) { saveAssignment(assignment(commands::singleKey, usage, 0), list()); }
    /// Has input 4 run a macro that types A for half a second, and then B.
    void saveMacro() {
        const auto step = [](int pressed, int usage, int delay) {
            return dict({{"command", pressed}, {"argument", usage}, {"delay", delay}});
        };
        auto made = macro(1);
        made.set("delay", 0);
        made.set("steps",
            list({step(1, kUsageA, 500), step(0, kUsageA, 50), step(1, kUsageB, 50), step(0, kUsageB, 0)}));
        saveAssignment(assignment(commands::runMacro, 1, 1), list({made}));
    }
    /// From the defaults or what is there, by the panel's own writer, whom its user has started.
    void saveAssignment(const plist::Dictionary& assignment, const plist::Array& macros) {
        {
            const AsUser user_(m_user);
            auto tree = loadSettings(m_settings, std::string(kBundle) + "/Defaults.plist");
            tree.array("profiles").dictionary(0).dictionary("buttons").set("04", assignment);
            tree.set("macros", macros);
            ASSERT_TRUE(saveSettings(tree, m_settings));
        }
        if (m_helper) {
            EXPECT_EQ(m_bus->send(m_psn, makeCommand(kMessageSettingsSaved, 0), SendMode::waitReply, nullptr,
                          kPatience),
                noErr);
        }
    }
    void startHelper() {
        m_helper = start({std::string(kBundle) + "/KyvarQuorviHelper.app/Contents/Linux/KyvarQuorviHelper"});
        ASSERT_TRUE(waitUntil([&] {
            bool attached = false;
            return m_bus->findProcessByName("KyvarQuorviHelper", &m_psn) == noErr &&
                   getSimulatedMouseAttached(*m_bus, m_psn, attached) == noErr;
        })) << m_helper->readError();
    }
    void killHelper() {
        m_helper->kill();
        ASSERT_TRUE(waitUntil([&] {
            m_bus->process();
            return m_bus->findProcessByName("KyvarQuorviHelper", nullptr) == procNotFound;
        }));
    }
    [[nodiscard]] std::vector<MouseEntry> mice() {
        std::vector<MouseEntry> mice;
        (void)listMice(*m_bus, m_psn, mice);
        return mice;
    }
    [[nodiscard]] bool becomes(const std::string& state) {
        return waitUntil([&] {
            const auto all = mice();
            return std::ranges::any_of(all, [&](const auto& mouse) { return mouse.state == state; });
        });
    }
    void useTheMouse() {
        const auto all = mice();
        ASSERT_EQ(all.size(), 1u);
        ASSERT_EQ(useMouse(*m_bus, m_psn, all[0].id, true), noErr);
        ASSERT_TRUE(becomes("driven"));
    }
    [[nodiscard]] EventBus& bus() { return *m_bus; }
    [[nodiscard]] const ProcessSerialNumber& psn() const { return m_psn; }

  private:
    [[nodiscard]] std::unique_ptr<ChildProcess> start(const std::vector<std::string>& program) const {
        const auto id = std::to_string(m_user);
        std::vector<std::string> command{"/bin/setpriv", "--reuid=" + id, "--regid=" + id, "--clear-groups"};
        command.insert(command.end(), program.begin(), program.end());
        return std::make_unique<ChildProcess>(
            command, std::vector<std::string>{"HOME=" + m_home, "DBUS_SESSION_BUS_ADDRESS=" + m_address,
                         "DBUS_SYSTEM_BUS_ADDRESS=unix:path=/run/dbus/system_bus_socket"});
    }
    void own(const std::string& path) const {
        EXPECT_EQ(chown(path.c_str(), m_user, m_user), 0);
        if (std::filesystem::is_directory(path))
            for (const auto& each : std::filesystem::recursive_directory_iterator(path)) {
                EXPECT_EQ(chown(each.path().c_str(), m_user, m_user), 0);
            }
    }

    uid_t m_user;
    std::string m_home;
    ConfigFile m_settings{userSettingsFile(m_home)};
    std::string m_address;
    std::unique_ptr<ChildProcess> m_daemon;
    std::unique_ptr<EventBus> m_bus;
    std::unique_ptr<ChildProcess> m_helper;
    ProcessSerialNumber m_psn;
};

class HelpedMouse : public ServicedTest {
  protected:
    /// The keys of a click of input 4.
    [[nodiscard]] std::string typed() {
        desk.forget();
        mouse.press(BTN_SIDE);
        mouse.release(BTN_SIDE);
        (void)desk.waitUntil([&] { return desk.keys().find('-') != std::string::npos; });
        return desk.keys();
    }
    /// Moves the mouse until what it does comes from the pointer that stands for it, and clicks then.
    [[nodiscard]] bool types(const std::string& keys) {
        return waitUntil([&] { return typed() == keys; });
    }
};

TEST_F(HelpedMouse, TypesWhatTheSettingsSayFromTheFileToTheKey) {
    UserSession session(kAnna);
    session.save(kUsageA);
    session.startHelper();
    session.useTheMouse();
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    EXPECT_TRUE(types("30+ 30-"));
    session.save(kUsageB);
    EXPECT_TRUE(types("48+ 48-"));
}

TEST_F(HelpedMouse, DoesAsBeforeWhenItIsPluggedInAgain) {
    UserSession session(kAnna);
    session.save(kUsageA);
    session.startHelper();
    auto other = std::make_unique<FakeMouse>(MouseDescription{"Second mouse", 2, {}});
    ASSERT_TRUE(waitUntil([&] { return session.mice().size() == 2; }));
    for (const auto& each : session.mice())
        if (each.name == "Second mouse") {
            ASSERT_EQ(useMouse(session.bus(), session.psn(), each.id, true), noErr);
        }
    ASSERT_TRUE(session.becomes("driven"));
    ASSERT_TRUE(waitUntilDriven(*other, desk));
    other->unplug();
    ASSERT_TRUE(session.becomes("absent"));
    session.save(kUsageB);
    other = std::make_unique<FakeMouse>(MouseDescription{"Second mouse", 2, {}});
    ASSERT_TRUE(session.becomes("driven"));
    ASSERT_TRUE(waitUntilDriven(*other, desk));
    desk.forget();
    other->click(BTN_SIDE);
    EXPECT_TRUE(desk.waitForKey(KEY_B, 0));
    EXPECT_EQ(desk.keys(), "48+ 48-");
}

TEST_F(HelpedMouse, KeepsItsRecordWhenTheHelperIsKilledAndIsDrivenOnByTheNextOne) {
    UserSession session(kAnna);
    session.save(kUsageA);
    session.startHelper();
    session.useTheMouse();
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    mouse.press(BTN_SIDE);
    ASSERT_TRUE(desk.waitForKey(KEY_A, 1));
    session.killHelper();
    mouse.release(BTN_SIDE);
    EXPECT_TRUE(desk.waitForKey(KEY_A, 0)) << "a click that was under way";
    EXPECT_TRUE(types("30+ 30-"));
    session.startHelper();
    EXPECT_TRUE(session.becomes("driven"));
    EXPECT_TRUE(types("30+ 30-"));
    session.save(kUsageC);
    EXPECT_TRUE(types("46+ 46-"));
}

TEST_F(HelpedMouse, IsDrivenAgainByAServiceThatWasKilled) {
    UserSession session(kAnna);
    session.save(kUsageA);
    session.startHelper();
    session.useTheMouse();
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    inputd->kill();
    startService();
    ASSERT_TRUE(session.becomes("driven"));
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    EXPECT_TRUE(types("30+ 30-"));
}

TEST_F(HelpedMouse, NeverHasTheRecordOfTheUserWhoWasAtTheMachineBefore) {
    UserSession first(kAnna);
    first.save(kUsageA);
    first.startHelper();
    first.useTheMouse();
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    EXPECT_TRUE(types("30+ 30-"));
    showSession({kBerta});
    UserSession second(kBerta);
    second.save(kUsageB);
    second.startHelper();
    EXPECT_TRUE(isPlainAgain(mouse));
    ASSERT_TRUE(waitUntil([&] { return !second.mice().empty(); }));
    EXPECT_EQ(second.mice()[0].state, "unused") << "Berta has not chosen it";
    first.save(kUsageC); // Anna's helper is still there, and her panel saves
    EXPECT_EQ(first.mice().size(), 1u) << "the one that she has chosen, and of this computer none";
    EXPECT_EQ(first.mice()[0].state, "absent");
    EXPECT_TRUE(isPlainAgain(mouse));
    second.useTheMouse();
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    EXPECT_TRUE(types("48+ 48-"));
    showSession({kAnna});
    ASSERT_TRUE(first.becomes("driven"));
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    EXPECT_TRUE(types("46+ 46-"));
}

TEST_F(HelpedMouse, DoesAsBeforeWhenTheComputerHasSleptAndItWasAwayMeanwhile) {
    UserSession session(kAnna);
    session.save(kUsageA);
    session.startHelper();
    session.useTheMouse();
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    ASSERT_TRUE(waitUntil([&] { return managers.isSleepDelayed(); }));
    mouse.press(BTN_SIDE);
    ASSERT_TRUE(desk.waitForKey(KEY_A, 1));
    managers.sayPrepareForSleep(true);
    EXPECT_TRUE(waitUntil([&] { return !managers.isSleepDelayed(); }));
    desk.look();
    EXPECT_EQ(desk.keys(), "30+ 30-") << "up before the computer sleeps";
    mouse.unplug(); // as many are while it does
    managers.sayPrepareForSleep(false);
    ASSERT_TRUE(session.becomes("absent"));
    mouse = FakeMouse();
    ASSERT_TRUE(session.becomes("driven"));
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    EXPECT_TRUE(types("30+ 30-"));
    session.save(kUsageB);
    EXPECT_TRUE(types("48+ 48-"));
}

/// Both have chosen the mouse and have their helpers running, and the first one's macro is in the middle.
TEST_F(HelpedMouse, TypesNothingOfTheMacroOfTheUserWhoHasLeft) {
    UserSession first(kAnna);
    first.saveMacro();
    first.startHelper();
    first.useTheMouse();
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    showSession({kBerta});
    UserSession second(kBerta);
    second.save(kUsageC);
    second.startHelper();
    ASSERT_TRUE(waitUntil([&] { return !second.mice().empty(); }));
    second.useTheMouse();
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    showSession({kAnna});
    ASSERT_TRUE(first.becomes("driven"));
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    mouse.click(BTN_SIDE);
    ASSERT_TRUE(desk.waitForKey(KEY_A, 1));
    showSession({kBerta});
    ASSERT_TRUE(desk.waitForKey(KEY_A, 0));
    ASSERT_TRUE(second.becomes("driven"));
    EXPECT_EQ(desk.keys(), "30+ 30-") << "the key that was down, and no other";
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    EXPECT_TRUE(types("46+ 46-"));
    for (int click = 0; click < 3; ++click) {
        EXPECT_EQ(typed(), "46+ 46-") << "Berta's key alone";
        first.saveMacro(); // her panel is still there, and tells her helper
    }
    // Left alone it goes on to B, or the test would have shown nothing.
    showSession({kAnna});
    ASSERT_TRUE(first.becomes("driven"));
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    EXPECT_TRUE(waitUntil([&] {
        desk.forget();
        mouse.click(BTN_SIDE);
        return desk.waitForKey(KEY_B, 0) && desk.keys() == "30+ 30- 48+ 48-";
    }));
}

TEST_F(HelpedMouse, IsPlainWhileItIsSetUpAndSaysWhichButtonsItHas) {
    UserSession session(kAnna);
    session.save(kUsageA);
    session.startHelper();
    session.useTheMouse();
    ASSERT_TRUE(waitUntilDriven(mouse, desk));
    std::vector<int> codes;
    const auto listener = HelperListener::listen(session.bus(), session.psn(),
        {{}, {}, {}, [&](const std::string&, std::uint16_t code, bool) { codes.push_back(code); }});
    ASSERT_EQ(beginMouseSetUp(session.bus(), session.psn(), session.mice().at(0).id), noErr);
    EXPECT_TRUE(waitUntil([&] { return typed() == "275+ 275-"; })) << "the button, not the key";
    EXPECT_TRUE(waitUntil([&] {
        session.bus().process();
        return codes.size() >= 2;
    }));
    EXPECT_EQ(codes.front(), BTN_SIDE);
    // Its input 4 is another button from now on.
    const auto id = session.mice().at(0).id;
    ASSERT_EQ(
        setMouseCodes(session.bus(), session.psn(), id, {272, 273, 274, BTN_EXTRA, 0, 277, 278}), noErr);
    ASSERT_EQ(endMouseSetUp(session.bus(), session.psn()), noErr);
    EXPECT_TRUE(waitUntil([&] {
        desk.forget();
        mouse.click(BTN_EXTRA);
        (void)desk.waitUntil([&] { return desk.keys().find('-') != std::string::npos; });
        return desk.keys() == "30+ 30-";
    }));
}

TEST_F(HelpedMouse, TellsAKeyOfItsOwnFromTheDesktopsWhileItIsSetUp) {
    HidMouse hid;
    UserSession session(kAnna);
    session.save(kUsageA);
    session.startHelper();
    std::string id;
    ASSERT_TRUE(waitUntil([&] {
        for (const auto& each : session.mice())
            if (each.name == "Nine-button mouse Mouse")
                id = each.id;
        return !id.empty();
    }));
    ASSERT_EQ(useMouse(session.bus(), session.psn(), id, true), noErr);
    const auto isDriven = [&] {
        const auto mice = session.mice();
        const auto found = std::ranges::find(mice, id, &MouseEntry::id);
        return found != mice.end() && found->state == "driven";
    };
    ASSERT_TRUE(waitUntil(isDriven));
    std::vector<int> codes;
    const auto listener = HelperListener::listen(session.bus(), session.psn(),
        {{}, {}, {}, [&](const std::string&, std::uint16_t code, bool) { codes.push_back(code); }});
    ASSERT_EQ(beginMouseSetUp(session.bus(), session.psn(), id), noErr);
    const auto type = [&](std::uint8_t usage) {
        hid.type(usage);
        hid.type(0);
    };
    ASSERT_TRUE(desk.waitForDevice("Nine-button mouse Keyboard"));
    type(kUsageOfF13);
    ASSERT_TRUE(desk.waitForKey(KEY_F13, 0)) << "as a keyboard's";
    ASSERT_EQ(watchMouseKey(session.bus(), session.psn(), KEY_F13), noErr);
    ASSERT_TRUE(waitUntil([&] {
        type(kUsageOfF13);
        session.bus().process();
        return codes.size() >= 2;
    }));
    EXPECT_EQ(codes.front(), KEY_F13);
    type(kUsageB); // behind those that came before the node was ours
    ASSERT_TRUE(desk.waitForKey(KEY_B, 0));
    desk.forget();
    type(kUsageOfF13);
    type(kUsageB);
    ASSERT_TRUE(desk.waitForKey(KEY_B, 0));
    EXPECT_EQ(desk.keys(), "48+ 48-") << "that one does nothing, and the others what they do";
    ASSERT_EQ(endMouseSetUp(session.bus(), session.psn()), noErr);
    desk.forget();
    EXPECT_TRUE(desk.waitUntil([&] {
        type(kUsageOfF13); // the service lets go of the node a moment after the end
        return desk.keys().find("183+ 183-") != std::string::npos;
    })) << "it is the desktop's again";
}

/// What the caller has been told of codes so far.
std::vector<std::string> codesToldTo(Caller& caller) {
    std::vector<std::string> told;
    std::ranges::copy_if(caller.signalsSoFar(), std::back_inserter(told),
        [](const std::string& signal) { return signal.starts_with("CodeChanged"); });
    return told;
}

TEST_F(ServicedTest, TheCodesOfButtonsAreToldToTheUsersOwnAlone) {
    use(mouse, busyRecord());
    const auto id = anna.mouseNamed("Test mouse");
    Caller other(kAnna);
    EXPECT_EQ(berta.watchCodes(id, true), "org.freedesktop.DBus.Error.AccessDenied");
    EXPECT_EQ(anna.watchCodes("no such mouse", true), "com.kyvar.Inputd1.Error.NoSuchMouse");
    ASSERT_EQ(anna.watchCodes(id, true), "");
    mouse.click(BTN_EXTRA);
    EXPECT_TRUE(waitUntil([&] { return codesToldTo(anna).size() >= 2; }));
    EXPECT_EQ(codesToldTo(anna), (std::vector<std::string>{"CodeChanged 276 1", "CodeChanged 276 0"}));
    ASSERT_EQ(anna.watchCodes(id, false), "");
    ASSERT_TRUE(desk.waitForKey(KEY_LEFTCTRL, 0));
    desk.forget();
    mouse.click(BTN_EXTRA);
    ASSERT_TRUE(desk.waitForKey(KEY_LEFTCTRL, 0));
    EXPECT_EQ(stateOf(id), "driven") << "an answer behind whatever was told";
    EXPECT_EQ(codesToldTo(anna).size(), 2u);
    EXPECT_TRUE(codesToldTo(other).empty());
    EXPECT_TRUE(codesToldTo(berta).empty());
}

TEST_F(ServicedTest, KeysAreToldNobody) {
    FakeMouse keyed({"Keyed mouse", 2, {KEY_1, KEY_F13, KEY_OK}});
    use(keyed, busyRecord(), "Keyed mouse");
    const auto id = anna.mouseNamed("Keyed mouse");
    ASSERT_EQ(anna.watchCodes(id, true), "");
    for (const std::uint16_t key : {KEY_1, KEY_F13, KEY_OK})
        keyed.click(key);
    keyed.click(BTN_EXTRA);
    EXPECT_TRUE(waitUntil([&] { return codesToldTo(anna).size() >= 2; }));
    EXPECT_EQ(codesToldTo(anna), (std::vector<std::string>{"CodeChanged 276 1", "CodeChanged 276 0"}));
}

} // namespace
} // namespace quorvi::test
