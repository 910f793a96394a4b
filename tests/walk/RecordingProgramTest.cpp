// The real program while it records a macro, and when it is terminated or killed.

#include <QTest>

#include <csignal>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Walk.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QString kRecord = QStringLiteral("check box 'Record'");

/// The steps of the first macro as the file holds them: "command argument", without delays.
QStringList savedSteps(const Walk& walk) {
    QStringList result;
    const auto steps = walk.savedItem("macros", 0).array("steps");
    for (std::size_t index = 0; index < steps.size(); ++index)
        result << QStringLiteral("%1 %2")
                      .arg(steps.dictionary(index).integer("command"))
                      .arg(steps.dictionary(index).integer("argument"));
    return result;
}

} // namespace

class RecordingProgramTest : public QObject {
    Q_OBJECT

    /// Records a press and a release of B behind the three presses of the first macro.
    void record(Walk& walk) {
        QVERIFY(walk.enterTab(kMacrosTab));
        walk.press({"Down"});
        QVERIFY(walk.moveTo(kRecord));
        walk.press({"space"});
        QVERIFY(!walk.thing("check box 'Stop'").isNull());
        QVERIFY(xdotool({"key", "b"}));
        QVERIFY(!walk.thing("cell 'Release b'").isNull());
    }

    std::unique_ptr<OtherProgram> m_other;

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }
    void init() { m_other = std::make_unique<OtherProgram>(); }
    void cleanup() { m_other.reset(); }

    void askedToEndItSavesTheStepsTellsTheHelperAndLeavesTheKeyboardToOthers() {
        Walk walk(settingsToWalkIn());
        record(walk);
        QVERIFY(!m_other->canTakeKeyboard());
        QCOMPARE(savedSteps(walk), QStringList({"1 4", "1 5", "1 6"}));
        QCOMPARE(walk.endBy(SIGTERM), std::optional(0));
        QVERIFY(m_other->canTakeKeyboard());
        QCOMPARE(savedSteps(walk), QStringList({"1 4", "1 5", "1 6", "1 5", "0 5"}));
        QCOMPARE(walk.commandsUntil("KyRO 0"), QStringList({"KyDM 1", "KyDM 0", "KyPR 0", "KyRO 0"}));
    }

    void killedItLeavesTheKeyboardToOthersAndTheFileAsItWas() {
        Walk walk(settingsToWalkIn());
        record(walk);
        QVERIFY(!m_other->canTakeKeyboard());
        QCOMPARE(walk.endBy(SIGKILL), std::optional(128 + SIGKILL));
        QTRY_VERIFY_WITH_TIMEOUT(m_other->canTakeKeyboard(), 20000);
        QCOMPARE(savedSteps(walk), QStringList({"1 4", "1 5", "1 6"}));
        m_other->showWindow();
        m_other->activateWindow();
        QVERIFY(xdotool({"key", "b"}));
        QTRY_COMPARE_WITH_TIMEOUT(m_other->keyPresses(), 1, 20000);
    }
};

QUORVI_SESSION_TEST_MAIN(RecordingProgramTest)
#include "RecordingProgramTest.moc"
