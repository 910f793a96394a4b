// The module in System Settings, from the search to the end of the program.

#include <QTest>

#include "host/kde/KdeHost.h"
#include "support/Files.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/WindowTools.h"

using namespace quorvi::test;

namespace {

const QString kDeviceTab = QStringLiteral("page tab 'Device'");
const QString kWheelLight = QStringLiteral("check box 'Light on the wheel'");
const QString kOpenModule = QStringLiteral("list item 'Input Devices'"); // the only module there

constexpr int kUsageOfA = 0x04;
constexpr int kUsageOfQ = 0x14;

/// System Settings with the pages as icons, which is the view that a screen reader can follow. There, pages
/// are hidden and shown.
void startWithIcons(KdeHost& kde) {
    const auto folder = kde.session.home.path() + "/.config";
    std::filesystem::create_directories(folder);
    writeFile(folder + "/systemsettingsrc", "[Main]\nActiveView=icon_mode\n");
    kde.start({QUORVI_SYSTEMSETTINGS});
}

/// System Settings as it comes, at the panel. There, pages are destroyed and made again.
void startAtPanel(KdeHost& kde) {
    kde.start({QUORVI_SYSTEMSETTINGS, kModule});
    if (!kde.showsPanel())
        qFatal("System Settings does not show the panel");
}

/// What the program's menu entries and searches do while it runs.
void goTo(const KdeHost& kde, const std::string& module) {
    if (kde.run({QUORVI_SYSTEMSETTINGS, module}).exitCode != 0)
        qFatal("System Settings cannot be told to show %s", module.c_str());
}

/// System Settings at the panel with a key on the second button, and the sheet open that asks for another.
struct KeySheet {
    KeySheet() {
        auto settings = UserHome::defaults();
        const auto button = quorvi::plist::Dictionary::create();
        button.set("command", 49);
        button.set("param1", kUsageOfA);
        settings.array("profiles").dictionary(0).dictionary("buttons").set("02", button);
        kde.session.home.writeSettings(settings);
        startAtPanel(kde);
        if (!xdotool({"key", "alt+2", "space", "Return"})) // the menu stands on the chosen item
            qFatal("xdotool fails");
        kde.activateSheet("Press Key");
        // Looking for the sheet's grab means to take the keyboard for a moment.
        if (!QTest::qWaitFor([this] { return !other.canTakeKeyboard(); }, kWindowPatienceMs))
            qFatal("the sheet does not take the keyboard");
    }
    [[nodiscard]] int storedKey() const {
        const auto profile = kde.session.home.savedSettings().array("profiles").dictionary(0);
        return profile.dictionary("buttons").dictionary("02").integer("param1");
    }

    KdeHost kde;
    OtherProgram other;
};

} // namespace

class SystemSettingsTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void thePanelIsFoundByASearchWord() {
        KdeHost kde;
        startWithIcons(kde);
        kde.activate();
        kde.click(QStringLiteral("text ''"));
        QVERIFY(xdotool({"type", "pollin"}));
        kde.click(QStringLiteral("list item 'polling rate'"));
        kde.click(kOpenModule);
        QVERIFY(kde.showsPanel());
        QVERIFY(kde.close());
    }

    void aChangeIsKeptWhenThePageIsLeftAndOpenedAgain() {
        KdeHost kde;
        startWithIcons(kde);
        kde.activate();
        kde.click(kOpenModule);
        QVERIFY(kde.showsPanel());
        QCOMPARE(kde.panel.told("1"), std::string("1"));
        kde.click(kDeviceTab);
        QVERIFY(kde.thing(kWheelLight).is(AccessibleState::checked));
        kde.click(kWheelLight);
        QTRY_COMPARE_WITH_TIMEOUT(kde.session.home.savedLights(), 2, kWindowPatienceMs);
        QTRY_COMPARE_WITH_TIMEOUT(kde.session.recordByte(kFirstProfileLights), 2, kWindowPatienceMs);

        kde.click(QStringLiteral("push button 'All Settings'"));
        QCOMPARE(kde.panel.told("10"), std::string("10"));
        kde.click(kOpenModule);
        QVERIFY(kde.showsPanel());
        QCOMPARE(kde.panel.told("101"), std::string("101"));
        kde.click(kDeviceTab);
        QVERIFY(!kde.thing(kWheelLight).is(AccessibleState::checked));
        QVERIFY(kde.close());
        QCOMPARE(kde.panel.toldAtLast(), std::string("1010"));
    }

    void aPageThatIsDestroyedAndMadeAgainIsHiddenAndShown() {
        KdeHost kde;
        startAtPanel(kde);
        QCOMPARE(kde.panel.told("1"), std::string("1"));
        goTo(kde, "proxy");
        QCOMPARE(kde.panel.told("10"), std::string("10"));
        goTo(kde, kModule);
        QVERIFY(kde.showsPanel());
        QVERIFY(kde.close());
        QCOMPARE(kde.panel.toldAtLast(), std::string("1010"));
    }

    void theProgramsOwnShortcutIsCapturedLikeAnyKey() {
        KeySheet sheet;
        QVERIFY(xdotool({"key", "ctrl+q"}));
        sheet.kde.click(QStringLiteral("push button 'OK'"));
        QTRY_COMPARE_WITH_TIMEOUT(sheet.storedKey(), kUsageOfQ, kWindowPatienceMs);
        QTRY_VERIFY_WITH_TIMEOUT(sheet.other.canTakeKeyboard(), kWindowPatienceMs);
        QVERIFY(xdotool({"key", "ctrl+q"}));
        QCOMPARE(sheet.kde.program->wait(), std::optional(0));
        QCOMPARE(sheet.kde.panel.toldAtLast(), std::string("10"));
    }

    void toldToQuitDuringACaptureItLeavesTheKeyboardToOthersAndTellsTheHelperOnce() {
        KeySheet sheet;
        const auto quit = runProgram({"busctl", "--user", "call", "org.kde.systemsettings",
            "/MainApplication", "org.qtproject.Qt.QCoreApplication", "quit"});
        QCOMPARE(quit.exitCode, std::optional(0));
        QCOMPARE(sheet.kde.program->wait(), std::optional(0));
        QVERIFY(sheet.other.canTakeKeyboard());
        QCOMPARE(sheet.kde.panel.toldAtLast(), std::string("10"));
        QCOMPARE(sheet.storedKey(), kUsageOfA);
    }

    void sentToAnotherPageDuringACaptureItLeavesTheKeyboardToOthers() {
        KeySheet sheet;
        goTo(sheet.kde, "proxy");
        QCOMPARE(sheet.kde.panel.told("10"), std::string("10"));
        QTRY_VERIFY_WITH_TIMEOUT(sheet.other.canTakeKeyboard(), kWindowPatienceMs);
        QVERIFY(sheet.kde.program->isRunning());
        goTo(sheet.kde, kModule);
        QVERIFY(sheet.kde.showsPanel());
        QVERIFY(sheet.kde.close());
        QCOMPARE(sheet.kde.panel.toldAtLast(), std::string("1010"));
    }
};

QUORVI_SESSION_TEST_MAIN(SystemSettingsTest)
#include "SystemSettingsTest.moc"
