// The profiles tab with its menus, questions and panels, operated by a screen reader.

#include <QFile>
#include <QTest>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Controls.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QString kDelete = QStringLiteral("push button 'Delete'");
const QString kTold = QStringLiteral("push button 'Close message'"); // of the bar above the page
const QString kCancel = QStringLiteral("push button 'Cancel'");
const QString kGear = QStringLiteral("push button 'More profile commands'");
const QString kAssign = QStringLiteral("push button 'Assign application'");
const QString kFileName = QStringLiteral("text 'File name:'");
constexpr char kQuestion[] = "Please Confirm";
constexpr char kChooser[] = "Assign an Application";

struct ProfilesTab {
    ProfilesTab() {
        if (!walk.openTab("Profiles"))
            qFatal("the tab does not come");
    }

    Walk walk{settingsToWalkIn()};
    Controls controls{walk};

    [[nodiscard]] static QStringList way(const char* title) { return {"Profile commands", title}; }
    /// Opens the menu of the gear and chooses that.
    [[nodiscard]] bool choose(const char* title, const Controls::Effect& effect) {
        return controls.press(kGear, controls.shows(itemOf(way("New Profile")))) &&
               controls.choose(way(title), effect) && controls.goes(itemOf(way("New Profile")));
    }
    [[nodiscard]] QStringList names() const {
        QStringList names;
        const auto profiles = walk.session().home.savedSettings().array("profiles");
        for (std::size_t index = 0; index < profiles.size(); ++index)
            names << QString::fromStdU16String(profiles.dictionary(index).string("name"));
        return names;
    }
    [[nodiscard]] Controls::Effect named(const QStringList& expected) const {
        return [this, expected] { return names() == expected; };
    }
    [[nodiscard]] plist::Dictionary driver(std::size_t profile) const {
        return walk.savedItem("profiles", profile).dictionary("driver");
    }
    [[nodiscard]] Controls::Effect assigned(std::size_t profile, const char16_t* application) const {
        return [=, this] { return driver(profile).string("application") == application; };
    }
    /// The row of the list is the current profile, which the file and the mouse hold.
    [[nodiscard]] Controls::Effect current(int row) const {
        return [=, this] {
            return walk.session().home.savedSettings().dictionary("settings").integer("profileid") == row + 1;
        };
    }
    /// Ends the edit of the name that follows.
    void finishName() {
        static_cast<void>(controls.find("text 'Profile'"));
        walk.press({"Return"});
        if (!controls.goes("text 'Profile'"))
            qFatal("the edit does not end");
    }
};

} // namespace

class SpokenProfilesTest : public QObject {
    Q_OBJECT

    /// What everyControlOfTheTabIsOperated operates: the tab, and the menu without these items.
    static QStringList leftToTheTab(const QStringList& items) {
        QStringList left = Controls::around();
        for (const char* title :
            {"New Profile", "Duplicate Profile", "Delete Profile…", "Assign Application…",
                "Remove Application", "Import Profile…", "Export Profile…", "Restore Defaults…"})
            if (!items.contains(title))
                left << itemOf(ProfilesTab::way(title));
        for (const char* control : {"table 'Profiles'", "cell 'Profiles › No.'", "cell 'Profiles › Profile'",
                 "cell 'Profiles › Application'", "cell 'Profiles › Switch Automatically'",
                 "check box 'Show this profile's name on screen when the mouse switches to it'",
                 "push button 'Add profile'", "push button 'Delete profile'"})
            left << control;
        if (!items.contains("Assign Application…"))
            left << kAssign;
        return left;
    }

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display");
    }

    void everyControlOfTheTabIsOperated() {
        ProfilesTab tab;
        Controls& controls = tab.controls;
        QCOMPARE(controls.meet(), QString());

        // Rows and cells.
        QVERIFY(controls.selectRow("Profiles", 1, tab.current(1)));
        QVERIFY(controls.performCell("Profiles", 2, "No.", "Toggle", tab.current(2)));
        QVERIFY(controls.performCell("Profiles", 0, "Application", "Toggle", tab.current(0)));
        const Accessible table = controls.find("table 'Profiles'");
        const auto switches = [&](int row) {
            return table.cell(row, 3).name() == "Switches automatically" &&
                   table.cell(row, 3).is(AccessibleState::checked);
        };
        QVERIFY(controls.performCell(
            "Profiles", 2, "Switch Automatically", "Toggle", [&] { return switches(2); }));
        QVERIFY(controls.performCell("Profiles", 1, "Profile", "Press", controls.shows("text 'Profile'")));
        QVERIFY(controls.type(
            "text 'Profile'", "Desk", [&] { return controls.find("text 'Profile'").text() == "Desk"; }));
        tab.finishName();
        QTRY_COMPARE(table.cell(1, 1).name(), std::string("Desk"));
        const QString display =
            QStringLiteral("check box 'Show this profile's name on screen when the mouse switches to it'");
        QVERIFY(controls.perform(display, "Toggle", [&] { return !tab.driver(1).boolean("profileosd"); }));
        QCOMPARE(tab.names(), QStringList({"Default Profile", "Desk", "Work"}));
        QVERIFY(tab.driver(2).boolean("autoswitch"));

        // Buttons.
        const QStringList added{"Default Profile", "Desk", "Work", "Untitled Profile"};
        QVERIFY(controls.press("push button 'Add profile'", tab.named(added)));
        tab.finishName();
        QVERIFY(controls.press("push button 'Delete profile'", controls.opens(kQuestion)));
        QCOMPARE(controls.meet(), QString());
        QCOMPARE(tab.walk.focusBecomes(kCancel), kCancel);
        QCOMPARE(defaultButtonOf(tab.walk.reader().window(kQuestion)), kCancel);
        QVERIFY(controls.press(kCancel, controls.closes(kQuestion)));
        QVERIFY(controls.press("push button 'Delete profile'", controls.opens(kQuestion)));
        QVERIFY(controls.press(kDelete, tab.named({"Default Profile", "Desk", "Work"})));

        // The menu, in which what the first profile cannot do is disabled.
        QVERIFY(controls.selectRow("Profiles", 0, tab.current(0)));
        QVERIFY(controls.press(kGear, controls.shows(itemOf(tab.way("New Profile")))));
        QCOMPARE(controls.meet(), QString());
        QVERIFY(!controls.find(itemOf(tab.way("Delete Profile…"))).is(AccessibleState::enabled));
        tab.walk.press({"Escape"});
        QVERIFY(controls.goes(itemOf(tab.way("New Profile"))));
        QVERIFY(
            tab.choose("New Profile", tab.named({"Default Profile", "Desk", "Work", "Untitled Profile"})));
        tab.finishName();
        QVERIFY(tab.choose("Delete Profile…", controls.opens(kQuestion)));
        QVERIFY(controls.press(kDelete, tab.named({"Default Profile", "Desk", "Work"})));
        QVERIFY(tab.choose(
            "Duplicate Profile", [&] { return tab.names().size() == 4 && controls.meet().isEmpty(); }));
        tab.finishName();
        QVERIFY(tab.choose("Restore Defaults…", controls.opens(kQuestion)));
        QCOMPARE(tab.walk.focusBecomes(kCancel), kCancel);
        tab.walk.press({"Escape"});
        QTRY_VERIFY(controls.closes(kQuestion)());
        QStringList leftOut = Controls::around();
        for (const char* title :
            {"Assign Application…", "Remove Application", "Import Profile…", "Export Profile…"})
            leftOut << itemOf(tab.way(title)); // the tests below
        leftOut << kAssign;
        QCOMPARE(controls.forgotten(leftOut), QStringList());
    }

    void applicationsAreAssignedAndTakenAway() {
        ProfilesTab tab;
        Controls& controls = tab.controls;
        QVERIFY(controls.selectRow("Profiles", 1, tab.current(1)));
        QVERIFY(tab.choose("Assign Application…", controls.opens(kChooser)));
        const QString search = QStringLiteral("text 'Search applications'");
        QCOMPARE(tab.walk.focusBecomes(search), search);
        QCOMPARE(controls.meet(), QString());
        const auto found = [&](int count) {
            return [&, count] {
                const auto items = controls.find("list 'Applications'").children();
                return std::count_if(items.begin(), items.end(),
                           [](const Accessible& item) { return item.role() == "list item"; }) == count;
            };
        };
        QVERIFY(controls.type(search, "byte", found(1)));
        QCOMPARE(controls.meet(), QString());
        QVERIFY(controls.press("push button 'Clear search'", found(2)));
        const Accessible terminal = tab.walk.thing("list item 'Terminal'");
        QVERIFY(!controls.find("push button 'Choose'").is(AccessibleState::enabled));
        QVERIFY(terminal.perform("Toggle"));
        QVERIFY(controls.press("push button 'Choose'", tab.assigned(1, u"Terminal")));
        QVERIFY(tab.choose("Assign Application…", controls.opens(kChooser)));
        QVERIFY(controls.press(kCancel, controls.closes(kChooser)));
        QVERIFY(controls.press(kAssign, controls.opens(kChooser)));
        QVERIFY(controls.press("push button 'Other application'", controls.opens("Choose an Application")));
        QVERIFY(controls.type(
            kFileName, "/bin/true", [&] { return controls.find(kFileName).text() == "/bin/true"; }));
        // Not by Return: Qt's bridge for screen readers leaks the release of a key whose window has gone.
        QVERIFY(controls.press("push button 'Choose'", tab.assigned(1, u"true")));
        QVERIFY(tab.choose("Remove Application", tab.assigned(1, u"")));
        const QStringList operated{"Assign Application…", "Remove Application"};
        QStringList leftOut = leftToTheTab(operated);
        // Its items are told apart by their names, and one was toggled; the search is taken back by a button.
        leftOut << "list 'Applications'"
                << "list item 'Applications'";
        leftOut.removeAll("table 'Profiles'"); // in which the second one was selected
        QCOMPARE(controls.forgotten(leftOut), QStringList());
    }

    void profilesAreCarriedByFiles() {
        ProfilesTab tab;
        Controls& controls = tab.controls;
        const QString file =
            QString::fromStdString(tab.walk.session().home.path()) + "/carried.quorviProfile";
        QVERIFY(tab.choose("Export Profile…", controls.opens("Export Profile")));
        QCOMPARE(tab.walk.focusBecomes(kFileName), kFileName);
        QCOMPARE(controls.find(kFileName).text(), std::string("Default Profile.quorviProfile"));
        const auto holds = [&](const QString& text) {
            return [&, text] { return controls.find(kFileName).text() == text.toStdString(); };
        };
        QVERIFY(controls.type(kFileName, file, holds(file)));
        QVERIFY(controls.press("push button 'Save'", [&] { return QFile::exists(file); }));
        QVERIFY(controls.press(kTold, [&] { return !controls.isThere(kTold); }));
        QVERIFY(tab.choose("Import Profile…", controls.opens("Import Profile")));
        QVERIFY(controls.press(kCancel, controls.closes("Import Profile")));
        QVERIFY(tab.choose("Import Profile…", controls.opens("Import Profile")));
        QVERIFY(controls.type(kFileName, file, holds(file)));
        QVERIFY(controls.press(
            "push button 'Open'", tab.named({"Default Profile", "Game", "Work", "Default Profile 2"})));
        QCOMPARE(controls.forgotten(leftToTheTab({"Import Profile…", "Export Profile…"})), QStringList());
    }
};

QUORVI_SESSION_TEST_MAIN(SpokenProfilesTest)
#include "SpokenProfilesTest.moc"
