// The stored, saved and shown result of a choice in an assignment pop-up.

#include <QMenu>
#include <QTabWidget>

#include "pane/AssignmentFixture.h"
#include "pane/PaneTestMain.h"
#include "widgets/MenuItems.h"

using namespace quorvi;
using namespace quorvi::test;

class ButtonAssignmentTest : public QObject {
    Q_OBJECT

  private slots:
    void aFunctionReplacesTheWholeAssignment() {
        AssignmentFixture fixture;
        fixture.openWithInput(2, {{"command", 65}, {"param1", 3}, {"param2", 1}, {"string", u"World"}});
        choose(fixture.popUp(2), {"Back"});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(fixture.savedInputIs(2, {{"command", 5}}));
        QCOMPARE(fixture.shown(2), QStringLiteral("Back"));
    }

    void everyInputStoresUnderItsOwnNumber() {
        AssignmentFixture fixture;
        fixture.openWithInput(2, {{"command", 1}}); // so that input 1 is free
        const QStringList chosen{
            "Copy", "Paste", "Cut", "Undo", "Redo", "Select All", "Copy", "Paste", "Cut"};
        for (int input = 9; input >= 1; --input)
            if (input != 2)
                choose(fixture.popUp(input), {"Editing", chosen[input - 1]});
        QVERIFY(fixture.commandsBecome(
            {"KyPR 0", "KyPR 0", "KyPR 0", "KyPR 0", "KyPR 0", "KyPR 0", "KyPR 0", "KyPR 0"}));
        const int codes[] = {112, 1, 113, 115, 116, 117, 112, 114, 113};
        for (int input = 1; input <= 9; ++input) {
            QVERIFY(fixture.savedInputIs(input, {{"command", codes[input - 1]}}));
            QCOMPARE(fixture.shown(input), input == 2 ? QStringLiteral("Primary Click") : chosen[input - 1]);
        }
    }

    void aChoiceByKeysCountsAsOneByMouse() {
        AssignmentFixture fixture;
        fixture.open();
        PopUpButton* popUp = fixture.popUp(2);
        popUp->setFocus();
        QTest::keyClick(popUp, Qt::Key_Space);
        QTRY_VERIFY(popUp->menu()->isVisible());
        QTest::keyClick(popUp->menu(), Qt::Key_Down); // from Secondary to Middle Click
        QTest::keyClick(popUp->menu(), Qt::Key_Return);
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(fixture.savedInputIs(2, {{"command", 3}}));
        QCOMPARE(fixture.shown(2), QStringLiteral("Middle Click"));
    }

    void choosingWhatIsAssignedAlreadySavesAgain() {
        AssignmentFixture fixture;
        fixture.openWithInput(2, {{"command", 5}, {"param1", 7}});
        choose(fixture.popUp(2), {"Back"});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(fixture.savedInputIs(2, {{"command", 5}}));
    }

    void anInputCanBeSwitchedOff() {
        AssignmentFixture fixture;
        fixture.open();
        choose(fixture.popUp(2), {"No Function"});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(fixture.savedInputIs(2, {{"command", 0}}));
    }

    void aChoiceBelongsToTheCurrentProfileOnly() {
        AssignmentFixture fixture;
        auto tree = AssignmentFixture::tree();
        tree.dictionary("settings").set("profileid", 2);
        fixture.openWith(tree);
        choose(fixture.popUp(9), {"Scroll Left"});
        QVERIFY(fixture.commandsBecome({"KyPR 1"}));
        QVERIFY(fixture.savedInputIs(9, {{"command", 10}}, 1));
        QVERIFY(fixture.savedInputIs(9, {{"command", 0}}, 0));
    }

    void theLastInputWithThePrimaryClickCannotLoseIt() {
        AssignmentFixture fixture;
        fixture.open();
        QVERIFY(!fixture.popUp(1)->isEnabled());
        choose(fixture.popUp(3), {"Primary Click"});
        QVERIFY(fixture.popUp(1)->isEnabled());
        QVERIFY(fixture.popUp(3)->isEnabled());
        choose(fixture.popUp(1), {"Middle Click"});
        QVERIFY(fixture.popUp(1)->isEnabled());
        QVERIFY(!fixture.popUp(3)->isEnabled());
        QVERIFY(fixture.savedInputIs(1, {{"command", 3}}));
        QVERIFY(fixture.savedInputIs(3, {{"command", 1}}));
    }

    void aClickWithAParameterOrOnTheWheelIsNoPrimaryClickToFallBackOn() {
        AssignmentFixture fixture;
        auto tree = AssignmentFixture::tree();
        AssignmentFixture::setInput(tree, 4, {{"command", 1}, {"param2", 1}});
        AssignmentFixture::setInput(tree, 8, {{"command", 1}});
        fixture.openWith(tree);
        QVERIFY(!fixture.popUp(1)->isEnabled());
        QVERIFY(fixture.popUp(4)->isEnabled()); // input 1 has the click besides
        QVERIFY(fixture.popUp(8)->isEnabled());
    }

    void theFirstInputIsThePrimaryClickWhenNoOtherIs() {
        AssignmentFixture fixture;
        fixture.openWithInput(1, {{"command", 5}, {"param1", 7}});
        QCOMPARE(fixture.shown(1), QStringLiteral("Primary Click"));
        QVERIFY(!fixture.popUp(1)->isEnabled());
        QVERIFY(fixture.savedInputIs(1, {{"command", 5}, {"param1", 7}})); // showing saves nothing
        QVERIFY(fixture.commandsBecome({}));
        choose(fixture.popUp(2), {"Back"});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(fixture.savedInputIs(1, {{"command", 1}, {"param1", 7}}));
    }

    void takingThePrimaryClickFromTheOnlyOtherInputGivesItToTheFirst() {
        AssignmentFixture fixture;
        auto tree = AssignmentFixture::tree();
        AssignmentFixture::setInput(tree, 1, {{"command", 2}});
        AssignmentFixture::setInput(tree, 3, {{"command", 1}});
        fixture.openWith(tree);
        QCOMPARE(fixture.shown(1), QStringLiteral("Secondary Click"));
        QVERIFY(!fixture.popUp(3)->isEnabled());
        choose(fixture.popUp(2), {"Primary Click"});
        choose(fixture.popUp(3), {"Back"});
        QCOMPARE(fixture.shown(1), QStringLiteral("Secondary Click"));
        QVERIFY(!fixture.popUp(2)->isEnabled());
    }

    void aCodeThatNoItemHasIsShownAsNoFunctionAndKept() {
        AssignmentFixture fixture;
        fixture.openWithInput(3, {{"command", 200}, {"param1", 9}});
        QCOMPARE(fixture.shown(3), QStringLiteral("No Function"));
        choose(fixture.popUp(2), {"Back"});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(fixture.savedInputIs(3, {{"command", 200}, {"param1", 9}}));
    }

    void withoutAnAssignmentNothingIsWrittenButSavedAndShown_data() {
        QTest::addColumn<QStringList>("titles");
        QTest::newRow("function") << QStringList{"Back"};
        QTest::newRow("macro") << QStringList{"Run Macro", "World"};
        QTest::newRow("profile") << QStringList{"Switch to Profile", "Game"};
    }

    void withoutAnAssignmentNothingIsWrittenButSavedAndShown() {
        QFETCH(QStringList, titles);
        AssignmentFixture fixture;
        auto tree = AssignmentFixture::tree();
        tree.array("profiles").dictionary(0).dictionary("buttons").remove("05");
        fixture.openWith(tree);
        fixture.pane->deviceConfig().dictionary("settings").set("pollingrate", 1000); // not saved as yet
        choose(fixture.popUp(5), titles);
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        tree.dictionary("settings").set("pollingrate", 1000);
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(tree));
        QCOMPARE(fixture.shown(5), QStringLiteral("No Function"));
    }

    void withoutAnyAssignmentsNothingIsWrittenButSavedAndShown() {
        AssignmentFixture fixture;
        auto tree = AssignmentFixture::tree();
        tree.array("profiles").dictionary(0).remove("buttons");
        fixture.openWith(tree);
        choose(fixture.popUp(8), {"Scroll Up"});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(tree));
        QCOMPARE(fixture.shown(8), QStringLiteral("No Function"));
    }

    void aChoiceThatCannotBeSavedIsNotAnnounced() {
        AssignmentFixture fixture;
        fixture.open();
        std::filesystem::remove_all(fixture.settingsFile());
        std::filesystem::create_directories(fixture.settingsFile() / "in the way");
        choose(fixture.popUp(2), {"Back"});
        QCOMPARE(fixture.shown(2), QStringLiteral("Back"));
        fixture.pane->sendMessageToHelper(kMessageRecording, 7); // what was sent before has arrived with it
        QVERIFY(fixture.commandsBecome({"KyDM 7"}));
    }
};

QUORVI_PANE_TEST_MAIN(ButtonAssignmentTest)
#include "ButtonAssignmentTest.moc"
