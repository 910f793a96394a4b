// The enabled items of the gear and context menus, by tag.

#include <QAction>
#include <QMenu>
#include <QPushButton>

#include "pane/AssignmentFixture.h"
#include "pane/PaneTestMain.h"
#include "resources/TableTags.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MenuItems.h"

Q_DECLARE_METATYPE(quorvi::plist::Dictionary)

using namespace quorvi;
using namespace quorvi::test;

namespace {

using Tags = QList<int>;

constexpr int kTags[] = {11, 12, 13, 14, 15, 16, 17, 18, 21, 22, 23, 24, 31, 32, 33, 34, 35, 36, -1, 0, 10,
    19, 20, 25, 30, 37, 65};
/// Tags that mean nothing to the rules, and the item for recording: possible whenever there is a device.
const Tags kAlways{31, -1, 0, 10, 19, 20, 25, 30, 37, 65};

Tags enabledTags(KyvarQuorviPane& pane) {
    Tags enabled;
    for (const int tag : kTags) {
        QAction item;
        setTagOfItem(item, tag);
        if (pane.validateMenuItem(&item))
            enabled << tag;
    }
    return enabled;
}

Tags inOrder(const Tags& tags) {
    Tags ordered;
    for (const int tag : kTags)
        if (tags.contains(tag))
            ordered << tag;
    return ordered;
}

plist::Dictionary treeWith(int profiles, int macros, int currentProfile = 1) {
    auto tree = AssignmentFixture::tree();
    auto profile = tree.array("profiles").value(0);
    while (tree.array("profiles").size() < static_cast<std::size_t>(profiles))
        tree.array("profiles").append(profile);
    tree.array("macros").removeAll();
    for (int id = 0; id < macros; ++id) {
        const auto steps = plist::Array::create();
        if (id == 0)
            steps.append(assignment({{"command", 1}, {"argument", 4}, {"delay", 50}}));
        tree.array("macros").append(assignment({{"macroid", id}, {"name", u"Macro"}, {"steps", steps}}));
    }
    tree.dictionary("settings").set("profileid", currentProfile);
    return tree;
}

plist::Dictionary treeBoundToAnApplication() {
    auto tree = treeWith(2, 2);
    tree.array("profiles").dictionary(0).dictionary("driver").set("application", u"Editor");
    return tree;
}

} // namespace

class MenuValidationTest : public QObject {
    Q_OBJECT

  private slots:
    void itemsFollowTheListsAndTheCurrentProfile_data() {
        QTest::addColumn<plist::Dictionary>("tree");
        QTest::addColumn<Tags>("enabled");
        QTest::newRow("first profile") << treeWith(2, 2) << Tags{11, 12, 13, 15, 16, 18, 21, 22};
        QTest::newRow("second profile") << treeWith(2, 2, 2) << Tags{11, 12, 13, 14, 15, 16, 18, 21, 22};
        QTest::newRow("no profile") << treeWith(2, 2, 0) << Tags{11, 12, 21, 22};
        QTest::newRow("profile that does not exist") << treeWith(2, 2, 9) << Tags{11, 12, 21, 22};
        QTest::newRow("4 profiles") << treeWith(4, 2) << Tags{11, 12, 13, 15, 16, 18, 21, 22};
        QTest::newRow("5 profiles") << treeWith(5, 2) << Tags{13, 16, 18, 21, 22};
        QTest::newRow("5 profiles, none current") << treeWith(5, 2, 0) << Tags{21, 22};
        QTest::newRow("6 profiles, last current") << treeWith(6, 2, 6) << Tags{13, 14, 16, 18, 21, 22};
        QTest::newRow("11 macros") << treeWith(2, 11) << Tags{11, 12, 13, 15, 16, 18, 21, 22};
        QTest::newRow("12 macros") << treeWith(2, 12) << Tags{11, 12, 13, 15, 16, 18};
        QTest::newRow("no macros") << treeWith(2, 0) << Tags{11, 12, 13, 15, 16, 18, 21, 22};
        QTest::newRow("bound to an application")
            << treeBoundToAnApplication() << Tags{11, 12, 13, 15, 16, 17, 18, 21, 22};
    }

    void itemsFollowTheListsAndTheCurrentProfile() {
        QFETCH(plist::Dictionary, tree);
        QFETCH(Tags, enabled);
        AssignmentFixture fixture;
        fixture.openWith(tree);
        QCOMPARE(enabledTags(*fixture.pane), inOrder(enabled + kAlways));
        fixture.helper->sendDeviceList(0);
        QTRY_VERIFY(!fixture.pane->hasDevice());
        QCOMPARE(enabledTags(*fixture.pane), Tags{});
    }

    void itemsFollowTheSelectedMacroAndStep() {
        const Tags withoutSelection = Tags{11, 12, 13, 15, 16, 18, 21, 22} + kAlways;
        AssignmentFixture fixture;
        fixture.openWith(treeWith(2, 2));
        fixture.selectTab(3);
        fixture.selectRow("quorviTableMacros", 1); // has no steps
        QCOMPARE(enabledTags(*fixture.pane), inOrder(withoutSelection + Tags{23, 24}));
        fixture.selectRow("quorviTableMacros", 0);
        QCOMPARE(enabledTags(*fixture.pane), inOrder(withoutSelection + Tags{23, 24, 34, 36}));
        fixture.selectRow("quorviTableSteps", 0);
        QCOMPARE(enabledTags(*fixture.pane), inOrder(withoutSelection + Tags{23, 24, 32, 33, 34, 35, 36}));
        fixture.pane->startStopRecording(true, false);
        QCOMPARE(enabledTags(*fixture.pane), inOrder(withoutSelection + Tags{23, 24, 33, 34, 35, 36}));
        fixture.pane->startStopRecording(false, false);
        fixture.find<KyvarQuorviTableView>("quorviTableMacros")->deselectAll();
        QCOMPARE(enabledTags(*fixture.pane), inOrder(withoutSelection));
    }

    void theTagOfAFunctionFollowsTheRuleOfTheMenuItemWithTheSameTag() {
        AssignmentFixture fixture;
        fixture.openWith(treeWith(2, 2));
        QAction* switchToProfile = fixture.popUp(3)->itemWithTag(34);
        QVERIFY(!fixture.pane->validateMenuItem(switchToProfile)); // no macro has steps to remove
        fixture.selectTab(3);
        fixture.selectRow("quorviTableMacros", 0);
        QVERIFY(fixture.pane->validateMenuItem(switchToProfile));
        QVERIFY(fixture.popUp(3)->itemWithTag(34)->isEnabled()); // nothing asks for it
    }

    void anItemWithoutATagIsPossibleWithADevice() {
        AssignmentFixture fixture;
        fixture.select();
        QAction item;
        QVERIFY(!fixture.pane->validateMenuItem(&item));
        fixture.writeSettings(treeWith(1, 0));
        fixture.connectDevices(1);
        QVERIFY(fixture.pane->validateMenuItem(&item));
        QVERIFY(!fixture.pane->validateMenuItem(nullptr));
    }

    void theItemForRecordingSaysWhatItDoes() {
        AssignmentFixture fixture;
        fixture.openWith(treeWith(2, 2));
        QAction item;
        setTagOfItem(item, 31);
        QVERIFY(fixture.pane->validateMenuItem(&item));
        QCOMPARE(titleOfItem(item), QStringLiteral("Record"));
        fixture.pane->startStopRecording(true, false);
        QVERIFY(fixture.pane->validateMenuItem(&item));
        QCOMPARE(titleOfItem(item), QStringLiteral("Stop"));
        fixture.pane->startStopRecording(false, false);
        QVERIFY(fixture.pane->validateMenuItem(&item));
        QCOMPARE(titleOfItem(item), QStringLiteral("Record"));
    }

    void aGearMenuIsBroughtUpToDateWhenItOpens() {
        AssignmentFixture fixture;
        fixture.openWith(treeWith(2, 2));
        fixture.pane->startStopRecording(true, false);
        auto* menu = fixture.find<QMenu>("quorviMenuStepGear");
        QCOMPARE(titleOfItem(*itemWithTag(*menu, 31)), QStringLiteral("Record"));
        menu->popup(QPoint(0, 0));
        QCOMPARE(titleOfItem(*itemWithTag(*menu, 31)), QStringLiteral("Stop"));
        QVERIFY(!itemWithTag(*menu, 32)->isEnabled());
        menu->close();
    }
};

QUORVI_PANE_TEST_MAIN(MenuValidationTest)
#include "MenuValidationTest.moc"
