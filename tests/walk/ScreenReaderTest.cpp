// The real program through a screen reader's interface: the controls' names, roles and actions.

#include <QTest>

#include <set>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Controls.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

/// Every control of the window that is on the screen can be told by its kind and its name; otherwise what is
/// wrong.
QString whatIsWrongIn(const Accessible& window) {
    std::set<QString> heardSoFar;
    for (const Accessible& thing : everythingIn(window)) {
        const QString role = QString::fromStdString(thing.role());
        if (!isKnownControl(role) && !onlyShows(role))
            return "an odd kind: " + heard(thing);
        if (!isKnownControl(role) || !thing.is(AccessibleState::showing) || thing.extents().height == 0)
            continue;
        const QString name = nameOf(thing);
        if (!isSpokenName(name))
            return "no name for the ear: " + heard(thing) + " " + name;
        // Qt gives a pop-up a list of its own, and the list of tabs the name of the current one.
        if (role != "page tab list" && !heardSoFar.insert(role + name).second)
            return "heard twice: " + heard(thing) + " " + name;
    }
    return heardSoFar.empty() ? "nothing" : QString();
}

int countOf(const Accessible& window, const std::string& role) {
    const auto things = everythingIn(window);
    return int(std::count_if(things.begin(), things.end(),
        [&](const Accessible& thing) { return thing.role() == role && thing.is(AccessibleState::showing); }));
}

} // namespace

class ScreenReaderTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display");
    }

    void everyControlOfEveryTabHasANameOfItsOwn() {
        Walk walk(settingsToWalkIn());
        QCOMPARE(walk.window().role(), std::string("frame"));
        struct Expected {
            const char* tab;
            const char* role;
            int count;
        };
        for (const Expected& expected : {Expected{"Buttons", "combo box", 9}, {"Sensitivity", "slider", 3},
                 {"Profiles", "push button", 5}, {"Macros", "push button", 5}, {"Device", "check box", 2}}) {
            QVERIFY2(walk.openTab(expected.tab), expected.tab);
            QCOMPARE(whatIsWrongIn(walk.window()), QString());
            QVERIFY2(countOf(walk.window(), expected.role) >= expected.count, expected.tab);
        }
        // With a macro selected its steps are there as well: three buttons to add, three to remove.
        QVERIFY(walk.openTab("Macros"));
        QVERIFY(walk.thing("cell 'Hello'").perform("Toggle"));
        QVERIFY(!walk.thing("push button 'Add steps'").isNull());
        QTRY_VERIFY(walk.thing("push button 'Add steps'").is(AccessibleState::showing));
        QCOMPARE(whatIsWrongIn(walk.window()), QString());
        QCOMPARE(countOf(walk.window(), "table"), 2);
    }

    void tablesSayTheirColumnsAndEveryCell() {
        Walk walk(settingsToWalkIn());
        QVERIFY(walk.openTab("Profiles"));
        const Accessible table = walk.thing("table 'Profiles'");
        QCOMPARE(table.rows(), 3);
        QCOMPARE(table.columns(), 4);
        QStringList titles;
        QStringList second;
        for (int column = 0; column < table.columns(); ++column) {
            titles << QString::fromStdString(table.columnTitle(column));
            second << heard(table.cell(1, column));
        }
        QCOMPARE(titles, QStringList({"No.", "Profile", "Application", "Switch Automatically"}));
        QCOMPARE(second, QStringList({"cell '2'", "cell 'Game'", "cell 'Every application'",
                             "cell 'Does not switch automatically'"}));
        for (const QString& title : titles)
            QVERIFY(!walk.thing(QStringLiteral("column header '%1'").arg(title)).isNull());
        QVERIFY(walk.openTab("Macros"));
        QCOMPARE(walk.thing("table 'Macros'").columnTitle(0), std::string("Macro"));
        QCOMPARE(heard(walk.thing("table 'Macros'").cell(1, 0)), QStringLiteral("cell 'Greet'"));
        QVERIFY(walk.thing("cell 'Greet'").perform("Toggle"));
        QCOMPARE(walk.thing("table 'Steps of the macro'").columnTitle(1), std::string("Delay After"));
    }

    void theCheckBoxesOfTheListSayTheirState() {
        const auto settings = settingsToWalkIn();
        settings.array("profiles").dictionary(2).dictionary("driver").set("autoswitch", true);
        Walk walk(settings);
        QVERIFY(walk.enterTab(kProfilesTab));
        const Accessible table = walk.thing("table 'Profiles'");
        const QString on = QStringLiteral("cell 'Switches automatically'");
        const QString off = QStringLiteral("cell 'Does not switch automatically'");
        QCOMPARE(heard(table.cell(0, 3)), off);
        QCOMPARE(heard(table.cell(2, 3)), on);
        // The key leads the reader to the box that it clicks.
        QCOMPARE(walk.focusAfter("space", on), on);
        QVERIFY(walk.reader().focus() == table.cell(0, 3));
        QCOMPARE(walk.focusAfter("space", off), off);
    }

    void menusAndTheirItemsHaveNames_data() {
        QTest::addColumn<QString>("tab");
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("menu");
        QTest::addColumn<int>("items");
        QTest::newRow("profiles") << "Profiles"
                                  << "push button 'More profile commands'"
                                  << "Profile commands" << 8;
        QTest::newRow("macros") << "Macros"
                                << "push button 'More macro commands'"
                                << "Macro commands" << 4;
        QTest::newRow("steps") << "Macros"
                               << "push button 'More step commands'"
                               << "Step commands" << 16;
    }

    void menusAndTheirItemsHaveNames() {
        QFETCH(QString, tab);
        QFETCH(QString, button);
        QFETCH(QString, menu);
        QFETCH(int, items);
        Walk walk(settingsToWalkIn());
        QVERIFY(walk.openTab(qPrintable(tab)));
        if (tab == "Macros")
            QVERIFY(walk.thing("cell 'Hello'").perform("Toggle"));
        QTRY_VERIFY(walk.thing(button).is(AccessibleState::showing));
        QVERIFY(walk.perform(button));
        QTRY_COMPARE(walk.reader().focus().role(), std::string("menu item"));
        const Accessible opened = walk.reader().focus().parent();
        QCOMPARE(heard(opened), QStringLiteral("popup menu '%1'").arg(menu));
        QCOMPARE(whatIsWrongIn(opened), QString());
        QCOMPARE(countOf(opened, "menu item"), items);
    }

    void buttonsAndBoxesDoWhatTheyDoForOthers() {
        Walk walk;
        QVERIFY(walk.openTab("Profiles"));
        QVERIFY(walk.perform("push button 'Add profile'"));
        QCOMPARE(walk.focusBecomes("text 'Profile'"), QStringLiteral("text 'Profile'"));
        const QStringList two{"Default Profile", "Untitled Profile"};
        QCOMPARE(walk.savedNames("profiles", two), two);
        QVERIFY(walk.perform(
            "check box 'Show this profile's name on screen when the mouse switches to it'", "Toggle"));
        QTRY_VERIFY(!walk.savedItem("profiles", 1).dictionary("driver").boolean("profileosd"));
        QVERIFY(walk.openTab("Macros"));
        QVERIFY(walk.perform("push button 'Add macro'"));
        QCOMPARE(walk.savedNames("macros", {"Untitled Macro"}), QStringList("Untitled Macro"));
    }

    void theQuestionIsReadOutAndAnswered() {
        Walk walk(settingsToWalkIn());
        QVERIFY(walk.openTab("Profiles"));
        QVERIFY(walk.thing("cell 'Game'").perform("Toggle"));
        QTRY_VERIFY(walk.thing("push button 'Delete profile'").is(AccessibleState::enabled));
        QVERIFY(walk.perform("push button 'Delete profile'"));
        const Accessible sheet = walk.reader().window("Please Confirm");
        QCOMPARE(sheet.role(), std::string("dialog"));
        QCOMPARE(whatIsWrongIn(sheet), QString());
        QVERIFY(!walk.thing("label 'Delete profile: Game\n\nAre you sure you want to delete this profile?'")
                     .isNull());
        QVERIFY(walk.perform("push button 'Delete'"));
        const QStringList left{"Default Profile", "Work"};
        QCOMPARE(walk.savedNames("profiles", left), left);
    }

    void aCommandThatAsksDoesNotKeepTheReaderWaiting() {
        Walk walk(settingsToWalkIn());
        QVERIFY(walk.openTab("Profiles"));
        QVERIFY(walk.thing("cell 'Work'").perform("Toggle"));
        QTRY_VERIFY(walk.thing("push button 'Delete profile'").is(AccessibleState::enabled));
        QVERIFY(walk.perform("push button 'More profile commands'"));
        QTRY_COMPARE(walk.reader().focus().role(), std::string("menu item"));
        const auto items = walk.reader().focus().parent().children();
        const auto remove = std::find_if(items.begin(), items.end(),
            [](const Accessible& item) { return item.name() == "Delete Profile…"; });
        QVERIFY(remove != items.end());
        QVERIFY(remove->perform("Press")); // answered while the question stands
        QVERIFY(!walk.reader().window("Please Confirm").isNull());
        QVERIFY(walk.perform("push button 'Delete'"));
        const QStringList left{"Default Profile", "Game"};
        QCOMPARE(walk.savedNames("profiles", left), left);
    }

    void anApplicationIsChosen() {
        Walk walk(settingsToWalkIn());
        QVERIFY(walk.enterTab(kProfilesTab));
        walk.press({"Menu"});
        QVERIFY(walk.chooseItem(QStringLiteral("Assign Application…")));
        const Accessible sheet = walk.reader().window("Assign an Application");
        QCOMPARE(sheet.role(), std::string("dialog"));
        QCOMPARE(
            walk.focusBecomes("text 'Search applications'"), QStringLiteral("text 'Search applications'"));
        QCOMPARE(whatIsWrongIn(sheet), QString());
        walk.type("t"); // the button that clears the search comes up
        QVERIFY(!walk.thing("push button 'Clear search'").isNull());
        QCOMPARE(whatIsWrongIn(sheet), QString());
        QTRY_VERIFY(walk.thing("list item 'Terminal'").is(AccessibleState::selected));
        QVERIFY(walk.perform("push button 'Choose'"));
        QTRY_VERIFY(walk.savedItem("profiles", 0).dictionary("driver").string("application") == u"Terminal");
    }
};

QUORVI_SESSION_TEST_MAIN(ScreenReaderTest)
#include "ScreenReaderTest.moc"
