// What is probably not meant in a macro: marked in the list of steps, said below it, and put right by a
// click.

#include <QAccessible>
#include <QPushButton>

#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"
#include "widgets/FaultLine.h"
#include "widgets/MarkedCells.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kMend = "quorviButtonMend";
const QString kControlStays = QStringLiteral("Step 1 presses Ctrl, but nothing releases it.");

/// The text that stands below the list; empty when none does.
QString said(const PaneFixture& fixture) {
    return fixture.find<FaultLine>("viewStepFault")->text();
}

QString titleOfMending(const PaneFixture& fixture) {
    return fixture.find<QPushButton>(kMend)->text();
}

/// The rows that bear a mark.
QList<int> marked(const PaneFixture& fixture) {
    const auto* model = fixture.find<QTableView>(kStepsTable)->model();
    QList<int> rows;
    for (int row = 0; row < model->rowCount(); ++row)
        if (model->index(row, 0).data(MarkedCells::markRole).toBool())
            rows << row;
    return rows;
}

QString undoOf(const PaneFixture& fixture) {
    return fixture.find<QWidget>("quorviButtonUndo")->toolTip().section(" (Ctrl", 0, 0);
}

/// The steps of a macro that is full, with Ctrl down at its end.
QStringList fullWithControlDown() {
    QStringList steps{"1 224 10"};
    for (int number = 0; number < 7; ++number)
        steps << "1 5 10"
              << "0 5 10";
    return steps << "1 4 0";
}

} // namespace

class StepFaultsTest : public QObject {
    Q_OBJECT

  private slots:
    void aMacroWithoutFaultsHasNoMarksAndNoLine() {
        MacroFixture fixture({"1 4 20", "0 4 0"});
        QVERIFY(marked(fixture).isEmpty());
        QVERIFY(!fixture.find<QWidget>("viewStepFault")->isVisible());
    }

    void eachStepWithAFaultIsMarkedAndSaysWhy() {
        MacroFixture fixture({"1 224 10", "1 4 10", "0 4 10", "0 5 30"});
        QCOMPARE(marked(fixture), QList<int>({0, 3}));
        const auto* model = fixture.find<QTableView>(kStepsTable)->model();
        QCOMPARE(model->index(0, 0).data(Qt::ToolTipRole).toString(), kControlStays);
        QCOMPARE(model->index(3, 0).data(Qt::ToolTipRole).toString(),
            QStringLiteral("Step 4 releases b, but nothing has pressed it. "
                           "Step 4 is the last one, so nothing waits for its delay."));
        QVERIFY(!model->index(1, 0).data(Qt::ToolTipRole).isValid());
    }

    void aScreenReaderReadsWhyARowIsMarked() {
        MacroFixture fixture({"1 224 10"});
        QAccessibleInterface* table =
            QAccessible::queryAccessibleInterface(fixture.find<QWidget>(kStepsTable));
        QCOMPARE(
            table->tableInterface()->cellAt(0, 0)->text(QAccessible::Description).left(kControlStays.size()),
            kControlStays);
        QCOMPARE(fixture.find<QWidget>(kMend)->accessibleDescription(), said(fixture));
    }

    void theLineSaysTheFirstFaultAndHowManyThereAre() {
        MacroFixture fixture({"1 224 10", "0 5 10", "128 0 30"});
        QCOMPARE(said(fixture), kControlStays + " And 3 more.");
        QCOMPARE(titleOfMending(fixture), QStringLiteral("Add the Missing Release"));
    }

    void theLineSaysTheFaultOfTheSelectedStep() {
        MacroFixture fixture({"1 224 10", "0 5 10", "128 0 0"});
        fixture.selectStep(1);
        QCOMPARE(said(fixture), QStringLiteral("Step 2 releases b, but nothing has pressed it. And 2 more."));
        QCOMPARE(titleOfMending(fixture), QStringLiteral("Remove the Release"));
        fixture.selectStep(2);
        QCOMPARE(said(fixture),
            QStringLiteral("Step 3 releases a mouse button, but none is pressed. And 2 more."));
        QCOMPARE(marked(fixture), QList<int>({0, 1, 2}));
    }

    void eachFaultIsMendedByAClickAndUndone_data() {
        QTest::addColumn<QStringList>("steps");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QStringList>("mended");
        QTest::addColumn<int>("row");
        QTest::newRow("a key stays down")
            << QStringList{"1 224 10", "1 4 10", "0 4 0"} << "Add the Missing Release"
            << QStringList{"1 224 10", "1 4 10", "0 4 0", "0 224 0"} << 3;
        QTest::newRow("a button stays down") << QStringList{"130 0 10"} << "Add the Missing Release"
                                             << QStringList{"130 0 10", "128 0 0"} << 1;
        QTest::newRow("a key stays down in a full macro")
            << fullWithControlDown() << "Remove the Press" << QStringList(fullWithControlDown().mid(1)) << 0;
        QTest::newRow("a key was never pressed")
            << QStringList{"0 4 10", "1 5 10", "0 5 0"} << "Remove the Release"
            << QStringList{"1 5 10", "0 5 0"} << 0;
        QTest::newRow("a delay at the end")
            << QStringList{"1 4 10", "0 4 30"} << "Remove the Delay" << QStringList{"1 4 10", "0 4 0"} << 1;
    }
    void eachFaultIsMendedByAClickAndUndone() {
        QFETCH(QStringList, steps);
        QFETCH(QString, title);
        MacroFixture fixture(steps);
        QCOMPARE(titleOfMending(fixture), title);
        fixture.click(kMend);
        QTEST(fixture.steps(), "mended");
        QTEST(fixture.savedSteps(), "mended");
        QTEST(fixture.selectedRow(kStepsTable), "row");
        QCOMPARE(undoOf(fixture), "Undo " + title);
        fixture.click("quorviButtonUndo");
        QCOMPARE(fixture.savedSteps(), steps);
        QVERIFY(!said(fixture).isEmpty());
    }

    void withoutRoomTheLineSaysSo() {
        MacroFixture fixture(fullWithControlDown());
        QCOMPARE(said(fixture), kControlStays + " There is no room for the release. And 1 more.");
    }

    void afterTheLastFaultTheKeysAreTheLists() {
        MacroFixture fixture({"1 4 10"});
        fixture.find<QWidget>(kMend)->setFocus();
        QTest::keyClick(fixture.find<QWidget>(kMend), Qt::Key_Space); // the release
        QCOMPARE(fixture.steps(), QStringList({"1 4 10", "0 4 0"}));
        QVERIFY(!fixture.find<QWidget>("viewStepFault")->isVisible());
        QVERIFY(fixture.find<QWidget>(kStepsTable)->hasFocus());
    }

    void theLineFollowsAChangeOfTheListAlone() {
        MacroFixture fixture({"1 4 10", "0 4 0"});
        auto* model = fixture.find<QTableView>(kStepsTable)->model();
        QVERIFY(model->setData(model->index(1, 1), 5)); // 50 ms, as its menu does
        QCOMPARE(said(fixture), QStringLiteral("Step 2 is the last one, so nothing waits for its delay."));
        QCOMPARE(marked(fixture), QList<int>({1}));
        fixture.chooseForSteps(36); // no delays at all
        QCOMPARE(said(fixture), QString());
        QVERIFY(marked(fixture).isEmpty());
    }

    void theSelectedStepStaysInViewWhenTheLineComes() {
        QStringList steps;
        for (int number = 0; number < 8; ++number)
            steps << "1 4 10" << stepAsText(0, 4, number == 7 ? 0 : 10);
        MacroFixture fixture(steps);
        fixture.window->resize(900, 640);
        QCoreApplication::processEvents();
        fixture.selectStep(15);
        auto* table = fixture.find<KyvarQuorviTableView>(kStepsTable);
        const auto isInView = [&] {
            return table->viewport()->rect().contains(cellOf(fixture, kStepsTable, 15, 0).center());
        };
        table->scrollTo(table->model()->index(15, 0));
        const int height = table->viewport()->height();
        QVERIFY(isInView());
        QVERIFY(table->model()->setData(table->model()->index(15, 1), 5)); // 50 ms
        QTRY_VERIFY(table->viewport()->height() < height);
        QVERIFY(isInView());
    }

    void anEmptyMacroThatAButtonRunsSaysSo() {
        MacroFixture fixture({"1 4 10", "0 4 0"});
        for (const char* input : {"04", "07"}) {
            const auto assignment = plist::Dictionary::create();
            assignment.set("command", 65);
            assignment.set("param1", 0);
            assignment.set("param2", 1);
            fixture.pane->deviceConfig()
                .array("profiles")
                .dictionary(1)
                .dictionary("buttons")
                .set(input, assignment);
        }
        QCOMPARE(said(fixture), QString());
        fixture.chooseForSteps(34); // no steps at all
        QCOMPARE(said(fixture),
            QStringLiteral("Button 4 of “Game” runs this macro, which has no steps yet. And 1 more."));
        QVERIFY(!fixture.find<QWidget>(kMend)->isVisible());
        fixture.selectRow("quorviTableMacros", 1);
        QCOMPARE(said(fixture), QString());
    }

    void nothingIsFoundAndNothingMovesWhileARecordingRuns() {
        MacroFixture fixture({"1 224 10", "0 5 0"});
        QVERIFY(!said(fixture).isEmpty());
        QCoreApplication::processEvents();
        const QRect before = fixture.find<QWidget>(kStepsTable)->geometry();
        fixture.record();
        QCoreApplication::processEvents();
        QCOMPARE(said(fixture), QString());
        QVERIFY(marked(fixture).isEmpty());
        QVERIFY(!fixture.find<QWidget>(kMend)->isVisible());
        fixture.press(scancodes::a);
        fixture.release(scancodes::a);
        QCoreApplication::processEvents();
        QCOMPARE(said(fixture), QString());
        QCOMPARE(fixture.find<QWidget>(kStepsTable)->geometry(), before);
        fixture.record();
        QCOMPARE(marked(fixture), QList<int>({0, 1}));
    }

    void withoutAMouseNothingIsFound() {
        MacroFixture fixture({"1 224 10"});
        fixture.connectDevices(0);
        QCOMPARE(said(fixture), QString());
    }
};

QUORVI_PANE_TEST_MAIN(StepFaultsTest)
#include "StepFaultsTest.moc"
