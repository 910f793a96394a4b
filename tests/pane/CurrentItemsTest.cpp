// The current profile and macro after a change of the lists, and the resulting settings, tables and submenus.

#include <QMenu>

#include "pane/ListTools.h"
#include "pane/PaneTestMain.h"
#include "support/Tabs.h"
#include "widgets/PopUpButton.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kProfiles = "quorviTableProfiles";
constexpr const char* kMacros = "quorviTableMacros";
constexpr const char* kSteps = "quorviTableSteps";

/// The sample tree with as many copies of the array's last item, named by the letters from A on.
plist::Dictionary treeWith(const char* array, std::size_t count) {
    const auto tree = PaneFixture::sampleTree();
    const auto items = tree.array(array);
    items.removeAll();
    for (std::size_t index = 0; index < count; ++index) {
        const auto item = PaneFixture::sampleTree().array(array).dictionary(1);
        item.set("name", std::u16string(1, static_cast<char16_t>(u'A' + index)));
        if (item.has("macroid"))
            item.set("macroid", static_cast<std::int32_t>(index));
        items.append(item);
    }
    return tree;
}

plist::Dictionary stage(std::int32_t x, std::int32_t y) {
    auto result = plist::Dictionary::create();
    result.set("dpix", x);
    result.set("dpiy", y);
    result.set("independentxy", x != y);
    return result;
}

class ListsFixture : public PaneFixture {
  public:
    ListsFixture(const plist::Dictionary& tree, int tab) {
        openWith(tree);
        selectTab(tab);
        window->resize(900, 700);
        QCoreApplication::processEvents();
    }
    void choose(const char* table, int row) const {
        selectRow(table, row);
        QCoreApplication::processEvents();
    }
    /// Presses the remove button and agrees.
    void remove(const char* button) const {
        clickInSheet(window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        click(button);
    }
    /// The list that a button's submenu offers below its fixed entries.
    [[nodiscard]] QStringList offered(int command) const {
        QStringList titles;
        const auto items = find<PopUpButton>("quorviMenuTop3")->itemWithTag(command)->menu()->actions();
        for (int index = 2; index < items.size(); ++index)
            titles << titleOfItem(*items.at(index));
        return titles;
    }
};

} // namespace

class CurrentItemsTest : public QObject {
    Q_OBJECT

  private slots:
    void theRowsOfProfilesAreNumberedFromOne() {
        const ListsFixture fixture(treeWith("profiles", 3), kProfilesTab);
        QCOMPARE(shownIn(fixture, kProfiles, 0), QStringList({"1", "2", "3"}));
    }

    void aChosenProfileBringsTheResolutionOfItsDefaultStage() {
        const auto tree = treeWith("profiles", 2);
        const auto profile = tree.array("profiles").dictionary(1);
        const auto stages = plist::Array::create();
        stages.append(stage(400, 400));
        stages.append(stage(800, 1600));
        profile.set("stages", stages);
        profile.set("defaultstage", 2);
        const ListsFixture fixture(tree, kProfilesTab);
        fixture.choose(kProfiles, 1);
        QVERIFY(fixture.commandsBecome({"KyPR 1"}));
        const auto settings = fixture.savedSettings().dictionary("settings");
        QCOMPARE(settings.integer("stage"), 2);
        QCOMPARE(settings.integer("dpix"), 800);
        QCOMPARE(settings.integer("dpiy"), 1600);
        QVERIFY(settings.boolean("independentxy"));
    }

    void aDefaultStageThatThereIsNotBringsNoResolution() {
        const auto tree = treeWith("profiles", 2);
        tree.array("profiles").dictionary(1).set("defaultstage", 9);
        const ListsFixture fixture(tree, kProfilesTab);
        fixture.choose(kProfiles, 1);
        QVERIFY(fixture.commandsBecome({"KyPR 1"}));
        const auto settings = fixture.savedSettings().dictionary("settings");
        QCOMPARE(settings.integer("stage"), 9);
        QCOMPARE(settings.integer("dpix"), 0);
        QCOMPARE(settings.integer("dpiy"), 0);
        QVERIFY(!settings.boolean("independentxy"));
    }

    void aProfileRemovedFromTheMiddleLeavesItsPlaceToTheNext() {
        const ListsFixture fixture(treeWith("profiles", 5), kProfilesTab);
        fixture.choose(kProfiles, 1);
        fixture.remove("quorviButtonProfileRemove");
        QVERIFY(fixture.commandsBecome({"KyPR 1", "KyPR 1"}));
        QCOMPARE(fixture.pane->profileIndex(), 1);
        QCOMPARE(fixture.selectedRow(kProfiles), 1);
        QCOMPARE(fixture.savedSettings().dictionary("settings").integer("profileid"), 2);
        QCOMPARE(fixture.text("quorviTextProfile"), QStringLiteral("C"));
        QCOMPARE(fixture.offered(34), QStringList({"A", "C", "D", "E"}));
    }

    void aMacroRemovedFromTheMiddleLeavesItsPlaceToTheNext() {
        const ListsFixture fixture(treeWith("macros", 4), kMacrosTab);
        fixture.choose(kMacros, 1);
        fixture.remove("quorviButtonMacroRemove");
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QCOMPARE(fixture.pane->macroIndex(), 1);
        QCOMPARE(fixture.selectedRow(kMacros), 1);
        QCOMPARE(namesIn(fixture.savedSettings(), "macros"), QStringList({"A", "C", "D"}));
        QCOMPARE(fixture.offered(65), QStringList({"A", "C", "D"}));
    }

    void aNewMacroIsOfferedToTheButtonsBeforeItHasItsName() {
        const ListsFixture fixture(treeWith("macros", 1), kMacrosTab);
        fixture.click("quorviButtonMacroAdd");
        QCOMPARE(fixture.offered(65), QStringList({"A", "Untitled Macro"}));
    }

    void noStepIsChosenInAMacroThatBecomesCurrent() {
        const ListsFixture fixture(treeWith("macros", 3), kMacrosTab);
        fixture.choose(kMacros, 0);
        fixture.choose(kSteps, 1);
        QVERIFY(fixture.isEnabled("quorviButtonStepRemove"));
        fixture.choose(kMacros, 1);
        QCOMPARE(fixture.selectedRow(kSteps), -1);
        QVERIFY(!fixture.isEnabled("quorviButtonStepRemove"));
        fixture.choose(kSteps, 1);
        fixture.remove("quorviButtonMacroRemove");
        QCOMPARE(fixture.selectedRow(kSteps), -1);
        QVERIFY(!fixture.isEnabled("quorviButtonStepRemove"));
    }

    void theStepsShownAreThoseOfTheMacroThatFollowsARemovedOne() {
        const auto tree = treeWith("macros", 2);
        tree.array("macros").dictionary(1).array("steps").removeAll();
        const ListsFixture fixture(tree, kMacrosTab);
        fixture.choose(kMacros, 0);
        QCOMPARE(shownIn(fixture, kSteps, 0).size(), 2);
        fixture.remove("quorviButtonMacroRemove");
        QCOMPARE(shownIn(fixture, kSteps, 0).size(), 0);
    }

    void withAllStepsRemovedNoneIsLeftToRemove() {
        const ListsFixture fixture(treeWith("macros", 1), kMacrosTab);
        fixture.choose(kMacros, 0);
        fixture.choose(kSteps, 1);
        chooseInGearMenu(fixture, "quorviButtonStepGear", 34);
        QVERIFY(!fixture.isEnabled("quorviButtonStepRemove"));
        QCOMPARE(shownIn(fixture, kSteps, 0), QStringList());
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
    }

    void aStepRemovedFromTheMiddleLeavesItsPlaceToTheNext() {
        const auto tree = treeWith("macros", 1);
        const auto steps = tree.array("macros").dictionary(0).array("steps");
        for (const auto count = steps.size(); steps.size() < 2 * count;)
            steps.append(steps.dictionary(steps.size() - count));
        const ListsFixture fixture(tree, kMacrosTab);
        fixture.choose(kMacros, 0);
        fixture.choose(kSteps, 1);
        fixture.click("quorviButtonStepRemove");
        QCOMPARE(fixture.selectedRow(kSteps), 1);
    }

    void withoutACurrentMacroTheDeleteKeyAsksNothing() {
        const ListsFixture fixture(treeWith("macros", 2), kMacrosTab);
        QTest::keyClick(fixture.find<QWidget>(kMacros), Qt::Key_Delete);
        QVERIFY(!QApplication::activeModalWidget());
        QCOMPARE(fixture.pane->deviceConfig().array("macros").size(), 2U);
    }

    void aMousePluggedInDuringTheQuestionKeepsTheMacroThatWasNotMeant() {
        const ListsFixture fixture(treeWith("macros", 2), kMacrosTab);
        fixture.choose(kMacros, 1);
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* sheet) {
            fixture.writeSettings(treeWith("macros", 3));
            fixture.helper->sendDeviceList(1);
            if (!QTest::qWaitFor([&] { return fixture.pane->deviceConfig().array("macros").size() == 3; },
                    kWindowPatienceMs))
                qFatal("the settings are not read");
            // Another macro has been chosen since.
            fixture.pane->editMacroIndex(0);
            clickButton(sheet->findChild<QAbstractButton*>("quorviConfirmButtonOK"));
        });
        fixture.click("quorviButtonMacroRemove");
        QCOMPARE(namesIn(fixture.pane->deviceConfig(), "macros"), QStringList({"A", "B", "C"}));
    }
};

QUORVI_PANE_TEST_MAIN(CurrentItemsTest)
#include "CurrentItemsTest.moc"
