// Delays that are dragged in the drawing of the current macro, in the real panel.

#include "pane/PaneTestMain.h"
#include "pane/TimelineFixture.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr int kLongest = 0xFFFFFF; // milliseconds, as typed delays have it

} // namespace

class TimelineDragTest : public QObject {
    Q_OBJECT

  private slots:
    void aDragOfABarsEndChangesTheDelayBeforeItAsOneAction() {
        const TimelineFixture fixture;
        fixture.drag(2, 300, Qt::ShiftModifier);
        const int shown = fixture.timeline->draggedDelay().value();
        QVERIFY(shown > 100);
        QCOMPARE(fixture.steps(), kCtrlC); // nothing comes of it before the end
        fixture.release();
        QCOMPARE(fixture.steps(), QStringList({"1 224 70", stepAsText(1, 6, shown), "0 6 30", "0 224 0"}));
        QCOMPARE(fixture.savedSteps(), fixture.steps());
        QCOMPARE(fixture.lastAction(), QStringLiteral("Undo Change Delay"));
    }

    void undoTakesADragBackByteForByte() {
        const TimelineFixture fixture;
        fixture.selectStep(0);
        fixture.press(Qt::Key_D, Qt::ControlModifier); // so that the file has been written by the panel
        const std::string before = fixture.savedBytes();
        const std::string tree = fixture.bytes();
        fixture.drag(2, 80);
        fixture.release();
        QVERIFY(fixture.savedBytes() != before);
        fixture.click("quorviButtonUndo");
        QCOMPARE(fixture.savedBytes(), before);
        QCOMPARE(fixture.bytes(), tree);
    }

    void theEdgeFollowsThePointer() {
        const TimelineFixture fixture;
        const int from = fixture.timeline->edgeOf(2).x();
        fixture.drag(2, 60, Qt::ShiftModifier);
        QVERIFY(qAbs(fixture.timeline->edgeOf(2).x() - from - 60) <= 1);
        fixture.release();
    }

    void aDragSnapsAtTheDelaysOfTheMenu() {
        const TimelineFixture fixture;
        QSet<int> seen;
        const QPoint from = fixture.timeline->edgeOf(2);
        QTest::mousePress(fixture.timeline->viewport(), Qt::LeftButton, {}, from);
        int at100 = 0;
        for (int moved = 3; moved < 300; ++moved) {
            fixture.move(from + QPoint(moved, 0));
            at100 += fixture.timeline->draggedDelay() == 100 ? 1 : 0;
            seen << fixture.timeline->draggedDelay().value();
        }
        fixture.release();
        QVERIFY(at100 >= 7); // one pixel and the reach on both sides of it
        QVERIFY(seen.contains(100) && seen.contains(150) && seen.contains(200));
    }

    void withShiftItDoesNotSnap() {
        const TimelineFixture fixture;
        const QPoint from = fixture.timeline->edgeOf(2);
        QTest::mousePress(fixture.timeline->viewport(), Qt::LeftButton, {}, from);
        QHash<int, int> pixels; // of each delay
        for (int moved = 3; moved < 300; ++moved) {
            fixture.move(from + QPoint(moved, 0), Qt::ShiftModifier);
            ++pixels[fixture.timeline->draggedDelay().value()];
        }
        fixture.release();
        // A millisecond is a pixel or several, by the window's width; none has more of them than its
        // neighbour.
        QVERIFY(pixels[100] <= pixels[99] + 1);
    }

    void shiftCountsWithoutAMoveToo() {
        const TimelineFixture fixture;
        const QPoint from = fixture.timeline->edgeOf(2);
        QTest::mousePress(fixture.timeline->viewport(), Qt::LeftButton, {}, from);
        int moved = 3;
        do
            fixture.move(from + QPoint(++moved, 0));
        while (fixture.timeline->draggedDelay() != 100);
        QTest::keyPress(fixture.timeline, Qt::Key_Shift);
        QVERIFY(fixture.timeline->draggedDelay() != 100);
        QTest::keyRelease(fixture.timeline, Qt::Key_Shift);
        QCOMPARE(fixture.timeline->draggedDelay().value(), 100);
        fixture.release();
        QCOMPARE(fixture.steps().at(1), stepAsText(1, 6, 100));
    }

    void escapeTakesADragBack() {
        const TimelineFixture fixture;
        fixture.drag(2, 80);
        QVERIFY(fixture.timeline->draggedDelay());
        QTest::keyClick(fixture.timeline, Qt::Key_Escape);
        QVERIFY(!fixture.timeline->draggedDelay());
        fixture.release();
        QCOMPARE(fixture.steps(), kCtrlC);
        QVERIFY(!fixture.isEnabled("quorviButtonUndo"));
    }

    void aDragThatEndsWhereItBeganIsNoAction() {
        const TimelineFixture fixture;
        fixture.drag(2, 40);
        fixture.move(fixture.timeline->edgeOf(1)); // and back: to nothing before, to the old delay here
        fixture.drag(2, 0);
        QTest::keyClick(fixture.timeline, Qt::Key_Escape);
        QCOMPARE(fixture.steps(), kCtrlC);
        const QPoint from = fixture.timeline->edgeOf(2);
        QTest::mousePress(fixture.timeline->viewport(), Qt::LeftButton, {}, from);
        fixture.move(from + QPoint(40, 0));
        fixture.move(from);
        fixture.release();
        QCOMPARE(fixture.steps(), kCtrlC);
        QVERIFY(!fixture.isEnabled("quorviButtonUndo"));
    }

    void aDragBeyondTheStepLeavesNoDelayAndNeverLessThanNone() {
        const TimelineFixture fixture;
        fixture.drag(2, -2000);
        QCOMPARE(fixture.timeline->draggedDelay().value(), 0);
        fixture.release();
        QCOMPARE(fixture.steps().at(1), stepAsText(1, 6, 0));
    }

    void aDragFarOutEndsAtTheLongestDelayThatCanBeTyped() {
        const TimelineFixture fixture;
        fixture.drag(2, 20000);
        QCOMPARE(fixture.timeline->draggedDelay().value(), kLongest);
        fixture.release();
        QCOMPARE(fixture.steps().at(1), stepAsText(1, 6, kLongest));
    }

    void theEndOfADelayIsDraggedInTheFootToo() {
        const TimelineFixture fixture({"1 22 50", "0 22 100"});
        fixture.drag(2, -20);
        fixture.release();
        QCOMPARE(fixture.steps().at(0), stepAsText(1, 22, 50));
        QVERIFY(fixture.steps().at(1) != stepAsText(0, 22, 100));
    }

    void theFirstStepHasNothingBeforeItToBeDragged() {
        const TimelineFixture fixture;
        fixture.drag(0, 60);
        QVERIFY(!fixture.timeline->draggedDelay());
        fixture.release();
        QCOMPARE(fixture.steps(), kCtrlC);
    }

    void whatBecomesOfTheMacroMeanwhileEndsADrag() {
        const TimelineFixture fixture;
        fixture.drag(2, 60);
        fixture.pane->setDelayForAllSteps(10);
        QVERIFY(!fixture.timeline->draggedDelay());
        fixture.release();
        QCOMPARE(fixture.steps(), QStringList({"1 224 10", "1 6 10", "0 6 10", "0 224 0"}));
    }

    void anotherTabEndsADrag() {
        const TimelineFixture fixture;
        fixture.drag(2, 60);
        fixture.selectTab(0);
        fixture.selectTab(3);
        QVERIFY(!fixture.timeline->draggedDelay());
        QCOMPARE(fixture.steps(), kCtrlC);
    }
};

QUORVI_PANE_TEST_MAIN(TimelineDragTest)
#include "TimelineDragTest.moc"
