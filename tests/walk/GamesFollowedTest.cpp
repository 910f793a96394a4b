// Games of a made-up library, from the chooser's list to the mouse that follows their windows: the real
// program, its helper, and windows on the display.

#include <QTest>

#include "applications/games/SteamLibrary.h"
#include "events/SimulatedMouse.h"
#include "helper/front/X11Windows.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/WaitUntil.h"
#include "walk/Walk.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr int kGames = 20; // the even ones are for Windows, and say so by their windows' class
constexpr int kFirstNumber = 1000;

/// Profiles that switch by themselves, as soon as they have an application.
plist::Dictionary automaticProfiles() {
    auto settings = settingsToWalkIn();
    const auto profiles = settings.array("profiles");
    for (std::size_t i = 0; i < profiles.size(); ++i)
        profiles.dictionary(i).dictionary("driver").set("autoswitch", true);
    return settings;
}

QString titleOf(int game) {
    return QStringLiteral("Game %1").arg(game + kFirstNumber);
}

struct Play {
    Play() {
        for (int game = 0; game < kGames; ++game)
            addSteamGame(library(), numberOf(game), titleOf(game).toStdString());
    }
    [[nodiscard]] std::filesystem::path library() const {
        return walk.session().home.path() + "/.local/share/Steam";
    }
    [[nodiscard]] static std::string numberOf(int game) { return std::to_string(game + kFirstNumber); }

    /// Assigns the game to the selected profile.
    [[nodiscard]] bool assign(int game) {
        walk.press({"Menu"});
        if (!walk.chooseItem(QStringLiteral("Assign Application…")))
            return false;
        const QString search = QStringLiteral("text 'Search applications'");
        if (walk.focusBecomes(search) != search)
            return false;
        walk.type(titleOf(game));
        if (walk.thing(QStringLiteral("list item '%1 (game, Steam)'").arg(titleOf(game))).isNull())
            return false;
        walk.press({"Return"});
        return true;
    }
    [[nodiscard]] QStringList binding(std::size_t profile) const {
        const auto driver = walk.savedItem("profiles", profile).dictionary("driver");
        QStringList texts;
        for (const char* key : {"application", "identifier", "signature", "executable"})
            texts << (driver.has(key) ? QString::fromStdU16String(driver.string(key)) : "(none)");
        return texts;
    }
    [[nodiscard]] static QStringList bindingTo(int game) {
        return {titleOf(game), "steam_app_" + QString::fromStdString(numberOf(game)), "", "steam"};
    }
    [[nodiscard]] std::uint32_t runningProfile() const {
        std::uint32_t profile = 0;
        const auto bus = EventBus::connect();
        ProcessSerialNumber helper;
        if (!bus || bus->findProcessByName("KyvarQuorviHelper", &helper) != noErr ||
            getSimulatedMouseProfile(*bus, helper, profile) != noErr)
            return 0;
        return profile;
    }
    [[nodiscard]] bool comesToRun(std::uint32_t profile) const {
        return waitUntil([&] { return runningProfile() == profile; });
    }
    /// What a screen reader reads beside the number of the profile's row.
    [[nodiscard]] std::string mark(int row) const {
        return walk.thing("table 'Profiles'").cell(row, 1).description();
    }

    Walk walk{automaticProfiles()};
    X11Windows windows{qEnvironmentVariable("DISPLAY").toStdString()};
};

} // namespace

class GamesFollowedTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void theLibraryIsListedBesideTheApplications() {
        Play play;
        QVERIFY(play.walk.enterTab(kProfilesTab));
        QCOMPARE(play.walk.focusAfter("Down", "cell '2'"), QStringLiteral("cell '2'"));
        play.walk.press({"Menu"});
        QVERIFY(play.walk.chooseItem(QStringLiteral("Assign Application…")));
        QStringList all{"Byte Editor"};
        for (int game = 0; game < kGames; ++game)
            all << titleOf(game) + " (game, Steam)";
        all << "Terminal";
        const auto listed = [&] {
            QStringList names;
            for (const Accessible& item : play.walk.thing("list 'Applications'").children())
                if (item.role() == "list item")
                    names << QString::fromStdString(item.name());
            return names;
        };
        QTRY_COMPARE(listed(), all);
        QCOMPARE(play.walk.focusAfter("Escape", "cell '2'"), QStringLiteral("cell '2'"));
    }

    void aGameForWindowsAndANativeOneAreBoundAndFollowed() {
        Play play;
        Walk& walk = play.walk;
        QVERIFY(walk.enterTab(kProfilesTab));
        QCOMPARE(walk.focusAfter("Down", "cell '2'"), QStringLiteral("cell '2'"));
        QVERIFY(play.assign(4));
        QTRY_COMPARE(play.binding(1), Play::bindingTo(4));
        QCOMPARE(walk.focusBecomes("cell '2'"), QStringLiteral("cell '2'"));
        QCOMPARE(walk.focusAfter("Down", "cell '3'"), QStringLiteral("cell '3'"));
        QVERIFY(play.assign(7));
        QTRY_COMPARE(play.binding(2), Play::bindingTo(7));
        QCOMPARE(walk.focusBecomes("cell '3'"), QStringLiteral("cell '3'"));
        walk.press({"Up", "Up"});
        QVERIFY(play.comesToRun(1));
        QTRY_COMPARE(play.mark(0), std::string("Running now: Default Profile – because you chose it"));

        const auto forWindows = play.windows.open("steam_app_1004");
        QVERIFY(play.comesToRun(2));
        QTRY_COMPARE(play.mark(1), std::string("Running now: Game – because Game 1004 is in front"));
        QCOMPARE(play.mark(0), std::string());
        const std::vector<std::string> environment{"SteamAppId=1007", "SteamGameId=1007"};
        const ChildProcess native({"sleep", "1000"}, environment);
        // A game opens windows when it runs, not while it is still what started it.
        const auto facts = "/proc/" + std::to_string(native.pid()) + "/environ";
        QVERIFY(waitUntil([&] { return readFile(facts).find("SteamAppId=1007") != std::string::npos; }));
        const auto ofNative = play.windows.open("native", "native", native.pid());
        QVERIFY(play.comesToRun(3));
        QTRY_COMPARE(play.mark(2), std::string("Running now: Work – because Game 1007 is in front"));

        // A game that is gone is not listed any more; its profile stays what it was.
        std::filesystem::remove(play.library() / "steamapps/appmanifest_1004.acf");
        play.windows.bringToFront(forWindows);
        QVERIFY(play.comesToRun(2));
        QCOMPARE(play.binding(1), Play::bindingTo(4));
        QCOMPARE(walk.thing("table 'Profiles'").cell(1, 2).name(), std::string("Game 1004"));
        play.windows.close(forWindows);
        play.windows.close(ofNative);
        QVERIFY(play.comesToRun(1));
    }
};

QUORVI_SESSION_TEST_MAIN(GamesFollowedTest)
#include "GamesFollowedTest.moc"
