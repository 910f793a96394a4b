// The context menu of an input's pop-up: resetting the function, and copying from other profiles.

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPushButton>
#include <QWindow>

#include "pane/AssignmentFixture.h"
#include "pane/PaneTestMain.h"
#include "widgets/MenuItems.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kCopy = "Copy from Profile";
constexpr const char* kCopyAll = "Copy All Inputs from Profile";

QStringList titlesIn(const QMenu* menu) {
    QStringList titles;
    for (const QAction* item : menu->actions())
        titles << titleOfItem(*item);
    return titles;
}

class MenuFixture : public AssignmentFixture {
  public:
    /// The right button of the mouse, as the display tells of it.
    void rightClick(const QWidget* control) const {
        QTest::mouseClick(window->windowHandle(), Qt::RightButton, {},
            control->mapTo(window.get(), control->rect().center()));
        QCoreApplication::processEvents();
    }
    [[nodiscard]] static QMenu* openMenu() {
        const auto isOpen = [] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); };
        if (!QTest::qWaitFor([&] { return isOpen() != nullptr; }, kWindowPatienceMs))
            qFatal("no menu opens");
        return isOpen();
    }
    [[nodiscard]] QMenu* contextMenuOf(int input) const {
        rightClick(popUp(input));
        return openMenu();
    }
    /// Chooses the item of the input's context menu.
    void chooseFor(int input, const QStringList& titles) const { clickInMenu(contextMenuOf(input), titles); }
    /// What the button to undo would take back.
    [[nodiscard]] QString lastAction() const {
        return find<QPushButton>("quorviButtonUndo")->toolTip().section(QStringLiteral(" ("), 0, 0);
    }
    [[nodiscard]] plist::Dictionary savedButtons(std::size_t profile) const {
        return savedSettings().array("profiles").dictionary(profile).dictionary("buttons");
    }
};

} // namespace

class InputMenuTest : public QObject {
    Q_OBJECT

  private slots:
    void cleanup() {
        if (QWidget* menu = QApplication::activePopupWidget())
            menu->close();
    }

    void itsItemsSayWhatTheyWouldDo() {
        MenuFixture fixture;
        auto tree = AssignmentFixture::tree();
        AssignmentFixture::setInput(
            tree, 4, {{"command", 65}, {"param1", 3}, {"param2", 1}, {"string", u"World"}}, 1);
        fixture.openWith(tree);
        const QMenu* menu = fixture.contextMenuOf(4);
        QCOMPARE(titlesIn(menu), QStringList({"Reset to “Back”", "", kCopy, kCopyAll}));
        QCOMPARE(titlesIn(itemOf(menu, kCopy)->menu()), QStringList("Game – Macro: World"));
        QCOMPARE(titlesIn(itemOf(menu, kCopyAll)->menu()), QStringList("Game"));
        QCOMPARE(menu->accessibleName(), fixture.popUp(4)->accessibleName());
    }

    void resettingGivesTheInputItsFunctionByDefault() {
        MenuFixture fixture;
        fixture.openWithInput(4, {{"command", 65}, {"param1", 3}, {"param2", 1}, {"string", u"World"}});
        fixture.chooseFor(4, {"Reset to “Back”"});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(fixture.savedInputIs(4, {{"command", 5}}));
        QCOMPARE(fixture.shown(4), QStringLiteral("Back"));
        QCOMPARE(fixture.lastAction(), QStringLiteral("Undo Reset Button 4"));
        fixture.click("quorviButtonUndo");
        QCOMPARE(fixture.shown(4), QStringLiteral("Macro: World"));
    }

    void copyingGivesTheInputWhatItDoesInTheOtherProfile() {
        MenuFixture fixture;
        auto tree = AssignmentFixture::tree();
        AssignmentFixture::setInput(tree, 9, {{"command", 49}, {"param1", 4}, {"param2", 2}, {"odd", 5}}, 1);
        fixture.openWith(tree);
        fixture.chooseFor(9, {kCopy, "Game – Press Key Shift+a"});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(fixture.savedInputIs(9, {{"command", 49}, {"param1", 4}, {"param2", 2}, {"odd", 5}}));
        QCOMPARE(fixture.lastAction(), QStringLiteral("Undo Copy Wheel Down from “Game”"));
    }

    void aCopyIsOneOfItsOwn() {
        MenuFixture fixture;
        auto tree = AssignmentFixture::tree();
        AssignmentFixture::setInput(tree, 4, {{"command", 5}}, 1);
        fixture.openWith(tree);
        fixture.chooseFor(4, {kCopy, "Game – Back"});
        choose(fixture.popUp(4), {"Forward"});
        QVERIFY(fixture.savedInputIs(4, {{"command", 6}}));
        QVERIFY(fixture.savedInputIs(4, {{"command", 5}}, 1));
        fixture.chooseFor(4, {"Reset to “Back”"});
        choose(fixture.popUp(4), {"Forward"});
        QCOMPARE(titlesIn(fixture.contextMenuOf(4)).first(), QStringLiteral("Reset to “Back”"));
    }

    void allInputsAreCopiedAsOneAction() {
        MenuFixture fixture;
        auto tree = AssignmentFixture::tree();
        for (int input = 3; input <= 9; ++input)
            AssignmentFixture::setInput(tree, input, {{"command", 100 + input}}, 1);
        fixture.openWith(tree);
        fixture.chooseFor(5, {kCopyAll, "Game"});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        auto expected = AssignmentFixture::tree();
        for (std::size_t profile : {0U, 1U})
            for (int input = 3; input <= 9; ++input)
                AssignmentFixture::setInput(expected, input, {{"command", 100 + input}}, profile);
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(expected));
        QCOMPARE(fixture.lastAction(), QStringLiteral("Undo Copy All Inputs from “Game”"));
        fixture.click("quorviButtonUndo");
        QTRY_VERIFY(plist::Value(fixture.savedSettings()) == plist::Value(tree));
    }

    void whatTheInputDoesAlreadyIsGreyed() {
        MenuFixture fixture;
        fixture.openWithInput(4, {{"command", 5}, {"string", u"what a menu said"}});
        const QMenu* menu = fixture.contextMenuOf(4);
        QVERIFY(!itemOf(menu, "Reset to “Back”")->isEnabled());
        QVERIFY(itemOf(itemOf(menu, kCopy)->menu(), "Game – No Function")->isEnabled());
        QVERIFY(itemOf(itemOf(menu, kCopyAll)->menu(), "Game")->isEnabled());
    }

    void whatIsTheSameInBothProfilesIsGreyed() {
        MenuFixture fixture;
        fixture.open();
        const QMenu* menu = fixture.contextMenuOf(4);
        QVERIFY(itemOf(menu, "Reset to “Back”")->isEnabled());
        QVERIFY(!itemOf(itemOf(menu, kCopy)->menu(), "Game – No Function")->isEnabled());
        QVERIFY(!itemOf(itemOf(menu, kCopyAll)->menu(), "Game")->isEnabled());
    }

    void withoutAnotherProfileThereIsNothingToCopyFrom() {
        MenuFixture fixture;
        auto tree = AssignmentFixture::tree();
        tree.array("profiles").remove(1);
        fixture.openWith(tree);
        const QMenu* menu = fixture.contextMenuOf(4);
        QVERIFY(!itemOf(menu, kCopy)->isEnabled());
        QVERIFY(!itemOf(menu, kCopyAll)->isEnabled());
    }

    void anInputThatTheFileLacksCanBeReset() {
        MenuFixture fixture;
        auto tree = AssignmentFixture::tree();
        tree.array("profiles").dictionary(0).dictionary("buttons").remove("05");
        fixture.openWith(tree);
        fixture.chooseFor(5, {"Reset to “Forward”"});
        QVERIFY(fixture.savedInputIs(5, {{"command", 6}}));
    }

    void theOnlyPrimaryClickHasNoMenu() {
        MenuFixture fixture;
        fixture.open();
        QVERIFY(!fixture.popUp(1)->isEnabled());
        fixture.rightClick(fixture.popUp(1));
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(fixture.contextMenuOf(2)); // the others have one
    }

    void aButtonThatIsNotTheOnlyPrimaryClickMayLoseIt() {
        MenuFixture fixture;
        fixture.openWithInput(3, {{"command", 1}});
        fixture.chooseFor(3, {"Reset to “Middle Click”"});
        QVERIFY(fixture.savedInputIs(3, {{"command", 3}}));
        QVERIFY(!fixture.popUp(1)->isEnabled());
    }

    void theFirstButtonKeepsThePrimaryClickWhenTheOtherProfileHasNone() {
        MenuFixture fixture;
        auto tree = AssignmentFixture::tree();
        AssignmentFixture::setInput(tree, 1, {{"command", 65}, {"param1", 3}, {"param2", 1}}, 1);
        fixture.openWith(tree);
        fixture.chooseFor(2, {kCopyAll, "Game"});
        QVERIFY(fixture.savedInputIs(1, {{"command", 1}}));
        QVERIFY(!fixture.popUp(1)->isEnabled());
        QVERIFY(fixture.savedInputIs(1, {{"command", 65}, {"param1", 3}, {"param2", 1}}, 1));
    }

    void thePrimaryClickMovesWithTheOtherProfiles() {
        MenuFixture fixture;
        auto tree = AssignmentFixture::tree();
        AssignmentFixture::setInput(tree, 1, {{"command", 2}}, 1);
        AssignmentFixture::setInput(tree, 2, {{"command", 1}}, 1);
        fixture.openWith(tree);
        fixture.chooseFor(3, {kCopyAll, "Game"});
        QVERIFY(plist::Value(fixture.savedButtons(0)) == plist::Value(fixture.savedButtons(1)));
        QVERIFY(fixture.popUp(1)->isEnabled());
        QVERIFY(!fixture.popUp(2)->isEnabled());
    }

    void shiftWithF10OpensItByThePopUp() {
        MenuFixture fixture;
        fixture.openWithInput(4, {{"command", 5}});
        fixture.popUp(4)->setFocus();
        QTest::keyClick(fixture.popUp(4), Qt::Key_F10, Qt::ShiftModifier);
        QMenu* menu = MenuFixture::openMenu();
        QCOMPARE(menu->activeAction(), itemOf(menu, kCopy)); // the first one that can be chosen
        const QPoint corner = fixture.popUp(4)->mapToGlobal(fixture.popUp(4)->rect().bottomLeft());
        QVERIFY((menu->pos() - corner).manhattanLength() < fixture.popUp(4)->height());
        QTest::keyClick(menu, Qt::Key_Escape);
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(fixture.popUp(4)->hasFocus());
        QVERIFY(fixture.commandsBecome({}));
    }

    void theMenuKeyOpensItByThePopUp() {
        MenuFixture fixture;
        fixture.open();
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QCoreApplication::sendEvent(fixture.popUp(4), &event);
        const QMenu* menu = MenuFixture::openMenu();
        QCOMPARE(menu->activeAction(), itemOf(menu, "Reset to “Back”"));
    }

    void itIsMirroredWithThePanel() {
        MenuFixture fixture;
        fixture.open();
        fixture.popUp(4)->setLayoutDirection(Qt::RightToLeft);
        const QMenu* menu = fixture.contextMenuOf(4);
        QCOMPARE(menu->layoutDirection(), Qt::RightToLeft);
        for (const char* title : {kCopy, kCopyAll})
            QCOMPARE(itemOf(menu, title)->menu()->layoutDirection(), Qt::RightToLeft);
    }

    void aNameIsShownAsItStands() {
        MenuFixture fixture;
        auto tree = AssignmentFixture::tree();
        tree.array("profiles").dictionary(1).set("name", u"^2 & more");
        fixture.openWith(tree);
        const QMenu* menu = fixture.contextMenuOf(4);
        QCOMPARE(titlesIn(itemOf(menu, kCopy)->menu()), QStringList("^2 & more – No Function"));
        QCOMPARE(titlesIn(itemOf(menu, kCopyAll)->menu()), QStringList("^2 & more"));
    }

    // A device list reads the settings afresh, whatever is open.
    void aChoiceGoesIntoTheSettingsThatAreThereByThen() {
        MenuFixture fixture;
        fixture.open();
        QMenu* menu = fixture.contextMenuOf(4);
        const auto before = fixture.pane->deviceConfig();
        fixture.connectDevices(1);
        QTRY_VERIFY(!fixture.pane->deviceConfig().isSameAs(before));
        itemOf(menu, "Reset to “Back”")->trigger();
        QVERIFY(fixture.savedInputIs(4, {{"command", 5}}));
    }

    void aProfileThatHasGoneMeanwhileIsNotCopied() {
        MenuFixture fixture;
        auto tree = AssignmentFixture::tree();
        AssignmentFixture::setInput(tree, 4, {{"command", 5}}, 1);
        fixture.openWith(tree);
        QMenu* menu = fixture.contextMenuOf(4);
        fixture.pane->deviceConfig().array("profiles").dictionary(1).set("name", u"Another");
        itemOf(itemOf(menu, kCopy)->menu(), "Game – Back")->trigger();
        itemOf(itemOf(menu, kCopyAll)->menu(), "Game")->trigger();
        QVERIFY(fixture.commandsBecome({}));
        QCOMPARE(fixture.shown(4), QStringLiteral("No Function"));
    }

    void withoutAMouseThereIsNone() {
        MenuFixture fixture;
        fixture.open();
        fixture.connectDevices(0);
        fixture.rightClick(fixture.popUp(9));
        QVERIFY(!QApplication::activePopupWidget());
    }

    void aPopUpOfNoInputHasNone() {
        MenuFixture fixture;
        fixture.open();
        fixture.selectTab(4);
        fixture.rightClick(fixture.find<PopUpButton>("quorviMenuPollingRate"));
        QVERIFY(!QApplication::activePopupWidget());
    }
};

QUORVI_PANE_TEST_MAIN(InputMenuTest)
#include "InputMenuTest.moc"
