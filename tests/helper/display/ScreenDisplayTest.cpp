// The real helper's display of changes of sensitivity and profile.
#include "events/HelperCalls.h"
#include "helper/HelperFixture.h"
#include "helper/support/StandInDesktop.h"
#include "helper/support/StandInService.h"
#include "model/Trees.h"
#include "plist/Writer.h"
#include "support/EnvironmentVariable.h"
#include "support/ProcessFigures.h"
#include "support/VirtualDisplay.h"
#include "support/WaitUntil.h"

namespace quorvi::test {
namespace {

using Texts = std::vector<std::string>;

constexpr int kNextStage = 18;
constexpr int kSwitchToProfile = 34;
constexpr std::uint8_t kStageInput = 4;
constexpr std::uint8_t kProfileInput = 5;

/// U+2068 and U+2069 keep a name's direction to itself.
std::string isolated(const std::string& name) {
    return "\u2068" + name + "\u2069";
}

plist::Dictionary profileShowing(std::u16string name, bool sensitivity, bool profileChange, int other) {
    auto made = profile(std::move(name));
    made.set("defaultstage", 1);
    made.set("stages", list({stage(800, 800), stage(1600, 400)}));
    made.set("driver", dict({{"sensitivityosd", sensitivity}, {"profileosd", profileChange}}));
    made.set("buttons",
        dict({{"04", assignment(kNextStage, 0, 0)}, {"05", assignment(kSwitchToProfile, other, 0)}}));
    return made;
}

plist::Dictionary settingsOf(plist::Array profiles, int chosen) {
    auto made = tree(std::move(profiles), list());
    made.set("settings", dict({{"profileid", chosen}, {"stage", 1}, {"dpix", 800}, {"dpiy", 800}}));
    return made;
}

plist::Dictionary twoProfiles(bool sensitivity, bool profileChange, int chosen = 1) {
    return settingsOf(list({profileShowing(u"Work", sensitivity, profileChange, 2),
                          profileShowing(u"Drawing", sensitivity, profileChange, 1)}),
        chosen);
}

class OnScreen : public HelperTest {
  protected:
    void startWith(const plist::Dictionary& settings) {
        writeSettings(settings);
        start();
    }
    void writeSettings(const plist::Dictionary& settings) const {
        writeFile(userSettings, plist::writeXml(dict({{"quorvi", settings}})).value());
    }
    void click(std::uint8_t input) {
        EXPECT_EQ(pressSimulatedMouse(*bus, psn, input), noErr);
        EXPECT_EQ(releaseSimulatedMouse(*bus, psn, input), noErr);
    }
    /// Waits for so many texts, and for what would come behind them.
    [[nodiscard]] static Texts shownBy(const StandInDesktop& desktop, std::size_t number) {
        EXPECT_TRUE(waitUntil([&] { return desktop.shown().size() >= number; }));
        return desktop.shown();
    }
    /// Has the helper show one more text, so that whatever it showed before is there by then.
    void showLast() { click(kStageInput); }
};

TEST_F(OnScreen, ANotificationReplacesItself) {
    const StandInDesktop desktop({});
    startWith(twoProfiles(true, true));
    click(kStageInput);
    EXPECT_EQ(shownBy(desktop, 1), Texts{"notified 0 1600 × 400 DPI"});
    click(kProfileInput);
    click(kStageInput);
    const auto texts = shownBy(desktop, 2);
    EXPECT_EQ(texts[1].substr(0, 12), "notified 42 ");
}

TEST_F(OnScreen, KdesOwnDisplayIsUsedWhereItRunsAndNothingElse) {
    const StandInDesktop desktop({.hasKde = true});
    startWith(twoProfiles(true, true));
    click(kStageInput);
    ASSERT_EQ(shownBy(desktop, 1).size(), 1u);
    click(kStageInput);
    ASSERT_EQ(shownBy(desktop, 2).size(), 2u);
    click(kProfileInput);
    EXPECT_EQ(shownBy(desktop, 3),
        (Texts{"KDE 1600 × 400 DPI", "KDE 800 DPI", "KDE Profile: " + isolated("Drawing")}));
}

TEST_F(OnScreen, AProfileThatComesWithAnotherSensitivityIsOneText) {
    const StandInDesktop desktop({});
    startWith(twoProfiles(true, true));
    click(kStageInput);
    ASSERT_EQ(shownBy(desktop, 1).size(), 1u);
    click(kProfileInput); // from 1600 to 800 DPI
    ASSERT_EQ(shownBy(desktop, 2).back(), "notified 42 Profile: " + isolated("Drawing"));
    showLast();
    EXPECT_EQ(shownBy(desktop, 3).size(), 3u);
}

TEST_F(OnScreen, NothingIsShownWhereTheProfileSaysSo) {
    const StandInDesktop desktop({});
    startWith(settingsOf(
        list({profileShowing(u"Silent", false, false, 2), profileShowing(u"Loud", true, true, 1)}), 1));
    click(kStageInput);
    click(kStageInput);
    click(kProfileInput);
    EXPECT_EQ(shownBy(desktop, 1), Texts{"notified 0 Profile: " + isolated("Loud")});
    click(kProfileInput); // to the silent one
    click(kProfileInput);
    EXPECT_EQ(shownBy(desktop, 2).size(), 2u);
}

TEST_F(OnScreen, NothingIsShownOfWhatThePanelItselfChanges) {
    const StandInDesktop desktop({});
    startWith(twoProfiles(true, true));
    writeSettings(twoProfiles(true, true, 2));
    EXPECT_EQ(ask(kMessageSettingsSaved, 1), 1);
    auto slid = twoProfiles(true, true, 2);
    slid.array("profiles").dictionary(1).array("stages").dictionary(0).set("dpix", 900);
    slid.dictionary("settings").set("dpix", 900);
    writeSettings(slid);
    EXPECT_EQ(ask(kMessageSettingsSaved, 1), 1);
    EXPECT_EQ(ask(kMessageSettingsSaved, 1), 1) << "nor of a save that changes nothing";
    showLast();
    EXPECT_EQ(shownBy(desktop, 1), Texts{"notified 0 1600 × 400 DPI"});
}

TEST_F(OnScreen, NothingIsShownWhileTheDesktopInhibitsIt) {
    for (const bool kde : {false, true}) {
        const StandInDesktop desktop({.hasKde = kde, .inhibited = true});
        startWith(twoProfiles(true, true));
        click(kStageInput);
        click(kProfileInput);
        ASSERT_TRUE(comesToRest(helper->pid()));
        EXPECT_EQ(desktop.shown(), Texts{});
        helper->signal(SIGTERM);
        EXPECT_EQ(helper->wait(), 0);
        ASSERT_TRUE(waitFor(
            *bus, [&] { return bus->findProcessByName("KyvarQuorviHelper", nullptr) == procNotFound; }));
    }
}

TEST_F(OnScreen, AServerThatDoesNotInhibitIsUsed) {
    const StandInDesktop desktop({.inhibited = false});
    startWith(twoProfiles(true, true));
    click(kStageInput);
    EXPECT_EQ(shownBy(desktop, 1).size(), 1u);
}

TEST_F(OnScreen, AServerThatHangsKeepsNobodyWaitingAndShowsNoOldTexts) {
    StandInDesktop desktop({});
    startWith(twoProfiles(true, true));
    desktop.isDead = true;
    const auto before = std::chrono::steady_clock::now();
    for (int i = 0; i < 50; ++i)
        click(kStageInput);
    EXPECT_EQ(ask(kMessagePaneShown, 0), 1);
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(2)) << "no call waited for it";
    desktop.isDead = false;
    (void)waitUntil([&] { return !desktop.shown().empty(); });
    EXPECT_LE(desktop.shown().size(), 2u) << "the one that was under way, and the newest";
}

TEST_F(OnScreen, ADesktopWithoutAnyDisplayIsNoFault) {
    startWith(twoProfiles(true, true));
    click(kStageInput);
    click(kProfileInput);
    ASSERT_TRUE(comesToRest(helper->pid()));
    const StandInDesktop desktop({});
    click(kStageInput);
    EXPECT_EQ(shownBy(desktop, 1).size(), 1u) << "one that comes later is found";
}

TEST_F(OnScreen, OfAServerThatIsStartedAnewNoOtherNotificationIsReplaced) {
    auto desktop = std::make_unique<StandInDesktop>(StandInDesktop::Parts{});
    startWith(twoProfiles(true, true));
    click(kStageInput);
    ASSERT_EQ(shownBy(*desktop, 1).size(), 1u);
    desktop.reset();
    desktop = std::make_unique<StandInDesktop>(StandInDesktop::Parts{});
    click(kStageInput);
    EXPECT_EQ(shownBy(*desktop, 1), Texts{"notified 0 800 DPI"});
    click(kStageInput);
    EXPECT_EQ(shownBy(*desktop, 2).back(), "notified 42 1600 × 400 DPI");
}

TEST_F(OnScreen, ARealServerShowsOneAfterManyChangesAndNoneAWhileLater) {
    if (!isInstalled("dunst"))
        GTEST_SKIP() << "dunst is not installed";
    const VirtualDisplay display;
    const ChildProcess dunst({"dunst", "-print"}, {"DISPLAY=" + display.name(), "WAYLAND_DISPLAY",
                                                      "HOME=" + folder.path().native(), "XDG_CONFIG_HOME"});
    const auto count = [](const std::string& which) {
        return runProgram({"dunstctl", "count", which}).output;
    };
    ASSERT_TRUE(waitUntil([&] { return count("displayed") == "0\n"; }));
    startWith(twoProfiles(true, true));
    for (const auto input : {kStageInput, kProfileInput, kStageInput})
        click(input);
    bool isPictured = false;
    // This server keeps also what is transient, once it was shown: of all of them one, with the last text.
    EXPECT_TRUE(waitUntil([&] {
        const auto shown = count("displayed");
        EXPECT_TRUE(shown == "0\n" || shown == "1\n") << shown;
        EXPECT_EQ(count("waiting"), "0\n");
        const char* picture = std::getenv("QUORVI_PICTURE");
        if (picture && shown == "1\n" && !std::exchange(isPictured, true))
            (void)runProgram({"import", "-display", display.name(), "-window", "root", picture});
        return shown == "0\n" && count("history") == "1\n";
    }));
    EXPECT_NE(runProgram({"dunstctl", "history"}).output.find("1600 × 400 DPI"), std::string::npos);
}

TEST_F(OnScreen, TextsAreInTheUsersLanguage) {
    std::filesystem::create_directories(resources / "de.lproj");
    std::filesystem::copy_file(
        QUORVI_RESOURCES "/de.lproj/Localizable.strings", resources / "de.lproj/Localizable.strings");
    const EnvironmentVariable language("LANGUAGE", "de");
    const EnvironmentVariable locale("LC_ALL", "de_DE.UTF-8");
    const StandInDesktop desktop({.hasKde = true});
    startWith(twoProfiles(true, true));
    click(kProfileInput);
    EXPECT_EQ(shownBy(desktop, 1), Texts{"KDE Profil: " + isolated("Drawing")});
}

TEST_F(OnScreen, ANameIsShownWithoutWhatWouldTurnOrFillTheScreen) {
    const StandInDesktop desktop({.hasKde = true});
    startWith(settingsOf(list({profileShowing(u"One", true, true, 2),
                             profileShowing(u"A\u202e\nB" + std::u16string(2000, u'x'), true, true, 1)}),
        1));
    click(kProfileInput);
    EXPECT_EQ(shownBy(desktop, 1), Texts{"KDE Profile: " + isolated("AB" + std::string(78, 'x') + "…")});
}

TEST_F(OnScreen, OfMiceInUseWhatTheServiceSaysIsShown) {
    const PrivateBus systemBus;
    const EnvironmentVariable session("DBUS_SESSION_BUS_ADDRESS", privateBus.address());
    const EnvironmentVariable system("DBUS_SYSTEM_BUS_ADDRESS", systemBus.address());
    const StandInDesktop desktop({});
    StandInService service({{"1e7d:2dcb:one"}});
    startWith(twoProfiles(true, true));
    std::vector<MouseEntry> mice;
    ASSERT_EQ(listMice(*bus, psn, mice), noErr);
    ASSERT_EQ(useMouse(*bus, psn, "1e7d:2dcb:one", true), noErr);
    HelperState state;
    ASSERT_TRUE(waitUntil([&] {
        return getHelperState(*bus, psn, state) == noErr && !state.demonstration && state.profile == 1;
    }));
    click(kProfileInput); // of the simulated mouse, which stands aside
    service.tellStatus("1e7d:2dcb:one", "driven", 1, 2, 1600);
    EXPECT_EQ(shownBy(desktop, 1), Texts{"notified 0 1600 DPI"});
    service.tellStatus("1e7d:2dcb:one", "driven", 2, 1, 800);
    EXPECT_EQ(shownBy(desktop, 2).back(), "notified 42 Profile: " + isolated("Drawing"));
    // The panel chooses the first again, and the mouse follows a moment later.
    writeSettings(twoProfiles(true, true, 2));
    EXPECT_EQ(ask(kMessageSettingsSaved, 1), 1);
    writeSettings(twoProfiles(true, true, 1));
    EXPECT_EQ(ask(kMessageSettingsSaved, 0), 1);
    service.tellStatus("1e7d:2dcb:one", "driven", 1, 1, 800);
    service.tellStatus("1e7d:2dcb:one", "driven", 1, 2, 1600);
    EXPECT_EQ(shownBy(desktop, 3).back(), "notified 42 1600 DPI");
}

} // namespace
} // namespace quorvi::test
