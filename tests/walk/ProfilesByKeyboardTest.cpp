// The list of profiles with the keyboard alone, in the real program, with keys from the display.

#include <QFile>
#include <QTest>

#include "support/Keyboard.h"
#include "support/SessionTestMain.h"
#include "walk/Walk.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QString kCancel = QStringLiteral("push button 'Cancel'");
const QString kFileName = QStringLiteral("text 'File name:'");

} // namespace

class ProfilesByKeyboardTest : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() {
        if (!hasDisplay())
            QSKIP("there is no X display with xdotool");
    }

    void aProfileIsAddedNamedAndSwitched() {
        Walk walk;
        QVERIFY(walk.enterTab(kProfilesTab));
        QVERIFY(walk.moveTo("push button 'Add profile'"));
        QCOMPARE(walk.focusAfter("space", "text 'Profile'"), QStringLiteral("text 'Profile'"));
        const QStringList added{"Default Profile", "Untitled Profile"};
        QCOMPARE(walk.savedNames("profiles", added), added);
        QVERIFY(walk.helperIsTold(1));
        walk.type("Desk");
        QCOMPARE(walk.focusAfter("Return", "cell '2'"), QStringLiteral("cell '2'"));
        // A name that is given up leaves the one before.
        QCOMPARE(walk.focusAfter("F2", "text 'Profile'"), QStringLiteral("text 'Profile'"));
        walk.type("Nonsense");
        QCOMPARE(walk.focusAfter("Escape", "cell '2'"), QStringLiteral("cell '2'"));
        QCOMPARE(walk.focusAfter("F2", "text 'Profile'"), QStringLiteral("text 'Profile'"));
        walk.press({"End"});
        walk.type(" Top");
        QCOMPARE(walk.focusAfter("Return", "cell '2'"), QStringLiteral("cell '2'"));
        const QString on = QStringLiteral("cell 'Switches automatically'");
        QCOMPARE(walk.focusAfter("space", on), on);
        // The check box below the list saves, and with it all of that.
        QVERIFY(walk.moveTo("check box 'Show this profile's name on screen when the mouse switches to it'"));
        walk.press({"space"});
        QCOMPARE(walk.savedNames("profiles", {"Default Profile", "Desk Top"}).value(1),
            QStringLiteral("Desk Top"));
        const auto driver = walk.savedItem("profiles", 1).dictionary("driver");
        QVERIFY(driver.boolean("autoswitch"));
        QVERIFY(!driver.boolean("profileosd"));
        QVERIFY(walk.helperIsTold(1));
    }

    void theGearMenuOpensByEveryKeyThatOneWouldTry() {
        Walk walk(settingsToWalkIn());
        QVERIFY(walk.enterTab(kProfilesTab));
        const QString gear = QStringLiteral("push button 'More profile commands'");
        const QString first = QStringLiteral("menu item 'New Profile'");
        QVERIFY(walk.moveTo(gear));
        for (const char* key : {"space", "Return", "alt+Down", "Down"}) {
            QCOMPARE(walk.focusAfter(key, first), first);
            QCOMPARE(walk.focusAfter("Escape", gear), gear);
        }
        walk.press({"space"});
        QVERIFY(walk.chooseItem("Duplicate Profile"));
        QCOMPARE(walk.focusBecomes("text 'Profile'"), QStringLiteral("text 'Profile'"));
        QCOMPARE(walk.focusAfter("Escape", "cell '4'"), QStringLiteral("cell '4'"));
        const QStringList all{"Default Profile", "Game", "Work", "Default Profile 2"};
        QCOMPARE(walk.savedNames("profiles", all), all);
    }

    void theMenuOfTheListIsAboutTheSelectedRow() {
        Walk walk(settingsToWalkIn());
        QVERIFY(walk.enterTab(kProfilesTab));
        QCOMPARE(walk.focusAfter("Down", "cell '2'"), QStringLiteral("cell '2'"));
        const Accessible table = controlOf(walk.reader().focus());
        const Extents other = table.cell(2, 1).extents();
        QVERIFY(xdotool({"mousemove", std::to_string(other.left + 5), std::to_string(other.top + 5)}));
        const QString first = QStringLiteral("menu item 'New Profile'");
        for (const char* key : {"Menu", "shift+F10"}) {
            QCOMPARE(walk.focusAfter(key, first), first);
            QVERIFY(table.cell(1, 1).is(AccessibleState::selected));
            QCOMPARE(walk.focusAfter("Escape", "cell '2'"), QStringLiteral("cell '2'"));
        }
        QCOMPARE(walk.session().home.savedSettings().dictionary("settings").integer("profileid"), 2);
    }

    void anApplicationIsAssignedAndTakenAway() {
        Walk walk(settingsToWalkIn());
        QVERIFY(walk.enterTab(kProfilesTab));
        QCOMPARE(walk.focusAfter("Down", "cell '2'"), QStringLiteral("cell '2'"));
        walk.press({"Menu"});
        QVERIFY(walk.chooseItem(QStringLiteral("Assign Application…")));
        const QString search = QStringLiteral("text 'Search applications'");
        QCOMPARE(walk.focusBecomes(search), search);
        walk.type("byte");
        QVERIFY(!walk.thing("list item 'Byte Editor'").isNull());
        QCOMPARE(walk.focusAfter("Return", "cell '2'"), QStringLiteral("cell '2'"));
        const auto application = [&] {
            return walk.savedItem("profiles", 1).dictionary("driver").string("application");
        };
        QTRY_VERIFY(application() == u"Byte Editor");
        QVERIFY(walk.helperIsTold(1));
        // Escape leaves it, from the list as well, to which the arrow keys lead.
        walk.press({"Menu"});
        QVERIFY(walk.chooseItem(QStringLiteral("Assign Application…")));
        QCOMPARE(walk.focusBecomes(search), search);
        // Qt 5 tells screen readers nothing of a list's state, so they have its focus from its rows alone.
        const QString state = QT_VERSION_MAJOR < 6 ? QStringLiteral("out of sight: ") : QString();
        QCOMPARE(walk.focusMovedBy("Tab"), state + QStringLiteral("list 'Applications'"));
        QCOMPARE(walk.focusAfter("Down", "list item 'Terminal'"), QStringLiteral("list item 'Terminal'"));
        QCOMPARE(walk.focusAfter("Escape", "cell '2'"), QStringLiteral("cell '2'"));
        QVERIFY(application() == u"Byte Editor");
        walk.press({"Menu"});
        QVERIFY(walk.chooseItem("Remove Application"));
        QCOMPARE(walk.focusBecomes("cell '2'"), QStringLiteral("cell '2'"));
        QTRY_VERIFY(application().empty());
        QVERIFY(walk.helperIsTold(1));
    }

    void profilesAreRemovedAfterAQuestionWhoseSafeAnswerIsFirst() {
        Walk walk(settingsToWalkIn());
        QVERIFY(walk.enterTab(kProfilesTab));
        walk.press({"Down", "Down"});
        QCOMPARE(walk.focusBecomes("cell '3'"), QStringLiteral("cell '3'"));
        QCOMPARE(walk.focusAfter("Delete", kCancel), kCancel);
        QCOMPARE(walk.focusAfter("Return", "cell '3'"), QStringLiteral("cell '3'"));
        QCOMPARE(walk.focusAfter("Delete", kCancel), kCancel);
        QCOMPARE(walk.focusAfter("Escape", "cell '3'"), QStringLiteral("cell '3'"));
        const QString remove = QStringLiteral("push button 'Delete profile'");
        QVERIFY(walk.moveTo(remove));
        for (const QStringList& left : {QStringList{"Default Profile", "Game"}, {"Default Profile"}}) {
            QCOMPARE(walk.focusAfter("space", kCancel), kCancel);
            QCOMPARE(
                walk.focusAfter("shift+Tab", "push button 'Delete'"), QStringLiteral("push button 'Delete'"));
            // The last one takes the button out of use, which leaves the keyboard to the list.
            const QString then = left.size() > 1 ? remove : QStringLiteral("cell '1'");
            QCOMPARE(walk.focusAfter("Return", then), then);
            QCOMPARE(walk.savedNames("profiles", left), left);
            QVERIFY(walk.helperIsTold(int(left.size()) - 1));
        }
    }

    void aProfileGoesToAFileAndComesBack() {
        Walk walk(settingsToWalkIn());
        const QString file = QString::fromStdString(walk.session().home.path()) + "/a file";
        QVERIFY(walk.enterTab(kProfilesTab));
        QCOMPARE(walk.focusAfter("Down", "cell '2'"), QStringLiteral("cell '2'"));
        walk.press({"Menu"});
        QVERIFY(walk.chooseItem(QStringLiteral("Export Profile…")));
        QCOMPARE(walk.focusBecomes(kFileName), kFileName);
        walk.press({"ctrl+a"});
        walk.type(file);
        QCOMPARE(walk.focusAfter("Return", "cell '2'"), QStringLiteral("cell '2'"));
        QTRY_VERIFY(QFile::exists(file + ".quorviProfile"));
        walk.press({"Menu"});
        QVERIFY(walk.chooseItem(QStringLiteral("Import Profile…")));
        QCOMPARE(walk.focusBecomes(kFileName), kFileName);
        walk.type(file + ".quorviProfile");
        QCOMPARE(walk.focusAfter("Return", "cell '4'"), QStringLiteral("cell '4'"));
        const QStringList all{"Default Profile", "Game", "Work", "Game 2"};
        QCOMPARE(walk.savedNames("profiles", all), all);
        QVERIFY(walk.helperIsTold(3));
    }
};

QUORVI_SESSION_TEST_MAIN(ProfilesByKeyboardTest)
#include "ProfilesByKeyboardTest.moc"
