// Moving, cutting, copying, pasting and duplicating steps, by their keys and in the menu of the list.

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>

#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"
#include "plist/Writer.h"
#include "resources/MenuTags.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kStepsGear = "quorviButtonStepGear";

const QStringList kCtrlC{"1 224 50", "1 6 60", "0 6 70", "0 224 0"};
const QStringList kHi{"1 11 10", "0 11 20", "1 12 30", "0 12 0"};

QClipboard& clipboard() {
    return *QGuiApplication::clipboard();
}

QStringList sixteenSteps() {
    QStringList steps;
    for (int key = 4; key < 12; ++key)
        steps << stepAsText(1, key, 10) << stepAsText(0, key, 20);
    return steps;
}

class EditedMacro : public MacroFixture {
  public:
    explicit EditedMacro(const QStringList& steps, int row = -1) : MacroFixture(steps) {
        clipboard().clear();
        if (row >= 0)
            selectStep(row);
        find<KyvarQuorviTableView>(kStepsTable)->setFocus();
    }

    void press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
        QTest::keyClick(window->windowHandle(), key, modifiers);
        QCoreApplication::processEvents();
    }
    void cut() const { press(Qt::Key_X, Qt::ControlModifier); }
    void copy() const { press(Qt::Key_C, Qt::ControlModifier); }
    void paste() const { press(Qt::Key_V, Qt::ControlModifier); }
    void duplicate() const { press(Qt::Key_D, Qt::ControlModifier); }
    void moveUp() const { press(Qt::Key_Up, Qt::AltModifier); }
    void moveDown() const { press(Qt::Key_Down, Qt::AltModifier); }
    void undo() const { press(Qt::Key_Z, Qt::ControlModifier); }

    [[nodiscard]] int selectedStep() const { return selectedRow(kStepsTable); }
    [[nodiscard]] std::vector<int> selectedSteps() const {
        return find<KyvarQuorviTableView>(kStepsTable)->selectedRows();
    }
    void selectSteps(const std::vector<int>& rows) const {
        find<KyvarQuorviTableView>(kStepsTable)->selectRows(rows);
    }
    void remove() const { press(Qt::Key_Delete, Qt::NoModifier); }
    [[nodiscard]] QString titleOf(int tag) const {
        QAction* item = itemWithTag(*find<QMenu>("quorviMenuStepGear"), tag);
        static_cast<void>(pane->validateMenuItem(item));
        return titleOfItem(*item);
    }
    [[nodiscard]] std::string savedBytes() const { return plist::writeXml(savedSettings()).value(); }
    /// What Undo would take back.
    [[nodiscard]] QString lastAction() const {
        const QString tip = find<QPushButton>("quorviButtonUndo")->toolTip().section(" (Ctrl", 0, 0);
        return tip.startsWith(QLatin1String("Undo ")) ? tip.mid(5) : QString();
    }
    [[nodiscard]] QString notice() const {
        const auto* label = window->findChild<QLabel*>("textNotice");
        return label && label->isVisible() ? label->text() : QString();
    }
    /// The tags of the commands for editing that the list's menu offers now.
    [[nodiscard]] QList<int> offered() const {
        QList<int> tags;
        for (int tag = kMoveStepUpItem; tag <= kDuplicateStepItem; ++tag)
            if (pane->validateMenuItem(itemWithTag(*find<QMenu>("quorviMenuStepGear"), tag)))
                tags << tag;
        return tags;
    }
};

} // namespace

class StepEditsTest : public QObject {
    Q_OBJECT

  private slots:
    void altWithAnArrowMovesTheSelectedStep() {
        EditedMacro macro(kHi, 0);
        macro.moveDown();
        const QStringList once{"1 12 30", "1 11 10", "0 11 20", "0 12 0"};
        QCOMPARE(macro.steps(), once);
        QCOMPARE(macro.savedSteps(), once);
        QCOMPARE(macro.shownSteps(), QStringList({"Press i", "Press h", "Release h", "Release i"}));
        QCOMPARE(macro.selectedStep(), 1);
        QCOMPARE(macro.lastAction(), QStringLiteral("Move Step"));
        macro.moveDown();
        QCOMPARE(macro.savedSteps(), QStringList({"1 12 30", "0 12 20", "1 11 10", "0 11 0"}));
        QCOMPARE(macro.selectedStep(), 2);
        macro.moveUp();
        QCOMPARE(macro.savedSteps().first(), QStringLiteral("1 12 30"));
        QCOMPARE(macro.selectedStep(), 1);
        QVERIFY(!QApplication::activePopupWidget());
    }

    void aStepThatCannotMoveStaysAndOpensNothing() {
        EditedMacro macro(kHi, 2);
        const std::string before = macro.savedBytes();
        macro.moveDown();
        QCOMPARE(macro.steps(), kHi);
        QCOMPARE(macro.savedBytes(), before);
        QCOMPARE(macro.selectedStep(), 2);
        QCOMPARE(macro.lastAction(), QString());
        QVERIFY(!QApplication::activePopupWidget());
    }

    void aStepIsCutAndPastedWithItsOtherHalf() {
        EditedMacro macro(kCtrlC, 1);
        macro.cut();
        QCOMPARE(clipboard().text(), QStringLiteral("press C, 60 ms, release C, 70 ms"));
        QCOMPARE(macro.savedSteps(), QStringList({"1 224 50", "0 224 0"}));
        QCOMPARE(macro.selectedStep(), 1);
        QCOMPARE(macro.lastAction(), QStringLiteral("Cut Step"));
        macro.selectStep(0);
        macro.paste();
        QCOMPARE(macro.savedSteps(), kCtrlC);
        QCOMPARE(macro.selectedStep(), 2);
        QCOMPARE(macro.lastAction(), QStringLiteral("Paste Steps"));
        QCOMPARE(macro.notice(), QString());
    }

    void theLastStepsAreCutToo() {
        EditedMacro macro({"1 11 10", "0 11 0"}, 1);
        macro.cut();
        QCOMPARE(macro.savedSteps(), QStringList());
        QCOMPARE(macro.selectedStep(), -1);
        macro.cut();
        QCOMPARE(clipboard().text(), QStringLiteral("press H, 10 ms, release H"));
        macro.paste();
        QCOMPARE(macro.savedSteps(), QStringList({"1 11 10", "0 11 0"}));
    }

    void aCopiedStepIsPastedIntoAnotherMacro() {
        EditedMacro macro(kCtrlC, 0);
        const std::string before = macro.savedBytes();
        macro.copy();
        QCOMPARE(clipboard().text(), QStringLiteral("press Ctrl, 50 ms, release Ctrl"));
        QCOMPARE(macro.lastAction(), QString());
        QCOMPARE(macro.savedBytes(), before);
        macro.selectRow("quorviTableMacros", 1);
        QCoreApplication::processEvents();
        macro.find<KyvarQuorviTableView>(kStepsTable)->setFocus();
        const std::size_t count =
            macro.pane->deviceConfig().array("macros").dictionary(1).array("steps").size();
        macro.paste();
        const auto steps = macro.savedSettings().array("macros").dictionary(1).array("steps");
        QCOMPARE(steps.size(), count + 2);
        QCOMPARE(steps.dictionary(count).integer("argument"), 224);
        QCOMPARE(macro.selectedStep(), int(count) + 1);
        QCOMPARE(macro.steps(), kCtrlC);
    }

    void textThatPeopleWriteIsPasted() {
        EditedMacro macro({});
        clipboard().setText("Press Ctrl\nwait 0.05 s\nPRESS c,50ms, release c,   release control\n");
        macro.paste();
        QCOMPARE(macro.savedSteps(), QStringList({"1 224 50", "1 6 50", "0 6 0", "0 224 0"}));
    }

    void aStepIsDuplicatedBehindItsOtherHalf() {
        EditedMacro macro(kCtrlC, 1);
        macro.duplicate();
        QCOMPARE(
            macro.savedSteps(), QStringList({"1 224 50", "1 6 60", "0 6 70", "1 6 60", "0 6 70", "0 224 0"}));
        QCOMPARE(macro.selectedStep(), 3);
        QCOMPARE(macro.lastAction(), QStringLiteral("Duplicate Step"));
    }

    void eachIsOneActionAndUndoneByteForByte() {
        EditedMacro macro(kCtrlC, 1);
        const std::string before = macro.savedBytes();
        const auto undoes = [&](void (EditedMacro::*edit)() const) {
            macro.selectStep(1);
            macro.find<KyvarQuorviTableView>(kStepsTable)->setFocus();
            (macro.*edit)();
            const bool changed = macro.savedBytes() != before;
            macro.undo();
            return changed && macro.savedBytes() == before && macro.lastAction().isEmpty();
        };
        QVERIFY(undoes(&EditedMacro::moveUp));
        QVERIFY(undoes(&EditedMacro::moveDown));
        QVERIFY(undoes(&EditedMacro::cut));
        QVERIFY(undoes(&EditedMacro::paste));
        QVERIFY(undoes(&EditedMacro::duplicate));
    }

    void whatHasNoRoomIsCountedInTheBar() {
        QStringList steps = sixteenSteps().mid(0, 14);
        EditedMacro macro(steps, 13);
        clipboard().setText("press X, release X, press Y, release Y, press Z, release Z");
        macro.paste();
        steps << "1 27 0"
              << "0 27 0";
        QCOMPARE(macro.savedSteps(), steps);
        QCOMPARE(macro.notice(), QStringLiteral("Steps that did not fit: 4. A macro has at most 16 steps."));
        macro.click("quorviButtonUndo");
        QCOMPARE(macro.savedSteps(), steps.mid(0, 14));
        QCOMPARE(macro.notice(), QString());
    }

    void aMacroThatIsFullTakesNothing() {
        EditedMacro macro(sixteenSteps(), 3);
        const std::string before = macro.savedBytes();
        clipboard().setText("press X, release X");
        macro.paste();
        QCOMPARE(macro.notice(), QStringLiteral("Steps that did not fit: 2. A macro has at most 16 steps."));
        macro.duplicate();
        QCOMPARE(macro.savedBytes(), before);
        QCOMPARE(macro.lastAction(), QString());
    }

    void aTextThatIsNoStepsIsRefusedAndSaysWhy_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("notice");
        const QString none = QStringLiteral("There are no macro steps on the clipboard.");
        QTest::newRow("words") << QStringLiteral("press A, dance,")
                               << QStringLiteral("“dance” on the clipboard is not a macro step.");
        QTest::newRow("blanks") << QStringLiteral(" \n ") << none;
        QTest::newRow("megabytes") << QString(20'000'000, QLatin1Char('9')) << none;
    }
    void aTextThatIsNoStepsIsRefusedAndSaysWhy() {
        QFETCH(QString, text);
        EditedMacro macro(kHi, 0);
        const std::string before = macro.savedBytes();
        clipboard().setText(text);
        QElapsedTimer timer;
        timer.start();
        macro.paste();
        QVERIFY(timer.elapsed() < 5000);
        QTEST(macro.notice(), "notice");
        QCOMPARE(macro.savedBytes(), before);
        QCOMPARE(macro.lastAction(), QString());
    }

    void aPartAsLongAsATextIsCutInTheBar() {
        EditedMacro macro(kHi, 0);
        clipboard().setText(QString(10000, QLatin1Char('x')));
        macro.paste();
        QVERIFY(macro.notice().contains(QStringLiteral("xxx")));
        QVERIFY2(macro.notice().size() < 200, qPrintable(QString::number(macro.notice().size())));
    }

    void whatIsImpossibleIsGreyed() {
        EditedMacro macro(kHi);
        QCOMPARE(macro.offered(), QList<int>());
        macro.selectStep(0);
        QCOMPARE(macro.offered(),
            QList<int>({kMoveStepDownItem, kCutStepItem, kCopyStepItem, kDuplicateStepItem}));
        clipboard().setText("press X");
        macro.selectStep(3);
        QCOMPARE(macro.offered(),
            QList<int>({kMoveStepUpItem, kCutStepItem, kCopyStepItem, kPasteStepsItem, kDuplicateStepItem}));
        macro.find<KyvarQuorviTableView>("quorviTableMacros")->deselectAll();
        QCOMPARE(macro.offered(), QList<int>());
    }

    void aFullMacroDuplicatesNothing() {
        EditedMacro macro(sixteenSteps(), 2);
        QVERIFY(!macro.offered().contains(kDuplicateStepItem));
    }

    void theMenuDoesTheSameAndShowsTheKeys() {
        EditedMacro macro(kCtrlC, 1);
        macro.chooseForSteps(kCopyStepItem);
        QCOMPARE(clipboard().text(), QStringLiteral("press C, 60 ms, release C, 70 ms"));
        macro.chooseForSteps(kMoveStepUpItem);
        QCOMPARE(macro.selectedStep(), 0);
        macro.chooseForSteps(kMoveStepDownItem);
        QCOMPARE(macro.savedSteps(), kCtrlC);
        macro.chooseForSteps(kDuplicateStepItem);
        macro.chooseForSteps(kCutStepItem);
        QCOMPARE(macro.savedSteps(), kCtrlC);
        macro.selectStep(0);
        macro.chooseForSteps(kPasteStepsItem);
        QCOMPARE(macro.savedSteps().size(), 6);
        const auto keyOf = [menu = macro.find<QMenu>("quorviMenuStepGear")](
                               int tag) { return itemWithTag(*menu, tag)->shortcut().toString(); };
        QCOMPARE(QStringList({keyOf(kMoveStepUpItem), keyOf(kMoveStepDownItem), keyOf(kCutStepItem),
                     keyOf(kCopyStepItem), keyOf(kPasteStepsItem), keyOf(kDuplicateStepItem)}),
            QStringList({"Alt+Up", "Alt+Down", "Ctrl+X", "Ctrl+C", "Ctrl+V", "Ctrl+D"}));
        QVERIFY(keyOf(kRemoveStepItem).isEmpty());
    }

    void severalStepsMoveTogether() {
        EditedMacro macro({"1 11 10", "0 11 20", "1 12 30", "0 12 40", "1 13 50", "0 13 0"}, 2);
        macro.press(Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(macro.selectedSteps(), std::vector({2, 3}));
        macro.moveUp();
        QCOMPARE(macro.savedSteps(),
            QStringList({"1 11 10", "1 12 30", "0 12 40", "0 11 20", "1 13 50", "0 13 0"}));
        QCOMPARE(macro.selectedSteps(), std::vector({1, 2}));
        QCOMPARE(macro.lastAction(), QStringLiteral("Move Steps"));
        macro.moveUp();
        QCOMPARE(macro.selectedSteps(), std::vector({0, 1}));
        macro.moveUp();
        QCOMPARE(macro.selectedSteps(), std::vector({0, 1}));
        macro.undo();
        macro.undo();
        QCOMPARE(macro.lastAction(), QString());
        QCOMPARE(macro.savedSteps().at(2), QStringLiteral("1 12 30"));
    }

    void severalStepsAreCutPastedDuplicatedAndRemovedWithTheirOtherHalves() {
        EditedMacro macro({"1 11 10", "0 11 20", "1 12 30", "0 12 40", "1 13 50", "0 13 0"});
        macro.selectSteps({0, 4});
        macro.cut();
        QCOMPARE(clipboard().text(),
            QStringLiteral("press H, 10 ms, release H, 20 ms, press J, 50 ms, release J"));
        QCOMPARE(macro.savedSteps(), QStringList({"1 12 30", "0 12 40"}));
        QCOMPARE(macro.lastAction(), QStringLiteral("Cut Steps"));
        macro.selectSteps({0, 1});
        macro.paste();
        const QStringList after{"1 12 30", "0 12 40", "1 11 10", "0 11 20", "1 13 50", "0 13 0"};
        QCOMPARE(macro.savedSteps(), after);
        macro.selectSteps({0, 1, 2});
        macro.duplicate();
        QCOMPARE(macro.savedSteps(), after.mid(0, 4) + after.mid(0, 4) + after.mid(4));
        QCOMPARE(macro.selectedSteps(), std::vector({4, 5, 6, 7}));
        QCOMPARE(macro.lastAction(), QStringLiteral("Duplicate Steps"));
        macro.selectSteps({0, 3});
        macro.remove();
        QCOMPARE(macro.steps(), after.mid(0, 4) + after.mid(4));
        QCOMPARE(macro.lastAction(), QStringLiteral("Remove Steps"));
        QCOMPARE(macro.selectedSteps(), std::vector({0}));
        macro.undo();
        QCOMPARE(macro.steps().size(), 10);
    }

    void oneStepIsRemovedAlone() {
        EditedMacro macro(kHi, 0);
        macro.remove();
        QCOMPARE(macro.steps(), kHi.mid(1));
        QCOMPARE(macro.lastAction(), QStringLiteral("Remove Step"));
    }

    void aDelayIsGivenToAllSelectedSteps() {
        EditedMacro macro({"1 11 10", "0 11 20", "1 12 30", "0 12 0"});
        auto* table = macro.find<KyvarQuorviTableView>(kStepsTable);
        table->selectRows({0, 2}, 0);
        macro.press(Qt::Key_7, Qt::NoModifier);
        QLineEdit* field = cellEditor(macro, kStepsTable);
        QVERIFY(field);
        QTest::keyClicks(field, "5");
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_VERIFY(!table->isEditing());
        QCOMPARE(macro.steps(), QStringList({"1 11 75", "0 11 20", "1 12 75", "0 12 0"}));
        QCOMPARE(macro.shownDelays(), QStringList({"75 ms", "20 ms", "75 ms", "None"}));
        QCOMPARE(macro.lastAction(), QStringLiteral("Change Delays"));
        QCOMPARE(macro.selectedSteps(), std::vector({0, 2}));
        table->model()->setData(table->model()->index(1, 1), 6, Qt::EditRole);
        QCOMPARE(macro.steps(), QStringList({"1 11 75", "0 11 100", "1 12 75", "0 12 0"}));
    }

    void theMenuSaysWhetherThereAreSeveral() {
        EditedMacro macro(kHi, 0);
        QCOMPARE(macro.titleOf(kCutStepItem), QStringLiteral("Cut Step"));
        QCOMPARE(macro.titleOf(kRemoveStepItem), QStringLiteral("Remove Step"));
        macro.selectSteps({0, 1});
        QCOMPARE(macro.titleOf(kCutStepItem), QStringLiteral("Cut Steps"));
        QCOMPARE(macro.titleOf(kMoveStepDownItem), QStringLiteral("Move Steps Down"));
        QCOMPARE(macro.titleOf(kRemoveStepItem), QStringLiteral("Remove Steps"));
    }

    void theKeysAreTheListsAlone() {
        EditedMacro macro(kHi, 0);
        macro.find<QPushButton>("quorviButtonStepRecord")->setFocus();
        macro.cut();
        macro.duplicate();
        macro.find<KyvarQuorviTableView>("quorviTableMacros")->setFocus();
        macro.moveDown();
        QCOMPARE(macro.steps(), kHi);
    }

    void whileRecordingTheKeysBelongToTheRecording() {
        constexpr quint32 kControl = 37;
        constexpr quint32 kControlSymbol = 0xFFE3;
        constexpr quint32 kControlState = 4;
        EditedMacro macro(kHi, 1);
        clipboard().setText("press X");
        macro.record();
        macro.find<KyvarQuorviTableView>(kStepsTable)->setFocus();
        macro.MacroFixture::press(kControl, kControlSymbol);
        for (const quint32 scanCode : {scancodes::x, quint32{54}, quint32{55}, quint32{40}}) {
            macro.MacroFixture::press(scanCode, 0, kControlState);
            macro.release(scanCode, 0, kControlState);
        }
        QCoreApplication::processEvents();
        QCOMPARE(
            macro.shownSteps().mid(4), QStringList({"Press Ctrl", "Press x", "Release x", "Press c",
                                           "Release c", "Press v", "Release v", "Press d", "Release d"}));
        QCOMPARE(clipboard().text(), QStringLiteral("press X"));
        QCOMPARE(macro.offered(), QList<int>());
        // Nor by an assistive program, whose menu may be from before.
        for (int tag = kMoveStepUpItem; tag <= kDuplicateStepItem; ++tag)
            macro.pane->actionMenuTableContext(itemWithTag(*macro.find<QMenu>("quorviMenuStepGear"), tag));
        QCOMPARE(macro.steps().size(), 13);
        QCOMPARE(clipboard().text(), QStringLiteral("press X"));
    }
};

QUORVI_PANE_TEST_MAIN(StepEditsTest)
#include "StepEditsTest.moc"
