// The list of macros, and the commands on the steps of one, through the window.

#include <QLabel>
#include <QStackedWidget>

#include "pane/ListTools.h"
#include "pane/PaneTestMain.h"
#include "resources/MenuTags.h"
#include "support/Tabs.h"
#include "widgets/MarkedCells.h"
#include "widgets/PopUpButton.h"
#include "widgets/SymbolIcon.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kTable = "quorviTableMacros";
constexpr const char* kSteps = "quorviTableSteps";

plist::Dictionary macroOf(const plist::Dictionary& tree, std::size_t index) {
    return tree.array("macros").dictionary(index);
}

plist::Dictionary treeWithMacros(int count) {
    const auto tree = PaneFixture::sampleTree();
    const auto macros = tree.array("macros");
    macros.removeAll();
    for (int id = 0; id < count; ++id) {
        const auto macro = PaneFixture::sampleTree().array("macros").dictionary(0);
        macro.set("macroid", id);
        macro.set("name", QStringLiteral("M%1").arg(id).toStdU16String());
        macros.append(macro);
    }
    return tree;
}

/// A tree whose only macro has steps with these delays.
plist::Dictionary treeWithDelays(std::initializer_list<int> delays) {
    const auto tree = treeWithMacros(1);
    const auto steps = plist::Array::create();
    for (const int delay : delays) {
        auto step = plist::Dictionary::create();
        step.set("command", 1);
        step.set("argument", static_cast<std::int32_t>(4 + steps.size()));
        step.set("delay", delay);
        steps.append(step);
    }
    macroOf(tree, 0).set("steps", steps);
    return tree;
}

class MacrosFixture : public PaneFixture {
  public:
    explicit MacrosFixture(const plist::Dictionary& tree = sampleTree()) {
        openWith(tree);
        selectTab(kMacrosTab);
        window->resize(900, 700);
        QCoreApplication::processEvents();
    }
    void select(int row) {
        selectRow(kTable, row);
        QCoreApplication::processEvents();
    }
    void selectStep(int row) {
        selectRow(kSteps, row);
        QCoreApplication::processEvents();
    }
    void chooseForSteps(int tag) const { chooseInGearMenu(*this, "quorviButtonStepGear", tag); }
    [[nodiscard]] QList<int> delays() const {
        QList<int> result;
        const auto steps = macroOf(pane->deviceConfig(), 0).array("steps");
        for (std::size_t index = 0; index < steps.size(); ++index)
            result << steps.dictionary(index).integer("delay");
        return result;
    }
};

} // namespace

class MacrosEditorTest : public QObject {
    Q_OBJECT

  private slots:
    void addingAppendsAnEmptyMacroWithAFreeIdentifierAndEditsItsName() {
        MacrosFixture fixture;
        fixture.click("quorviButtonMacroAdd");
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        const auto saved = fixture.savedSettings();
        QCOMPARE(namesIn(saved, "macros"), QStringList({"Hello", "World", "Untitled Macro"}));
        const auto added = macroOf(saved, 2);
        QCOMPARE(added.integer("macroid"), 1); // 0 and 3 are taken
        QCOMPARE(added.integer("delay"), 0);
        QVERIFY(added.has("delay"));
        QVERIFY(added.array("steps"));
        QCOMPARE(added.array("steps").size(), 0U);
        QCOMPARE(added.size(), 4U);
        QCOMPARE(fixture.selectedRow(kTable), 2);
        QCOMPARE(fixture.pane->macroIndex(), 2);
        QVERIFY(waitForCellEditor(fixture, kTable));
        QCOMPARE(cellEditor(fixture, kTable)->selectedText(), QStringLiteral("Untitled Macro"));
    }

    void withoutAMacroThePageSaysHowToBegin() {
        MacrosFixture fixture(treeWithMacros(1));
        const auto isShown = [&](const char* name) { return fixture.find<QWidget>(name)->isVisible(); };
        for (const char* shown : {"quorviTableMacros", "labelMacros", "textNoMacro"})
            QVERIFY2(!fixture.find<QWidget>(shown)->isHidden(), shown);
        QVERIFY(!isShown("quorviButtonMacroRecord"));
        QVERIFY(!isShown("viewNoMacro"));
        fixture.select(0);
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        QTest::keyClick(fixture.find<QWidget>(kTable), Qt::Key_Delete);
        QVERIFY(isShown("quorviButtonMacroRecord"));
        QVERIFY(isShown("viewNoMacro"));
        QVERIFY(isShown("quorviButtonMacroGear")); // which imports
        QVERIFY(!isShown("quorviTableMacros"));
        QCOMPARE(fixture.text("textNoMacroTitle"), QStringLiteral("No macros yet"));
        QCOMPARE(fixture.window->focusWidget()->objectName(), QStringLiteral("quorviButtonMacroRecord"));
    }

    void theFirstMacroIsAddedAndRecordedByOneButton() {
        MacrosFixture fixture(treeWithMacros(0));
        fixture.click("quorviButtonMacroRecord");
        QVERIFY(fixture.pane->isRecordingMacro());
        QCOMPARE(namesIn(fixture.savedSettings(), "macros"), QStringList("Untitled Macro"));
        QVERIFY(fixture.find<QWidget>("quorviTableMacros")->isVisible());
        QVERIFY(!fixture.find<QWidget>("quorviButtonMacroRecord")->isVisible());
        QCOMPARE(fixture.selectedRow(kTable), 0);
        QVERIFY(!cellEditor(fixture, kTable));
        QVERIFY(fixture.find<QWidget>("quorviButtonStepRecord")->hasFocus());
        fixture.click("quorviButtonStepRecord");
        QVERIFY(!fixture.pane->isRecordingMacro());
    }

    void theHeadingsSayHowMuchThereIs() {
        MacrosFixture fixture(treeWithDelays({1000, 750, 30, 5000}));
        QCOMPARE(fixture.text("textMacroCount"), QStringLiteral("1 of 12"));
        fixture.select(0);
        QCOMPARE(fixture.text("labelSteps"), QStringLiteral("M0"));
        QCOMPARE(fixture.text("textStepCount"), QStringLiteral("4 of 16 s&teps \u00B7 1.8 s"));
        chooseInGearMenu(fixture, "quorviButtonStepGear", kRemoveAllDelaysItem);
        QCOMPARE(fixture.text("textStepCount"), QStringLiteral("4 of 16 s&teps"));
        fixture.pane->setObjectValue(QStringLiteral("Greet"), 21, 0);
        QCOMPARE(fixture.text("labelSteps"), QStringLiteral("Greet"));
    }

    void theStepsHaveSignsOfWhatTheyDo() {
        const auto tree = treeWithDelays({0, 0, 0});
        macroOf(tree, 0).array("steps").dictionary(1).set("command", 0);
        macroOf(tree, 0).array("steps").dictionary(2).set("command", 129);
        MacrosFixture fixture(tree);
        fixture.select(0);
        const auto* model = fixture.find<KyvarQuorviTableView>(kSteps)->model();
        QList<int> signs;
        for (int row = 0; row < 3; ++row)
            signs << model->index(row, 0).data(MarkedCells::symbolRole).toInt();
        QCOMPARE(signs, QList<int>({int(Symbol::KeyDown), int(Symbol::KeyUp), int(Symbol::Mouse)}));
    }

    void furtherOnesAreCounted() {
        MacrosFixture fixture(treeWithMacros(0));
        for (int i = 0; i < 3; ++i)
            fixture.click("quorviButtonMacroAdd");
        QVERIFY(fixture.commandsBecome({"KyPR 0", "KyPR 0", "KyPR 0"}));
        QCOMPARE(namesIn(fixture.savedSettings(), "macros"),
            QStringList({"Untitled Macro", "Untitled Macro 2", "Untitled Macro 3"}));
    }

    void withTwelveMacrosAddingAndImportingAreNotOffered() {
        MacrosFixture fixture(treeWithMacros(12));
        QVERIFY(!fixture.isEnabled("quorviButtonMacroAdd"));
        fixture.pane->actionButtonMacroAdd();
        chooseInGearMenu(fixture, "quorviButtonMacroGear", 21);
        chooseInGearMenu(fixture, "quorviButtonMacroGear", 22);
        QCOMPARE(fixture.pane->deviceConfig().array("macros").size(), 12U);
        QVERIFY(fixture.commandsBecome({}));
    }

    void choosingAMacroShowsItsStepsAndSavesNothing() {
        MacrosFixture fixture;
        QCOMPARE(fixture.find<QStackedWidget>("quorviTabsShowHideSteps")->currentIndex(), 1);
        fixture.select(1);
        QCOMPARE(fixture.pane->macroIndex(), 1);
        QCOMPARE(fixture.find<KyvarQuorviTableView>(kSteps)->model()->rowCount(), 2);
        QCOMPARE(fixture.selectedRow(kSteps), -1);
        QCOMPARE(fixture.find<QStackedWidget>("quorviTabsShowHideSteps")->currentIndex(), 0);
        QVERIFY(fixture.commandsBecome({}));
    }

    void renamingToTheNameOfAnotherCounts() {
        MacrosFixture fixture;
        fixture.select(1);
        fixture.find<KyvarQuorviTableView>(kTable)->editCell(0, 1);
        QVERIFY(waitForCellEditor(fixture, kTable));
        QTest::keyClicks(cellEditor(fixture, kTable), QStringLiteral("Hello"));
        QTest::keyClick(cellEditor(fixture, kTable), Qt::Key_Return);
        QTRY_COMPARE(shownIn(fixture, kTable, 0), QStringList({"Hello", "Hello 2"}));
        QVERIFY(fixture.commandsBecome({}));
        QCOMPARE(namesIn(fixture.savedSettings(), "macros"), QStringList({"Hello", "World"}));
    }

    void aNameThatIsBeingTypedStaysWhenTheCellChanges() {
        MacrosFixture fixture;
        fixture.select(1);
        auto* table = fixture.find<KyvarQuorviTableView>(kTable);
        table->editCell(0, 1);
        QVERIFY(waitForCellEditor(fixture, kTable));
        QTest::keyClicks(cellEditor(fixture, kTable), QStringLiteral("Bye"));
        const QModelIndex cell = table->model()->index(1, 0);
        emit table->model()->dataChanged(cell, cell); // as when the line under the name changes
        QTest::keyClick(cellEditor(fixture, kTable), Qt::Key_Return);
        QTRY_COMPARE(shownIn(fixture, kTable, 0), QStringList({"Hello", "Bye"}));
    }

    void renamingAnotherRowMakesThatMacroCurrent() {
        MacrosFixture fixture;
        fixture.select(0);
        fixture.pane->setObjectValue(QStringLiteral("Neu"), 21, 1);
        QCOMPARE(fixture.pane->macroIndex(), 1);
        fixture.pane->setObjectValue(7, 21, 0);
        QCOMPARE(shownIn(fixture, kTable, 0), QStringList({"Hello", "Neu"}));
    }

    void removingTheOnlyMacroLeavesAnEmptyListAndNoSteps() {
        MacrosFixture fixture(treeWithMacros(1));
        fixture.select(0);
        QString question;
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* sheet) {
            question = sheet->findChild<QLabel*>("quorviTextConfirm")->text();
            clickButton(sheet->findChild<QAbstractButton*>("quorviConfirmButtonOK"));
        });
        fixture.click("quorviButtonMacroRemove");
        QCOMPARE(question, QStringLiteral("Delete macro: M0\n\nAre you sure you want to delete this macro?"));
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QCOMPARE(namesIn(fixture.savedSettings(), "macros"), QStringList());
        QCOMPARE(fixture.pane->macroIndex(), -1);
        QCOMPARE(fixture.find<KyvarQuorviTableView>(kSteps)->model()->rowCount(), 0);
        QCOMPARE(fixture.find<QStackedWidget>("quorviTabsShowHideSteps")->currentIndex(), 1);
        QVERIFY(!fixture.isEnabled("quorviButtonMacroRemove"));
    }

    void theMacroAfterTheRemovedOneBecomesCurrent() {
        MacrosFixture fixture(treeWithMacros(3));
        fixture.select(1);
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        QTest::keyClick(fixture.find<QWidget>(kTable), Qt::Key_Backspace);
        QCOMPARE(namesIn(fixture.savedSettings(), "macros"), QStringList({"M0", "M2"}));
        QCOMPARE(fixture.pane->macroIndex(), 1);
        QCOMPARE(fixture.selectedRow(kTable), 1);
    }

    void theMacroBeforeARemovedLastOneBecomesCurrent() {
        MacrosFixture fixture(treeWithMacros(2));
        fixture.select(1);
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        fixture.click("quorviButtonMacroRemove");
        QCOMPARE(namesIn(fixture.savedSettings(), "macros"), QStringList({"M0"}));
        QCOMPARE(fixture.pane->macroIndex(), 0);
        QCOMPARE(fixture.selectedRow(kTable), 0);
    }

    void aDeclinedQuestionChangesNothing() {
        MacrosFixture fixture;
        fixture.select(0);
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonCancel");
        fixture.click("quorviButtonMacroRemove");
        QCOMPARE(namesIn(fixture.pane->deviceConfig(), "macros"), QStringList({"Hello", "World"}));
        QVERIFY(fixture.commandsBecome({}));
    }

    void noAssignmentOfAnyProfileNamesARemovedMacro() {
        auto tree = PaneFixture::sampleTree();
        for (const std::size_t profile : {0U, 1U}) {
            auto assignment = plist::Dictionary::create();
            assignment.set("command", 65);
            assignment.set("param1", 3);
            tree.array("profiles").dictionary(profile).dictionary("buttons").set("04", assignment);
        }
        MacrosFixture fixture(tree);
        fixture.select(1);
        clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
        fixture.click("quorviButtonMacroRemove");
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        for (const std::size_t profile : {0U, 1U}) {
            const auto assignment = fixture.savedSettings()
                                        .array("profiles")
                                        .dictionary(profile)
                                        .dictionary("buttons")
                                        .dictionary("04");
            QCOMPARE(assignment.integer("command"), 0);
            QCOMPARE(assignment.size(), 1U);
        }
    }

    void aRemovedStepMakesTheNextOneChosenAndTheLastOneTheOneBefore() {
        MacrosFixture fixture(treeWithDelays({10, 20, 30}));
        fixture.select(0);
        fixture.selectStep(1);
        fixture.click("quorviButtonStepRemove");
        QCOMPARE(fixture.delays(), QList<int>({10, 30}));
        QCOMPARE(fixture.selectedRow(kSteps), 1);
        QTest::keyClick(fixture.find<QWidget>(kSteps), Qt::Key_Delete);
        QCOMPARE(fixture.delays(), QList<int>({10}));
        QCOMPARE(fixture.selectedRow(kSteps), 0);
        fixture.click("quorviButtonStepRemove");
        QCOMPARE(fixture.delays(), QList<int>());
        QCOMPARE(fixture.selectedRow(kSteps), -1);
        QVERIFY(!fixture.isEnabled("quorviButtonStepRemove"));
        QVERIFY(fixture.commandsBecome({})); // the button leaves the saving to the next change
    }

    void theMenuRemovesAStepAndSaves() {
        MacrosFixture fixture(treeWithDelays({10, 20, 30}));
        fixture.select(0);
        fixture.selectStep(0);
        fixture.chooseForSteps(33);
        QCOMPARE(fixture.delays(), QList<int>({20, 30}));
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        QCOMPARE(macroOf(fixture.savedSettings(), 0).array("steps").size(), 2U);
    }

    void theDelayOfAStepForAllLeavesTheLastWithout() {
        MacrosFixture fixture(treeWithDelays({10, 200, 30}));
        fixture.select(0);
        fixture.selectStep(1);
        fixture.chooseForSteps(35);
        QCOMPARE(fixture.delays(), QList<int>({200, 200, 0}));
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        fixture.chooseForSteps(36);
        QCOMPARE(fixture.delays(), QList<int>({0, 0, 0}));
        QVERIFY(fixture.commandsBecome({"KyPR 0", "KyPR 0"}));
    }

    void allStepsAreRemovedAtOnce() {
        MacrosFixture fixture(treeWithDelays({10, 200}));
        fixture.select(0);
        fixture.chooseForSteps(34);
        QCOMPARE(fixture.delays(), QList<int>());
        QCOMPARE(fixture.find<KyvarQuorviTableView>(kSteps)->model()->rowCount(), 0);
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
        fixture.chooseForSteps(34); // greyed now
        QVERIFY(fixture.commandsBecome({"KyPR 0"}));
    }

    void theSubmenusOfTheButtonsFollowTheList() {
        MacrosFixture fixture(treeWithMacros(1));
        fixture.click("quorviButtonMacroAdd");
        fixture.pane->setObjectValue(QStringLiteral("Neu"), 21, 1);
        auto* item = fixture.find<PopUpButton>("quorviMenuTop9")->itemWithTag(65);
        const auto entries = item->menu()->actions();
        QCOMPARE(entries.size(), 4);
        QCOMPARE(titleOfItem(*entries.at(2)), QStringLiteral("M0"));
        QCOMPARE(titleOfItem(*entries.at(3)), QStringLiteral("Neu"));
    }
};

QUORVI_PANE_TEST_MAIN(MacrosEditorTest)
#include "MacrosEditorTest.moc"
