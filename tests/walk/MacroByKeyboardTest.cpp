// What a new user wants of a macro, from an empty list to the macro that works: record "hi", mend a wrong
// step, insert a key in the middle, exchange two, set a delay of 75 ms, and try it, without the mouse.
#include <QTest>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "support/WaitUntil.h"
#include "walk/Walk.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QString kSteps = QStringLiteral("table 'Steps of the macro'");
const QString kTrial = QStringLiteral("text 'Try the macro'");

} // namespace

class MacroByKeyboardTest : public QObject {
    Q_OBJECT

    static QStringList shownSteps(const Walk& walk) {
        const Accessible table = walk.thing(kSteps);
        QStringList steps;
        for (int row = 0; row < table.rows(); ++row)
            steps << QString::fromStdString(table.cell(row, 0).name());
        return steps;
    }
    static std::string firstDelay(const Walk& walk) { return walk.thing(kSteps).cell(0, 1).name(); }
    static bool types(const Walk& walk, const char* text) {
        return waitUntil([&] { return walk.thing(kTrial).text() == text; });
    }
    static void typeKeys(const QStringList& keys) {
        for (const QString& key : keys)
            QVERIFY(xdotool({"key", key.toStdString()}));
    }

    /// Ends a recording by the key that is held for that.
    static void holdEscape(const Walk& walk) {
        QVERIFY(xdotool({"keydown", "Escape"}));
        QVERIFY(!walk.thing("check box 'Record'").isNull());
        QVERIFY(xdotool({"keyup", "Escape"}));
    }
    /// Chooses the command, or opens the submenu, of the list's menu.
    static void choose(Walk& walk, const QString& title) {
        QVERIFY(walk.moveTo("push button 'More step commands'"));
        walk.press({"space"});
        QVERIFY(walk.chooseItem(title));
    }
    static void select(Walk& walk, int row) {
        QVERIFY(walk.moveTo("push button 'Add steps'"));
        // The line of a fault has a button between the two.
        while (!walk.focusMovedBy("shift+Tab").startsWith(QLatin1String("cell"))) {
        }
        const int steps = walk.thing(kSteps).rows();
        for (int at = 0; at < steps; ++at)
            walk.press({"Up"});
        for (int at = 0; at < row; ++at)
            walk.press({"Down"});
        QTRY_COMPARE(walk.thing(kSteps).selectedRows(), std::vector{row});
    }

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void recordedMendedReorderedAndTried() {
        Walk walk;
        QVERIFY(walk.enterTab(kMacrosTab));
        QVERIFY(walk.moveTo("push button 'Add macro'"));
        walk.press({"space"});
        QVERIFY(!walk.thing("text 'Macro'").isNull());
        walk.press({"Return"});
        QVERIFY(walk.moveTo("check box 'Record'"));
        walk.press({"space"});
        QVERIFY(!walk.thing("check box 'Stop'").isNull());
        typeKeys({"h", "j"});
        QTRY_COMPARE(shownSteps(walk), QStringList({"Press h", "Release h", "Press j", "Release j"}));
        holdEscape(walk);

        select(walk, 2);
        choose(walk, "Record Step Again");
        QVERIFY(!walk.thing("check box 'Stop'").isNull());
        typeKeys({"i"});
        QTRY_COMPARE(shownSteps(walk), QStringList({"Press h", "Release h", "Press i", "Release i"}));
        QVERIFY(!walk.thing("check box 'Record'").isNull());

        select(walk, 1);
        choose(walk, "Insert After");
        QVERIFY(walk.chooseItem("Record Here"));
        QVERIFY(!walk.thing("check box 'Stop'").isNull());
        typeKeys({"o"});
        QTRY_COMPARE(shownSteps(walk),
            QStringList({"Press h", "Release h", "Press o", "Release o", "Press i", "Release i"}));
        holdEscape(walk);

        select(walk, 4);
        walk.press({"shift+Down", "alt+Up", "alt+Up"}); // both halves, past both of the other key
        QTRY_COMPARE(shownSteps(walk),
            QStringList({"Press h", "Release h", "Press i", "Release i", "Press o", "Release o"}));

        select(walk, 0);
        walk.press({"F2"});
        QVERIFY(!walk.thing("text 'Delay After'").isNull());
        typeKeys({"7", "5", "Return"});
        QTRY_COMPARE(firstDelay(walk), std::string("75 ms"));

        QVERIFY(walk.moveTo("check box 'Play'"));
        walk.press({"space"});
        QVERIFY(types(walk, "hio"));
    }
};

QUORVI_SESSION_TEST_MAIN(MacroByKeyboardTest)
#include "MacroByKeyboardTest.moc"
