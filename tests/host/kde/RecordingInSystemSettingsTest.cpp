// However System Settings or its page ends while a macro is recorded: the recorded steps are in the file, the
// helper is notified, and the keyboard is released.

#include <QTest>

#include "host/kde/KdeHost.h"
#include "host/kde/KdeSettings.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/WindowTools.h"

using namespace quorvi::test;

namespace {

/// System Settings with the key B recorded into its one macro, and the recording still on.
struct Recording {
    Recording() {
        kde.session.home.writeSettings(settingsWithAMacro());
        kde.startAtPanel();
        kde.click(QStringLiteral("page tab 'Macros'"));
        kde.click(QStringLiteral("cell 'Jump'"));
        kde.click(QStringLiteral("check box 'Record'"));
        if (kde.thing(QStringLiteral("check box 'Stop'")).isNull() ||
            !QTest::qWaitFor([this] { return !other.canTakeKeyboard(); }, kWindowPatienceMs) ||
            !xdotool({"key", "b"}) || kde.thing(QStringLiteral("cell 'Release b'")).isNull())
            qFatal("nothing is recorded");
    }
    /// What is to be true when the page is gone, however it went.
    void isOver(const std::string& shownAndHidden) {
        QCOMPARE(kde.panel.told(shownAndHidden), shownAndHidden);
        QTRY_VERIFY_WITH_TIMEOUT(other.canTakeKeyboard(), kWindowPatienceMs);
        QCOMPARE(kde.session.home.savedSettings().array("macros").dictionary(0).array("steps").size(),
            std::size_t(2));
        auto told = monitor.commandsUntil("KyRO 0");
        std::erase(told, ""); // the helper's own device list
        QCOMPARE(told, std::vector<std::string>({"KyRO 1", "KyDM 1", "KyDM 0", "KyPR 0", "KyRO 0"}));
    }

    KdeHost kde;
    EventMonitor monitor{qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS").toStdString()};
    OtherProgram other;
};

} // namespace

class RecordingInSystemSettingsTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void closedByItsTitleBarItSavesTheSteps() {
        Recording recording;
        QVERIFY(recording.kde.closeByTitleBar());
        recording.isOver("10");
    }

    void toldToQuitItSavesTheSteps() {
        Recording recording;
        QVERIFY(recording.kde.quit());
        recording.isOver("10");
    }

    void sentToAnotherPageItSavesTheSteps() {
        Recording recording;
        recording.kde.goTo(kOtherModule);
        recording.isOver("10");
        QVERIFY(recording.kde.program->isRunning());
        QVERIFY(recording.kde.quit());
    }
};

QUORVI_SESSION_TEST_MAIN(RecordingInSystemSettingsTest)
#include "RecordingInSystemSettingsTest.moc"
