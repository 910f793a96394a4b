// The module in System Settings under KWin, with a keyboard's keys.

#include <QTest>

#include <linux/input-event-codes.h>

#include "host/kde/FakeKeyboard.h"
#include "host/kde/KdeHost.h"
#include "host/kde/KdeSettings.h"
#include "support/Compositors.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/Tabs.h"
#include "support/WindowTools.h"

using namespace quorvi::test;

namespace {

const QString kKeyword = QStringLiteral("polling rate");

/// System Settings where it shows no module; with settings, at the panel.
struct Desktop {
    Desktop() { kde.startAtOverview(); }
    explicit Desktop(const quorvi::plist::Dictionary& settings) {
        kde.session.home.writeSettings(settings);
        kde.startAtPanel();
    }
    void showTab(int tab) const {
        while (tab-- > 0)
            keyboard.press({KEY_LEFTCTRL, KEY_TAB});
    }

    KWin compositor;
    FakeKeyboard keyboard{compositor.runtimeFolder() + "/" + compositor.socket()};
    KdeHost kde{{"QT_QPA_PLATFORM=wayland",
        "WAYLAND_DISPLAY=" + compositor.runtimeFolder() + "/" + compositor.socket()}};
    EventMonitor monitor{qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS").toStdString()};
};

} // namespace

class SystemSettingsOnWaylandTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("the screen reader needs an X display");
    }

    void whatIsFoundBySearchAndChangedIsKeptWhenThePageIsLeftAndOpenedAgain() {
        Desktop desktop;
        KdeHost& kde = desktop.kde;
        const auto field = kde.thing(QStringLiteral("text 'Search'"));
        desktop.keyboard.press({KEY_LEFTCTRL, KEY_F});
        QTRY_VERIFY_WITH_TIMEOUT(field.is(AccessibleState::focused), kWindowPatienceMs);
        QVERIFY(kde.isFound(kKeyword, false));
        desktop.keyboard.type("polling r");
        QVERIFY(kde.isFound(kKeyword));
        desktop.keyboard.press({KEY_DOWN}); // the group that it belongs to
        desktop.keyboard.press({KEY_DOWN});
        desktop.keyboard.press({KEY_ENTER});
        QVERIFY(kde.showsPanel());
        QCOMPARE(kde.commands("KyRO 1"), std::string("KyRO 1"));
        QVERIFY(!kde.session.home.savedSettings());
        desktop.keyboard.press({KEY_LEFTALT, KEY_D}); // the focus is in the list still
        const auto wheel = QStringLiteral("check box 'Wheel light'");
        QVERIFY(kde.thing(wheel).is(AccessibleState::checked));
        desktop.keyboard.press({KEY_LEFTALT, KEY_W});
        QTRY_COMPARE_WITH_TIMEOUT(kde.session.home.savedLights(), 2, kWindowPatienceMs);
        QTRY_COMPARE_WITH_TIMEOUT(kde.session.recordByte(kFirstProfileLights), 2, kWindowPatienceMs);
        QCOMPARE(kde.commands("KyPR 0"), std::string("KyPR 0"));
        kde.leavePanel();
        QCOMPARE(kde.commands("KyRO 0 KyPR 0"), std::string("KyRO 0 KyPR 0"));
        QCOMPARE(kde.session.home.savedLights(), 2);
        kde.returnToPanel();
        QVERIFY(kde.showsPanel());
        QCOMPARE(kde.commands("KyRO 1"), std::string("KyRO 1"));
        QVERIFY(kde.quit());
        QCOMPARE(kde.commands("KyRO 0 KyPR 0"), std::string("KyRO 0 KyPR 0"));
        QCOMPARE(kde.panel.toldAtLast(), std::string("1010"));
        QCOMPARE(kde.session.home.savedLights(), 2);
    }

    void theProgramsOwnShortcutIsCapturedLikeAnyKey() {
        Desktop desktop(settingsWithAKey(kUsageOfA));
        desktop.keyboard.press({KEY_LEFTALT, KEY_2});
        desktop.keyboard.press({KEY_SPACE});
        desktop.keyboard.press({KEY_ENTER}); // the menu stands on the chosen item
        const auto sheet = desktop.kde.thing(QStringLiteral("dialog 'Press Key'"));
        QTRY_VERIFY_WITH_TIMEOUT(sheet.is(AccessibleState::active), kWindowPatienceMs);
        const auto field = desktop.kde.thing(QStringLiteral("text 'Key'"));
        const auto before = field.text();
        desktop.keyboard.press({KEY_LEFTCTRL, KEY_Q});
        QTRY_VERIFY_WITH_TIMEOUT(field.text() != before, kWindowPatienceMs);
        desktop.kde.perform("Press", QStringLiteral("push button 'OK'"));
        QTRY_COMPARE_WITH_TIMEOUT(
            keyIn(desktop.kde.session.home.savedSettings()), kUsageOfQ, kWindowPatienceMs);
        QVERIFY(desktop.kde.program->isRunning());
        QVERIFY(desktop.kde.quit());
    }

    void helpIsThePanelsOwn() {
        Desktop desktop(UserHome::defaults());
        desktop.keyboard.press({KEY_F1});
        QVERIFY2(desktop.kde.opensOwnHelp(), desktop.kde.opened().c_str());
        QVERIFY(desktop.kde.quit());
    }

    void toldToQuitDuringARecordingItSavesTheSteps() {
        Desktop desktop(settingsWithAMacro());
        desktop.showTab(kMacrosTab);
        QVERIFY(!desktop.kde.thing(QStringLiteral("cell 'Jump'")).isNull());
        desktop.keyboard.press({KEY_TAB});
        desktop.keyboard.press({KEY_HOME});
        desktop.kde.perform("Toggle", QStringLiteral("check box 'Record'"));
        QVERIFY(!desktop.kde.thing(QStringLiteral("check box 'Stop'")).isNull());
        desktop.keyboard.press({KEY_B});
        QVERIFY(!desktop.kde.thing(QStringLiteral("cell 'Release b'")).isNull());
        QVERIFY(desktop.kde.quit());
        QCOMPARE(desktop.kde.session.home.savedSettings().array("macros").dictionary(0).array("steps").size(),
            std::size_t(2));
        auto told = desktop.monitor.commandsUntil("KyRO 0");
        std::erase(told, ""); // the helper's own device list
        QCOMPARE(told, std::vector<std::string>({"KyRO 1", "KyDM 1", "KyDM 0", "KyPR 0", "KyRO 0"}));
    }
};

QUORVI_SESSION_TEST_MAIN(SystemSettingsOnWaylandTest)
#include "SystemSettingsOnWaylandTest.moc"
