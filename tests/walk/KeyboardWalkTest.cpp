// The profiles and macros tabs with the keyboard alone, in the real program, with keys from the display:
// moving between controls, the lists of macros and steps, and unplugging the mouse.

#include <QFile>
#include <QTest>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Controls.h"
#include "walk/Walk.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QString kCancel = QStringLiteral("push button 'Cancel'");
const QString kFileName = QStringLiteral("text 'File name:'");

/// Behind it for the eye: below it, or to the right of it.
bool follows(const Extents& place, const Extents& before) {
    return place.top >= before.bottom() || place.left >= before.right();
}

} // namespace

class KeyboardWalkTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void everyControlIsReachedInTheOrderOfTheEye_data() {
        QTest::addColumn<int>("tab");
        QTest::addColumn<QStringList>("controls");
        QTest::newRow("profiles")
            << int(kProfilesTab)
            << QStringList{"table 'Profiles'", "push button 'Add profile'", "push button 'Delete profile'",
                   "push button 'Assign application'", "push button 'More profile commands'",
                   "check box 'Show this profile's name on screen when the mouse switches to it'"};
        QTest::newRow("macros") << int(kMacrosTab)
                                << QStringList{"table 'Macros'", "push button 'Add macro'",
                                       "push button 'Delete macro'", "push button 'More macro commands'",
                                       "check box 'Play'", "check box 'Record'",
                                       "list 'Timeline of the macro'",
                                       "push button 'Add the Missing Release'", "table 'Steps of the macro'",
                                       "push button 'Add steps'", "push button 'Remove step'",
                                       "push button 'More step commands'", "text 'Try the macro'"};
    }

    void everyControlIsReachedInTheOrderOfTheEye() {
        QFETCH(int, tab);
        QFETCH(QStringList, controls);
        Walk walk(settingsToWalkIn());
        QVERIFY(walk.enterTab(Tab(tab)));
        // To a row that can be removed; of the steps as well.
        if (tab == kProfilesTab) {
            QCOMPARE(walk.focusMovedBy("Down"), QStringLiteral("cell '2'"));
        } else {
            walk.press({"Down"}); // selects the row that it would move from
            QVERIFY(walk.moveTo("cell 'Press a'"));
            walk.press({"Down"});
            QVERIFY(walk.moveTo("cell 'Hello'", "shift+Tab"));
        }
        QStringList reached;
        std::optional<Extents> before;
        while (reached.size() < controls.size()) {
            const QString focus = walk.focus();
            QVERIFY2(!focus.startsWith(QLatin1String("out of sight")), qPrintable(focus));
            const Accessible control = controlOf(walk.reader().focus());
            QVERIFY2(!before || follows(control.extents(), *before), qPrintable(heard(control)));
            before = control.extents();
            reached << heard(control);
            (void)walk.focusMovedBy("Tab");
        }
        QCOMPARE(reached, controls);
        // Then the window's own buttons, which stand above the tabs, and the tabs again. The profile that was
        // selected can be taken back.
        QVERIFY2(isProfileMenu(walk.focus()), qPrintable(walk.focus()));
        (void)walk.focusMovedBy("Tab");
        const bool canUndo = tab == kProfilesTab;
        if (canUndo) {
            QCOMPARE(walk.focus(), QStringLiteral("push button 'Undo'"));
            (void)walk.focusMovedBy("Tab");
        }
        QCOMPARE(walk.focus(), QStringLiteral("push button 'Help'"));
        QVERIFY(walk.focusMovedBy("Tab").startsWith(QLatin1String("page tab")));
        // And all the way back.
        for (int back = 0; back < (canUndo ? 3 : 2); ++back)
            (void)walk.focusMovedBy("shift+Tab");
        QStringList backwards;
        while (backwards.size() < controls.size()) {
            (void)walk.focusMovedBy("shift+Tab");
            backwards.prepend(heard(controlOf(walk.reader().focus())));
        }
        QCOMPARE(backwards, controls);
    }

    void aMacroIsAddedNamedCarriedAndRemoved() {
        Walk walk;
        const QString file = QString::fromStdString(walk.session().home.path()) + "/a file";
        QVERIFY(walk.enterTab(kMacrosTab));
        QVERIFY(walk.moveTo("push button 'Add macro'"));
        QCOMPARE(walk.focusAfter("space", "text 'Macro'"), QStringLiteral("text 'Macro'"));
        walk.type("Hello");
        QCOMPARE(walk.focusAfter("Return", "cell 'Hello'"), QStringLiteral("cell 'Hello'"));
        QCOMPARE(walk.focusAfter("F2", "text 'Macro'"), QStringLiteral("text 'Macro'"));
        walk.type("Nonsense");
        QCOMPARE(walk.focusAfter("Escape", "cell 'Hello'"), QStringLiteral("cell 'Hello'"));
        walk.press({"shift+F10"});
        QVERIFY(walk.chooseItem(QStringLiteral("Export Macro…")));
        QCOMPARE(walk.focusBecomes(kFileName), kFileName);
        QCOMPARE(walk.savedNames("macros", {"Hello"}), QStringList("Hello"));
        walk.press({"ctrl+a"});
        walk.type(file);
        QCOMPARE(walk.focusAfter("Return", "cell 'Hello'"), QStringLiteral("cell 'Hello'"));
        QTRY_VERIFY(QFile::exists(file + ".quorviMacro"));
        QVERIFY(walk.moveTo("push button 'More macro commands'"));
        walk.press({"Return"});
        QVERIFY(walk.chooseItem(QStringLiteral("Import Macro…")));
        QCOMPARE(walk.focusBecomes(kFileName), kFileName);
        walk.type(file + ".quorviMacro");
        const QString gear = QStringLiteral("push button 'More macro commands'");
        QCOMPARE(walk.focusAfter("Return", gear), gear);
        QCOMPARE(walk.savedNames("macros", {"Hello", "Hello 2"}), QStringList({"Hello", "Hello 2"}));
        QVERIFY(walk.helperIsTold(0));
        const QString remove = QStringLiteral("push button 'Delete macro'");
        QCOMPARE(walk.focusAfter("shift+Tab", remove), remove);
        for (const QStringList& left : {QStringList("Hello"), QStringList()}) {
            QCOMPARE(walk.focusAfter("space", kCancel), kCancel);
            QCOMPARE(
                walk.focusAfter("shift+Tab", "push button 'Delete'"), QStringLiteral("push button 'Delete'"));
            const QString then = left.isEmpty() ? QStringLiteral("push button 'Record a Macro'") : remove;
            QCOMPARE(walk.focusAfter("Return", then), then);
            QCOMPARE(walk.savedNames("macros", left), left);
            QVERIFY(walk.helperIsTold(0));
        }
    }

    void stepsAreRemovedOneByOneAndAllAtOnce() {
        Walk walk(settingsToWalkIn());
        const auto savedSteps = [&] { return walk.savedItem("macros", 0).array("steps").size(); };
        QVERIFY(walk.enterTab(kMacrosTab));
        walk.press({"Down"});
        QVERIFY(walk.moveTo("cell 'Press a'"));
        walk.press({"Down"});
        QTRY_VERIFY(walk.reader().focus().is(AccessibleState::selected));
        walk.press({"Menu"});
        QVERIFY(walk.chooseItem("Remove Step"));
        QTRY_COMPARE(savedSteps(), std::size_t(2));
        QVERIFY(walk.helperIsTold(0));
        QCOMPARE(walk.focusBecomes("cell 'Press b'"), QStringLiteral("cell 'Press b'"));
        walk.press({"Delete"});
        const QString gear = QStringLiteral("push button 'More step commands'");
        QVERIFY(walk.moveTo(gear));
        walk.press({"Return"});
        QVERIFY(walk.chooseItem("Remove All Delays"));
        QTRY_COMPARE(savedSteps(), std::size_t(1));
        QCOMPARE(walk.focusBecomes(gear), gear);
        walk.press({"Return"});
        QVERIFY(walk.chooseItem("Remove All Steps"));
        QTRY_COMPARE(savedSteps(), std::size_t(0));
        QCOMPARE(walk.focusBecomes(gear), gear);
    }

    void theKeyboardHasAPlaceWhenTheMouseGoesAndComes() {
        Walk walk(settingsToWalkIn());
        QVERIFY(walk.enterTab(kProfilesTab));
        walk.session().detach();
        QVERIFY(!walk.thing("label 'No device connected'").isNull());
        const QString place = walk.focusMovedBy("Tab");
        const bool isControl = place.startsWith(QLatin1String("push button")) ||
                               place == QStringLiteral("page tab list 'Profiles'");
        QVERIFY2(isControl, qPrintable(place));
        QVERIFY(walk.moveTo("page tab list 'Profiles'"));
        walk.session().attach();
        QVERIFY(!walk.thing("label 'Connected'").isNull());
        QCOMPARE(walk.focusMovedBy("Tab"), QStringLiteral("cell '1'"));
    }
};

QUORVI_SESSION_TEST_MAIN(KeyboardWalkTest)
#include "KeyboardWalkTest.moc"
