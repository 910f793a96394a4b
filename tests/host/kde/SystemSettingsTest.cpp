// The module in System Settings, from the search to the end of the program.

#include <QTest>

#include "host/kde/KdeHost.h"
#include "host/kde/KdeSettings.h"
#include "support/Files.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/WindowTools.h"

using namespace quorvi::test;

namespace {

/// System Settings at the panel with a key on the second button, and the sheet open that asks for another.
struct KeySheet {
    KeySheet() {
        kde.session.home.writeSettings(settingsWithAKey(kUsageOfA));
        kde.startAtPanel();
        if (!xdotool({"key", "alt+2", "space", "Return"})) // the menu stands on the chosen item
            qFatal("xdotool fails");
        kde.activateSheet("Press Key");
        // Looking for the sheet's grab means to take the keyboard for a moment.
        if (!QTest::qWaitFor([this] { return !other.canTakeKeyboard(); }, kWindowPatienceMs))
            qFatal("the sheet does not take the keyboard");
    }
    [[nodiscard]] int storedKey() const { return keyIn(kde.session.home.savedSettings()); }

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

    void aPageThatIsDestroyedAndMadeAgainIsHiddenAndShown() {
        KdeHost kde;
        kde.startAtPanel();
        QCOMPARE(kde.panel.told("1"), std::string("1"));
        kde.goTo(kOtherModule);
        QCOMPARE(kde.panel.told("10"), std::string("10"));
        kde.goTo(kModule);
        QVERIFY(kde.showsPanel());
        QVERIFY(kde.close());
        QCOMPARE(kde.panel.toldAtLast(), std::string("1010"));
    }

    void helpIsThePanelsOwn() {
        KdeHost kde;
        kde.startAtPanel();
        QVERIFY(xdotool({"key", "F1"}));
        QVERIFY2(kde.opensOwnHelp(), kde.opened().c_str());
        QVERIFY(kde.close());
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
        QVERIFY(sheet.kde.quit());
        QVERIFY(sheet.other.canTakeKeyboard());
        QCOMPARE(sheet.kde.panel.toldAtLast(), std::string("10"));
        QCOMPARE(sheet.storedKey(), kUsageOfA);
    }

    void sentToAnotherPageDuringACaptureItLeavesTheKeyboardToOthers() {
        KeySheet sheet;
        sheet.kde.goTo(kOtherModule);
        QCOMPARE(sheet.kde.panel.told("10"), std::string("10"));
        QTRY_VERIFY_WITH_TIMEOUT(sheet.other.canTakeKeyboard(), kWindowPatienceMs);
        QVERIFY(sheet.kde.program->isRunning());
        sheet.kde.goTo(kModule);
        QVERIFY(sheet.kde.showsPanel());
        QVERIFY(sheet.kde.close());
        QCOMPARE(sheet.kde.panel.toldAtLast(), std::string("1010"));
    }
};

QUORVI_SESSION_TEST_MAIN(SystemSettingsTest)
#include "SystemSettingsTest.moc"
