// The lists of macros and profiles in the assignment pop-ups, and the titles of what is chosen from them.

#include <QDialog>
#include <QMenu>
#include <QTabWidget>

#include "model/CommandCodes.h"
#include "pane/AssignmentFixture.h"
#include "pane/PaneTestMain.h"
#include "widgets/MenuItems.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

QStringList titlesOf(const QMenu* menu) {
    QStringList titles;
    for (const QAction* item : menu->actions())
        titles << titleOfItem(*item);
    return titles;
}

QList<int> tagsOf(const QMenu* menu) {
    QList<int> tags;
    for (const QAction* item : menu->actions().mid(2))
        tags << tagOfItem(*item).value_or(-99);
    return tags;
}

plist::Dictionary macro(const char16_t* name, std::int32_t id) {
    return assignment({{"macroid", id}, {"name", name}, {"steps", plist::Array::create()}});
}

plist::Dictionary treeWithMacros(int count) {
    auto tree = AssignmentFixture::tree();
    tree.array("macros").removeAll();
    for (int id = 0; id < count; ++id)
        tree.array("macros").append(macro(u"Macro", id));
    return tree;
}

} // namespace

class AssignmentListsTest : public QObject {
    Q_OBJECT

  private slots:
    void everyPopUpListsMacrosAndProfilesBehindTheFixedItems() {
        AssignmentFixture fixture;
        fixture.open();
        for (int input = 1; input <= 9; ++input) {
            const QMenu* macros = fixture.list(input, commands::runMacro);
            QCOMPARE(titlesOf(macros), QStringList({"Edit Macros…", "", "Hello", "World"}));
            QCOMPARE(tagsOf(macros), QList<int>({0, 3}));
            const QMenu* profiles = fixture.list(input, commands::switchToProfile);
            QCOMPARE(titlesOf(profiles), QStringList({"Edit Profiles…", "", "Desk", "Game"}));
            QCOMPARE(tagsOf(profiles), QList<int>({0, 1}));
        }
    }

    void aMacroIsStoredByItsIdentifierAndName() {
        AssignmentFixture fixture;
        fixture.openWithInput(3, {{"command", 34}, {"param1", 2}, {"odd", 5}});
        choose(fixture.popUp(3), {"Run Macro", "World"});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(
            fixture.savedInputIs(3, {{"command", 65}, {"param1", 3}, {"param2", 1}, {"string", u"World"}}));
        QCOMPARE(fixture.shown(3), QStringLiteral("Macro: World"));
    }

    void aProfileIsStoredByItsNumberAndName() {
        AssignmentFixture fixture;
        fixture.openWithInput(9, {{"command", 49}, {"param1", 4}, {"param2", 2}});
        choose(fixture.popUp(9), {"Switch to Profile", "Desk"});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(fixture.savedInputIs(9, {{"command", 34}, {"param1", 1}, {"string", u"Desk"}}));
        QCOMPARE(fixture.shown(9), QStringLiteral("Profile: Desk"));
        choose(fixture.popUp(9), {"Profile: Desk", "Game"});
        QVERIFY(fixture.commandsBecome({"KyPR 0", "KyPR 0"}));
        QVERIFY(fixture.savedInputIs(9, {{"command", 34}, {"param1", 2}, {"string", u"Game"}}));
        QCOMPARE(fixture.shown(9), QStringLiteral("Profile: Game"));
    }

    void theFixedItemOpensTheTabOfItsListAndChangesNothing_data() {
        QTest::addColumn<QStringList>("titles");
        QTest::addColumn<int>("tab");
        QTest::newRow("profiles") << QStringList{"Switch to Profile", "Edit Profiles…"} << 2;
        QTest::newRow("macros") << QStringList{"Run Macro", "Edit Macros…"} << 3;
    }

    void theFixedItemOpensTheTabOfItsListAndChangesNothing() {
        QFETCH(QStringList, titles);
        QFETCH(int, tab);
        AssignmentFixture fixture;
        fixture.open();
        choose(fixture.popUp(4), titles);
        QCOMPARE(fixture.find<QTabWidget>("quorviTabsMain")->currentIndex(), tab);
        QCOMPARE(fixture.shown(4), QStringLiteral("No Function"));
        fixture.pane->sendMessageToHelper(kMessageRecording, 7); // what was sent before has arrived with it
        QVERIFY(fixture.commandsBecome({"KyDM 7"}));
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(AssignmentFixture::tree()));
    }

    void whatHasNoNameIsListedAsAQuestionMark() {
        AssignmentFixture fixture;
        auto tree = AssignmentFixture::tree();
        tree.array("macros").dictionary(0).set("name", u"");
        tree.array("profiles").dictionary(1).remove("name");
        fixture.openWith(tree);
        QCOMPARE(titlesOf(fixture.list(2, commands::switchToProfile)).last(), QStringLiteral("?"));
        choose(fixture.popUp(2), {"Run Macro", "?"});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(fixture.savedInputIs(2, {{"command", 65}, {"param1", 0}, {"param2", 1}, {"string", u"?"}}));
        QCOMPARE(fixture.shown(2), QStringLiteral("Macro: ")); // the name that it has
    }

    void anOddNameIsStoredAsItStands_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("shown");
        QTest::newRow("mark of a key") << QStringLiteral("Cut & Paste") << QStringLiteral("Cut & Paste");
        QTest::newRow("not Latin") << QString::fromUtf8("Игра 游戏 😀") << QString::fromUtf8("Игра 游戏 😀");
        QTest::newRow("shortcut") << QStringLiteral("A\tCtrl+Q") << QStringLiteral("A Ctrl+Q");
        QTest::newRow("as long as a file")
            << QString(1000000, QLatin1Char('n')) << QString(80, QLatin1Char('n')) + QString::fromUtf8("…");
    }

    void anOddNameIsStoredAsItStands() {
        QFETCH(QString, name);
        QFETCH(QString, shown);
        AssignmentFixture fixture;
        auto tree = AssignmentFixture::tree();
        tree.array("macros").dictionary(1).set("name", name.toStdU16String());
        fixture.openWith(tree);
        choose(fixture.popUp(2), {"Run Macro", shown});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(fixture.savedInputIs(
            2, {{"command", 65}, {"param1", 3}, {"param2", 1}, {"string", name.toStdU16String()}}));
        const QString decorated = QStringLiteral("Macro: ") + shown;
        QVERIFY(fixture.shown(2).startsWith(decorated.left(80)));
    }

    void onlyTheChosenItemIsDecoratedAndOnlyInItsPopUp() {
        AssignmentFixture fixture;
        auto tree = AssignmentFixture::tree();
        AssignmentFixture::setInput(tree, 2, {{"command", 49}, {"param1", 62}});
        AssignmentFixture::setInput(tree, 3, {{"command", 65}, {"param1", 0}});
        AssignmentFixture::setInput(tree, 8, {{"command", 34}, {"param1", 2}});
        fixture.openWith(tree);
        const auto titles = [&](int input) {
            QStringList all;
            for (const int code : {commands::singleKey, commands::runMacro, commands::switchToProfile})
                all << titleOfItem(*fixture.popUp(input)->itemWithTag(code));
            return all;
        };
        QCOMPARE(titles(2), QStringList({"Press Key F5", "Run Macro", "Switch to Profile"}));
        QCOMPARE(titles(3), QStringList({"Press Key", "Macro: Hello", "Switch to Profile"}));
        QCOMPARE(titles(8), QStringList({"Press Key", "Run Macro", "Profile: Game"}));
        QCOMPARE(fixture.shown(2), QStringLiteral("Press Key F5"));
        for (const int input : {2, 3, 8})
            choose(fixture.popUp(input), {"Forward"});
        for (const int input : {2, 3, 8})
            QCOMPARE(titles(input), QStringList({"Press Key", "Run Macro", "Switch to Profile"}));
    }

    void whatIsAssignedButGoneIsShownWithoutItsName_data() {
        QTest::addColumn<int>("command");
        QTest::addColumn<int>("param");
        QTest::addColumn<QString>("shown");
        QTest::newRow("profile 0") << 34 << 0 << "Profile: ";
        QTest::newRow("profile 3 of 2") << 34 << 3 << "Profile: ";
        QTest::newRow("negative profile") << 34 << -1 << "Profile: ";
        QTest::newRow("macro") << 65 << 2 << "Macro: (missing)";
        QTest::newRow("negative macro") << 65 << -1 << "Macro: (missing)";
    }

    void whatIsAssignedButGoneIsShownWithoutItsName() {
        QFETCH(int, command);
        QFETCH(int, param);
        QFETCH(QString, shown);
        AssignmentFixture fixture;
        fixture.open();
        AssignmentFixture::setInput(
            fixture.pane->deviceConfig(), 3, {{"command", command}, {"param1", param}});
        fixture.pane->updateUI();
        QCOMPARE(fixture.shown(3), shown);
    }

    void noMenuIsMadeToShowWhatIsAssigned() {
        AssignmentFixture fixture;
        fixture.openWithInput(3, {{"command", commands::runMacro}, {"param1", 3}});
        for (int input = 1; input <= 9; ++input)
            QVERIFY(fixture.popUp(input)->awaitsMenu());
        QCOMPARE(fixture.shown(3), QStringLiteral("Macro: World"));
        // Made now, it is as if it had been there from the start.
        QCOMPARE(titlesOf(fixture.list(3, commands::runMacro)).mid(2), QStringList({"Hello", "World"}));
        const QAction* item = fixture.popUp(3)->itemWithTag(commands::runMacro);
        QCOMPARE(titleOfItem(*item), QStringLiteral("Macro: World"));
        QCOMPARE(fixture.popUp(3)->selectedItem(), item);
        AssignmentFixture::setInput(fixture.pane->deviceConfig(), 3, {{"command", commands::singleKey}});
        fixture.pane->updateUI();
        QCOMPARE(titleOfItem(*item), QStringLiteral("Run Macro"));
    }

    void titlesMayBeStaleUntilTheListsAreRebuilt() {
        AssignmentFixture fixture;
        fixture.open();
        fixture.pane->deviceConfig().array("macros").dictionary(0).set("name", u"New");
        fixture.pane->updateUI();
        QCOMPARE(titlesOf(fixture.list(1, commands::runMacro)).at(2), QStringLiteral("Hello"));
        QCOMPARE(titlesOf(fixture.list(2, commands::runMacro)).at(2), QStringLiteral("Hello"));
        fixture.pane->updateMacrosSubmenu();
        QCOMPARE(titlesOf(fixture.list(1, commands::runMacro)).at(2), QStringLiteral("New"));
        fixture.pane->deviceConfig().array("profiles").append(assignment({{"name", u"Third"}}));
        fixture.pane->updateProfilesSubmenu();
        QCOMPARE(titlesOf(fixture.list(9, commands::switchToProfile)).mid(2),
            QStringList({"Desk", "Game", "Third"}));
    }

    void anItemListedLaterCanBeChosenAsWell() {
        AssignmentFixture fixture;
        fixture.open();
        fixture.pane->deviceConfig().array("macros").append(macro(u"Third", 69));
        fixture.pane->updateMacrosSubmenu();
        choose(fixture.popUp(7), {"Run Macro", "Third"});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(
            fixture.savedInputIs(7, {{"command", 65}, {"param1", 69}, {"param2", 1}, {"string", u"Third"}}));
    }

    void aDeviceListKeepsAnOpenMenuAndThePlaceInIt() {
        AssignmentFixture fixture;
        fixture.open();
        QMenu* menu = openMenuOf(fixture.popUp(3));
        clickInMenu(menu, {"Run Macro"});
        QMenu* list = fixture.list(3, commands::runMacro);
        list->setActiveAction(itemOf(list, QStringLiteral("World")));
        auto changed = AssignmentFixture::tree();
        changed.array("macros").append(macro(u"Third", 7));
        changed.array("macros").dictionary(1).set("name", u"Globe");
        fixture.writeSettings(changed);
        fixture.helper->sendDeviceList(1);
        QTRY_COMPARE(list->actions().size(), 5);
        QVERIFY(menu->isVisible() && list->isVisible());
        QCOMPARE(list->activeAction(), itemOf(list, QStringLiteral("Globe")));
        QTest::keyClick(list, Qt::Key_Return);
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(
            fixture.savedInputIs(3, {{"command", 65}, {"param1", 3}, {"param2", 1}, {"string", u"Globe"}}));
    }

    void aDeviceListMayTakeAwayTheItemUnderThePointer() {
        AssignmentFixture fixture;
        fixture.open();
        clickInMenu(openMenuOf(fixture.popUp(3)), {"Run Macro"});
        QMenu* list = fixture.list(3, commands::runMacro);
        list->setActiveAction(itemOf(list, QStringLiteral("World")));
        fixture.writeSettings(treeWithMacros(1));
        fixture.helper->sendDeviceList(1);
        QTRY_COMPARE(list->actions().size(), 3);
        QVERIFY(list->isVisible());
        clickInMenu(list, {"Macro"});
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QVERIFY(
            fixture.savedInputIs(3, {{"command", 65}, {"param1", 0}, {"param2", 1}, {"string", u"Macro"}}));
    }

    void unpluggingTheMouseClosesAnOpenMenu() {
        AssignmentFixture fixture;
        fixture.open();
        QMenu* menu = openMenuOf(fixture.popUp(3));
        clickInMenu(menu, {"Run Macro"});
        fixture.helper->sendDeviceList(0);
        QTRY_VERIFY(!menu->isVisible());
        QVERIFY(!fixture.list(3, commands::runMacro)->isVisible());
        QVERIFY(!fixture.popUp(3)->isEnabled());
    }

    // What would take more than a moment fails these: nothing waits for long.
    void thousandsOfMacrosAreListedInAMoment() {
        AssignmentFixture fixture;
        fixture.openWith(treeWithMacros(3000));
        for (int input = 1; input <= 9; ++input)
            QCOMPARE(fixture.list(input, commands::runMacro)->actions().size(), 3002);
        fixture.writeSettings(treeWithMacros(0));
        fixture.helper->sendDeviceList(1);
        QTRY_COMPARE(fixture.list(9, commands::runMacro)->actions().size(), 2);
    }

    void aLongListThatChangesIsClosedBecauseItCannotBeLaidOutEntryByEntry() {
        AssignmentFixture fixture;
        fixture.openWith(treeWithMacros(101));
        QMenu* menu = openMenuOf(fixture.popUp(2));
        clickInMenu(menu, {"Run Macro"});
        fixture.writeSettings(treeWithMacros(100));
        fixture.helper->sendDeviceList(1);
        QTRY_VERIFY(!fixture.list(2, commands::runMacro)->isVisible());
        QVERIFY(menu->isVisible());
    }
};

QUORVI_PANE_TEST_MAIN(AssignmentListsTest)
#include "AssignmentListsTest.moc"
