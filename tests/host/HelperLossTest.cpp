// The helper is killed, stopped or missing while the panel is open as a separate program: the panel keeps
// working, and when there is a helper again the two find each other, with the settings in the mouse.

#include <QElapsedTimer>
#include <QTest>

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include "host/BundleWithOtherHelper.h"
#include "host/PanelProgram.h"
#include "support/EventMonitor.h"
#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/Tabs.h"

using namespace quorvi;
using namespace quorvi::test;
namespace fs = std::filesystem;

namespace {

plist::Dictionary settingsWithAnEmptyMacro() {
    auto tree = UserHome::defaults();
    const auto macro = plist::Dictionary::create();
    macro.set("macroid", 7);
    macro.set("name", u"Hello");
    macro.set("delay", 0);
    macro.set("steps", plist::Array::create());
    tree.array("macros").append(macro);
    return tree;
}

std::size_t savedSteps(const Session& session) {
    return session.home.savedSettings().array("macros").dictionary(0).array("steps").size();
}

std::string busAddress() {
    return qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS").toStdString();
}

/// The helper comes back, and with it all that panel and helper have to say to each other.
void findsEachOtherAgain(PanelProgram& panel, bool byTheBus) {
    byTheBus ? panel.session.activateHelper() : panel.session.startHelper();
    QVERIFY(panel.mouseFollows());
    QVERIFY(panel.clickReachesTheMouse());
    panel.session.home.awaitDeviceList();
    QCOMPARE(panel.session.panelsToldOfDetaching(), 1);
    QVERIFY(panel.getsTheList());
    QCOMPARE(panel.session.helpers().size(), std::size_t(1));
}

} // namespace

class HelperLossTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void aHelperKilledWhileThePanelIsIdle_data() {
        QTest::addColumn<bool>("byTheBus");
        QTest::newRow("and started by hand") << false;
        QTest::newRow("and started by the bus") << true;
    }

    void aHelperKilledWhileThePanelIsIdle() {
        QFETCH(bool, byTheBus);
        PanelProgram panel;
        QVERIFY(panel.clickReachesTheMouse());
        const WindowPing ping(panel.program->window());
        panel.session.killHelper();
        QVERIFY(answersInTime(ping));
        QVERIFY(panel.session.helpers().empty()); // it is started when the user does something
        findsEachOtherAgain(panel, byTheBus);
        QVERIFY(answersInTime(ping));
    }

    void aHelperThatWasKilledIsStartedByTheNextEdit() {
        PanelProgram panel;
        QVERIFY(panel.clickReachesTheMouse());
        const WindowPing ping(panel.program->window());
        panel.session.killHelper();
        for (int click = 0; click < 3; ++click)
            QVERIFY(panel.keyIsSaved()); // an odd number, so that the mouse has to change
        QVERIFY(panel.mouseFollows());
        QCOMPARE(panel.session.helpers().size(), std::size_t(1));
        QVERIFY(panel.keyIsSaved() && panel.mouseFollows());
        QVERIFY(answersInTime(ping));
    }

    void aHelperKilledInTheMiddleOfADrag() {
        PanelProgram panel;
        const Spots slider = spotsOf("quorviSliderSensitivityX", kSensitivityTab);
        const auto saved = [&] {
            return panel.session.home.savedSettings().dictionary("settings").integer("dpix");
        };
        panel.session.home.awaitDeviceList();
        const WindowPing ping(panel.program->window());
        panel.program->clickAt(slider.tab);
        panel.program->pressAt(slider.control);
        const auto dragTo = [&](int step) {
            const int before = saved();
            panel.program->moveTo(slider.control + (slider.end - slider.control) * step / 9);
            return QTest::qWaitFor([&] { return saved() != before; }, kWindowPatienceMs);
        };
        for (int step = 1; step <= 3; ++step)
            QVERIFY(dragTo(step));
        panel.session.killHelper();
        for (int step = 4; step <= 6; ++step)
            QVERIFY(dragTo(step));
        panel.session.startHelper();
        for (int step = 7; step <= 9; ++step)
            QVERIFY(dragTo(step));
        OpenProgram::release();
        QVERIFY(answersInTime(ping));
        QVERIFY(saved() > 4000);
        QVERIFY(panel.mouseFollows());
    }

    void aHelperKilledDuringARecording() {
        PanelProgram panel;
        panel.session.home.writeSettings(settingsWithAnEmptyMacro());
        panel.session.attach(); // has the panel read them
        const Spots macros = spotsOf("quorviTableMacros", kMacrosTab);
        const Spots record = spotsOf("quorviButtonStepRecord", kMacrosTab, "quorviTableMacros");
        EventMonitor monitor(busAddress());
        panel.program->clickAt(macros.tab);
        panel.program->clickAt(macros.firstRow);
        panel.program->clickAt(record.control);
        QVERIFY(monitor.sees("KyDM 1"));
        QVERIFY(xdotool({"key", "a"}));
        panel.session.killHelper();
        QVERIFY(xdotool({"key", "b"}));
        QCOMPARE(savedSteps(panel.session), std::size_t(0));
        panel.session.startHelper();
        // The list that greets the panel ends the recording, which is saved.
        QTRY_COMPARE_WITH_TIMEOUT(savedSteps(panel.session), std::size_t(4), kWindowPatienceMs);
        QVERIFY(monitor.sees("KyDM 0"));
        QVERIFY(panel.mouseFollows());
    }

    void aHelperKilledRightAfterItWasToldOfThePanel() {
        PanelProgram panel;
        QCOMPARE(panel.program->end().exitCode, std::optional(0));
        panel.session.home.awaitDeviceList();
        const auto helpers = panel.session.helpers();
        QCOMPARE(helpers.size(), std::size_t(1));
        ::kill(helpers.front(), SIGSTOP); // so that it cannot answer before it dies
        EventMonitor monitor(busAddress());
        panel.open();
        QVERIFY(monitor.sees("KyRO 1"));
        panel.session.killHelper();
        const WindowPing ping(panel.program->window());
        QVERIFY(answersInTime(ping));
        QVERIFY(!panel.session.home.deviceListHasCome());
        panel.session.startHelper();
        QVERIFY(panel.getsTheList());
        QVERIFY(panel.clickReachesTheMouse());
    }

    void aHelperThatCannotBeStarted_data() {
        QTest::addColumn<QString>("script");
        QTest::addColumn<bool>("isThere");
        QTest::addColumn<bool>("isExecutable");
        QTest::newRow("gone") << "" << false << false;
        QTest::newRow("not executable") << "" << true << false;
        QTest::newRow("no program") << "\x7F"
                                       "ELF"
                                    << true << true;
        QTest::newRow("crashing at once") << "kill -SEGV $$\n" << true << true;
    }

    void aHelperThatCannotBeStarted() {
        QFETCH(QString, script);
        QFETCH(bool, isThere);
        QFETCH(bool, isExecutable);
        PanelProgram panel;
        QCOMPARE(panel.program->end().exitCode, std::optional(0));
        panel.session.killHelper();
        panel.session.home.awaitDeviceList();
        const BundleWithOtherHelper bundle(script.toStdString());
        if (!isExecutable)
            fs::permissions(bundle.program(), fs::perms::owner_read);
        if (!isThere)
            fs::remove(bundle.program());
        panel.open(bundle.path());
        const WindowPing ping(panel.program->window());
        QVERIFY(answersInTime(ping));
        QVERIFY(panel.session.runs("KyvarQuorviPane"));
        QVERIFY(!panel.session.home.deviceListHasCome());
        panel.session.startHelper();
        QVERIFY(panel.getsTheList());
        QVERIFY(panel.clickReachesTheMouse());
    }

    /// 10 seconds with QUORVI_STORM, as the full storm.
    void aHelperThatDoesNotAnswerForAWhileMissesNothing() {
        const PanelProgram panel;
        const WindowPing ping(panel.program->window());
        const auto helpers = panel.session.helpers();
        QCOMPARE(helpers.size(), std::size_t(1));
        ::kill(helpers.front(), SIGSTOP);
        QElapsedTimer stopped;
        stopped.start();
        const int wanted = std::getenv("QUORVI_STORM") ? 10'000 : 1500;
        int clicks = 0;
        for (; stopped.elapsed() < wanted || clicks % 2 == 0; ++clicks)
            QVERIFY(panel.clickIsSaved());
        ::kill(helpers.front(), SIGCONT);
        QVERIFY(panel.mouseFollows());
        QCOMPARE(panel.session.recordByte(kFirstProfileLights), 3 ^ (clicks % 2));
        QVERIFY(answersInTime(ping));
        std::printf("%d clicks while the helper slept; the longest answer took %d ms\n", clicks,
            ping.longestDelayMs());
        QCOMPARE(panel.session.helpers(), helpers);
    }
};

QUORVI_SESSION_TEST_MAIN(HelperLossTest)
#include "HelperLossTest.moc"
