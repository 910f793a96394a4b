// The drawing of the current macro in time, by mouse and keyboard, in the real panel.

#include <QAccessible>
#include <QCursor>
#include <QScrollBar>

#include "pane/PaneTestMain.h"
#include "pane/TimelineFixture.h"
#include "resources/MenuTags.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

QStringList sixteenKeys() {
    QStringList steps;
    for (int key = 4; key < 20; ++key)
        steps << stepAsText(1, key, 50);
    return steps;
}

} // namespace

class StepsTimelineTest : public QObject {
    Q_OBJECT

  private slots:
    void showsTheStepsOfTheSelectedMacro() {
        const TimelineFixture fixture;
        QVERIFY(fixture.timeline->isVisible());
        QCOMPARE(fixture.timeline->stepCount(), 4);
        QCOMPARE(fixture.timeline->content().laneNames, QStringList({"Ctrl", "c"}));
        const QRect ctrl = fixture.timeline->barOf(0);
        const QRect c = fixture.timeline->barOf(1);
        QVERIFY(c.left() > ctrl.left() && c.right() < ctrl.right());
        QVERIFY(c.top() > ctrl.top());
        fixture.selectRow("quorviTableMacros", 1);
        QCoreApplication::processEvents();
        QVERIFY(fixture.timeline->stepCount() != 4);
    }

    void beginsAtTheHeightOfTheListOfMacros() {
        const TimelineFixture fixture;
        const auto top = [&](const QWidget* part) { return part->mapTo(fixture.window.get(), QPoint()).y(); };
        QTRY_COMPARE(top(fixture.timeline), top(fixture.find<QWidget>("quorviTableMacros")));
    }

    void whatChangesBehindAnotherTabIsShownWhenItAppears() {
        const TimelineFixture fixture;
        fixture.selectTab(0);
        fixture.pane->setDelayForAllSteps(10);
        fixture.selectTab(3);
        QCOMPARE(fixture.timeline->content().timeline.delays, std::vector<std::int32_t>({10, 10, 10, 0}));
    }

    // Selecting

    void aClickOnABarSelectsBothHalvesInTheList() {
        const TimelineFixture fixture;
        fixture.clickAt(fixture.timeline->barOf(1).center());
        QCOMPARE(fixture.selected(), std::vector<int>({1, 2}));
        QCOMPARE(fixture.table->selectedRow(), 1);
        QCOMPARE(fixture.timeline->selectedSteps(), std::vector<int>({1, 2}));
        QCOMPARE(fixture.steps(), kCtrlC);
    }

    void withControlFurtherStepsAreSelectedAndTakenAgain() {
        const TimelineFixture fixture({"1 4 50", "0 4 50", "1 5 50", "0 5 50"});
        fixture.clickAt(fixture.timeline->barOf(0).center());
        fixture.clickAt(fixture.timeline->barOf(2).center(), Qt::ControlModifier);
        QCOMPARE(fixture.selected(), std::vector<int>({0, 1, 2, 3}));
        QCOMPARE(fixture.table->selectedRow(), 2);
        fixture.clickAt(fixture.timeline->barOf(0).center(), Qt::ControlModifier);
        QCOMPARE(fixture.selected(), std::vector<int>({2, 3}));
        fixture.clickAt(fixture.timeline->barOf(2).center(), Qt::ControlModifier);
        QCOMPARE(fixture.selected(), std::vector<int>({2, 3})); // something stays selected
    }

    void aPressOnAnEdgeWithoutMovementSelectsItsStep() {
        const TimelineFixture fixture;
        fixture.clickAt(fixture.timeline->edgeOf(2));
        QCOMPARE(fixture.selected(), std::vector<int>{2});
        QCOMPARE(fixture.steps(), kCtrlC);
        QVERIFY(!fixture.isEnabled("quorviButtonUndo"));
    }

    void aClickOnADelaySelectsItsStep() {
        const TimelineFixture fixture;
        const QPoint first = fixture.timeline->edgeOf(0);
        const QPoint second = fixture.timeline->edgeOf(1);
        fixture.clickAt({(first.x() + second.x()) / 2, fixture.timeline->edgeOf(4).y()});
        QCOMPARE(fixture.selected(), std::vector<int>{0});
    }

    void selectingInTheListSelectsHere() {
        const TimelineFixture fixture;
        fixture.selectStep(3);
        QCOMPARE(fixture.timeline->selectedSteps(), std::vector<int>{3});
        fixture.table->selectRows({0, 1, 3}, 1);
        QCOMPARE(fixture.timeline->selectedSteps(), std::vector<int>({0, 1, 3}));
        QCOMPARE(fixture.timeline->currentStep(), 1);
        fixture.table->deselectAll();
        QCOMPARE(fixture.timeline->selectedSteps(), std::vector<int>());
    }

    void theSelectedStepIsScrolledIntoView() {
        const TimelineFixture fixture(sixteenKeys());
        QVERIFY(!fixture.timeline->viewport()->rect().contains(fixture.timeline->barOf(15).center()));
        fixture.selectStep(15);
        const QRect lanes = fixture.timeline->viewport()->rect();
        QVERIFY(lanes.top() <= fixture.timeline->barOf(15).top());
        QVERIFY(fixture.timeline->barOf(15).bottom() < fixture.timeline->edgeOf(16).y());
        fixture.selectStep(0);
        QVERIFY(fixture.timeline->barOf(0).top() >= 0);
    }

    // Keys

    void arrowsGoFromStepToStep() {
        const TimelineFixture fixture;
        fixture.timeline->setFocus();
        fixture.press(Qt::Key_Right);
        QCOMPARE(fixture.selected(), std::vector<int>{0});
        fixture.press(Qt::Key_Right);
        fixture.press(Qt::Key_Down);
        QCOMPARE(fixture.selected(), std::vector<int>{2});
        fixture.press(Qt::Key_Left);
        QCOMPARE(fixture.selected(), std::vector<int>{1});
        fixture.press(Qt::Key_End);
        fixture.press(Qt::Key_Right);
        QCOMPARE(fixture.selected(), std::vector<int>{3});
        fixture.press(Qt::Key_Home);
        fixture.press(Qt::Key_Up);
        QCOMPARE(fixture.selected(), std::vector<int>{0});
        QVERIFY(fixture.timeline->hasFocus());
    }

    void mirroredTheArrowsAndTheDragGoTheOtherWay() {
        const TimelineFixture fixture;
        fixture.timeline->setLayoutDirection(Qt::RightToLeft);
        QVERIFY(fixture.timeline->edgeOf(2).x() < fixture.timeline->edgeOf(1).x());
        fixture.timeline->setFocus();
        fixture.press(Qt::Key_Home);
        fixture.press(Qt::Key_Left);
        QCOMPARE(fixture.selected(), std::vector<int>{1});
        fixture.drag(2, -300);
        QVERIFY(fixture.timeline->draggedDelay().value() > 100);
        fixture.release();
    }

    void plusAndMinusGoToTheNextDelayOfTheMenu() {
        const TimelineFixture fixture;
        fixture.timeline->setFocus();
        fixture.press(Qt::Key_Home);
        fixture.press(Qt::Key_Plus, Qt::ShiftModifier);
        QCOMPARE(fixture.savedSteps().at(0), stepAsText(1, 224, 100));
        QCOMPARE(fixture.lastAction(), QStringLiteral("Undo Change Delay"));
        fixture.press(Qt::Key_Minus);
        fixture.press(Qt::Key_Minus);
        QCOMPARE(fixture.savedSteps().at(0), stepAsText(1, 224, 40));
        for (int press = 0; press < 6; ++press)
            fixture.press(Qt::Key_Minus);
        QCOMPARE(fixture.savedSteps().at(0), stepAsText(1, 224, 0));
        QCOMPARE(fixture.selected(), std::vector<int>{0});
        QVERIFY(fixture.timeline->hasFocus());
    }

    void aDigitAndF2TypeTheDelayInTheList() {
        const TimelineFixture fixture;
        fixture.timeline->setFocus();
        fixture.press(Qt::Key_Home);
        fixture.press(Qt::Key_F2);
        QVERIFY(fixture.table->isEditing());
        fixture.table->abortEditing();
        fixture.timeline->setFocus();
        QTest::keyClick(fixture.timeline, '7');
        QVERIFY(fixture.table->isEditing());
        auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        QVERIFY(field);
        QTest::keyClicks(field, "5 ms");
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_COMPARE(fixture.steps().at(0), stepAsText(1, 224, 75));
    }

    void aDoubleClickOnADelayTypesIt() {
        const TimelineFixture fixture;
        const QPoint first = fixture.timeline->edgeOf(0);
        const QPoint second = fixture.timeline->edgeOf(1);
        const QPoint delay((first.x() + second.x()) / 2, fixture.timeline->edgeOf(4).y());
        fixture.clickAt(delay);
        QTest::mouseDClick(fixture.timeline->viewport(), Qt::LeftButton, {}, delay);
        QVERIFY(fixture.table->isEditing());
        QCOMPARE(fixture.selected(), std::vector<int>{0});
        fixture.table->abortEditing();
    }

    void theKeysOfTheListWorkHere() {
        const TimelineFixture fixture;
        fixture.timeline->setFocus();
        fixture.press(Qt::Key_Home);
        fixture.press(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(fixture.steps().size(), 6);
        fixture.press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(fixture.steps(), kCtrlC);
        QVERIFY(fixture.timeline->hasFocus());
    }

    void theMenuOfTheStepsOpensHere() {
        const TimelineFixture fixture;
        fixture.timeline->setFocus();
        fixture.press(Qt::Key_Home);
        fixture.press(Qt::Key_F10, Qt::ShiftModifier);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QCOMPARE(QApplication::activePopupWidget(), fixture.table->menu());
        MacroFixture::closeMenu();
        const QPoint bar = fixture.timeline->barOf(1).center();
        QContextMenuEvent event(
            QContextMenuEvent::Mouse, bar, fixture.timeline->viewport()->mapToGlobal(bar));
        QApplication::sendEvent(fixture.timeline->viewport(), &event);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QCOMPARE(fixture.selected(), std::vector<int>({1, 2}));
        MacroFixture::closeMenu();
    }

    void whatIsChangedInTheListIsShown() {
        const TimelineFixture fixture;
        fixture.selectStep(0);
        fixture.table->setFocus();
        QTest::keyClick(fixture.table, Qt::Key_F2);
        auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        QVERIFY(field);
        QTest::keyClicks(field, "200");
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_COMPARE(fixture.timeline->content().timeline.delays.front(), 200);
        fixture.chooseForSteps(kRemoveAllStepsItem);
        QTRY_COMPARE(fixture.timeline->stepCount(), 0);
    }

    // A recording

    void itGrowsWithARecordingAndCannotBeChangedMeanwhile() {
        const TimelineFixture fixture;
        fixture.record();
        fixture.tap(scancodes::x);
        QCOMPARE(fixture.timeline->stepCount(), 6);
        QCOMPARE(fixture.timeline->content().laneNames.last(), QStringLiteral("x"));
        const QStringList recorded = fixture.steps();
        fixture.drag(2, 60);
        QVERIFY(!fixture.timeline->draggedDelay());
        fixture.release();
        fixture.clickAt(fixture.timeline->barOf(1).center());
        QCOMPARE(fixture.steps(), recorded);
        QCOMPARE(fixture.selected(), std::vector<int>{5});
        QVERIFY(!fixture.timeline->hasFocus());
        fixture.record();
        fixture.drag(2, 60);
        QVERIFY(fixture.timeline->draggedDelay());
        fixture.release();
    }

    void aRecordingThatBeginsEndsADrag() {
        const TimelineFixture fixture;
        fixture.drag(2, 60);
        fixture.pane->actionButtonStepRecord();
        QVERIFY(!fixture.timeline->draggedDelay());
        fixture.release();
        QCOMPARE(fixture.steps(), kCtrlC);
    }

    // What is told

    void thePointerIsToldTheStepsOfABarAndWholeNames() {
        const TimelineFixture fixture;
        QCOMPARE(fixture.tipAt(fixture.timeline->barOf(1).center()),
            QStringLiteral("<span>Step 2 of 4: Press c, after 70 ms, then 50 ms<br>"
                           "Step 3 of 4: Release c, after 50 ms, then 30 ms</span>"));
        QCOMPARE(
            fixture.tipAt({3, fixture.timeline->barOf(0).center().y()}), QStringLiteral("<span>Ctrl</span>"));
        QCOMPARE(fixture.tipAt(fixture.timeline->viewport()->rect().topRight() - QPoint(3, -3)),
            QStringLiteral("<span>%1</span>").arg(fixture.timeline->toolTip()));
    }

    void theEdgeUnderThePointerShowsThatItCanBeDragged() {
        const TimelineFixture fixture;
        fixture.pointAt(fixture.timeline->edgeOf(2));
        QCOMPARE(fixture.timeline->viewport()->cursor().shape(), Qt::SplitHCursor);
        fixture.pointAt(fixture.timeline->barOf(0).center() + QPoint(-1, 0));
        QCOMPARE(fixture.timeline->viewport()->cursor().shape(), Qt::ArrowCursor);
    }

    void screenReadersHearEachStepInWords() {
        const TimelineFixture fixture;
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(fixture.timeline);
        QVERIFY(told);
        QCOMPARE(told->role(), QAccessible::List);
        QCOMPARE(told->text(QAccessible::Name), QStringLiteral("Timeline of the macro"));
        QVERIFY(!told->text(QAccessible::Description).isEmpty());
        QStringList words;
        for (int step = 0; step < told->childCount(); ++step) {
            QCOMPARE(told->child(step)->role(), QAccessible::ListItem);
            QCOMPARE(told->indexOfChild(told->child(step)), step);
            words << told->child(step)->text(QAccessible::Name);
        }
        QCOMPARE(words, QStringList({"Step 1 of 4: Press Ctrl, then 70 ms",
                            "Step 2 of 4: Press c, after 70 ms, then 50 ms",
                            "Step 3 of 4: Release c, after 50 ms, then 30 ms",
                            "Step 4 of 4: Release Ctrl, after 30 ms"}));
        fixture.timeline->setFocus();
        fixture.press(Qt::Key_End);
        QVERIFY(told->child(3)->state().selected && told->child(3)->state().focused);
        QVERIFY(!told->child(1)->state().selected);
        QCOMPARE(told->focusChild(), told->child(3));
        QVERIFY(told->child(1)->rect().width() > 3);
        QCOMPARE(told->childAt(told->child(1)->rect().center().x(), told->child(1)->rect().center().y()),
            told->child(1));
    }

    void assistiveProgramsSelectAndChangeDelays() {
        const TimelineFixture fixture;
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(fixture.timeline);
        told->child(1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(fixture.selected(), std::vector<int>{1});
        told->child(1)->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
        QCOMPARE(fixture.savedSteps().at(1), stepAsText(1, 6, 100));
        QCOMPARE(told->child(1)->text(QAccessible::Name),
            QStringLiteral("Step 2 of 4: Press c, after 70 ms, then 100 ms"));
        fixture.record();
        told->child(1)->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
        told->child(2)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(fixture.selected(), std::vector<int>{1});
        QCOMPARE(fixture.steps().at(1), stepAsText(1, 6, 100));
        QVERIFY(told->child(1)->state().disabled);
    }

    void whatAssistiveProgramsHoldOfRemovedStepsIsNotValidAnyMore() {
        const TimelineFixture fixture;
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(fixture.timeline);
        QVERIFY(told->child(3));
        fixture.chooseForSteps(kRemoveAllStepsItem);
        QTRY_COMPARE(told->childCount(), 0);
        QVERIFY(!told->child(3));
    }

    // The play head

    void thePlayHeadIsWhereTheTimeIs() {
        using std::chrono::milliseconds;
        const TimelineFixture fixture;
        QVERIFY(!fixture.timeline->playHead());
        fixture.timeline->setPlayedTime(milliseconds(0));
        const qreal start = fixture.timeline->playHead().value();
        fixture.timeline->setPlayedTime(milliseconds(100));
        const qreal later = fixture.timeline->playHead().value();
        QVERIFY(start < later);
        QVERIFY(later > fixture.timeline->edgeOf(1).x() && later < fixture.timeline->edgeOf(2).x());
        fixture.timeline->setPlayedTime(milliseconds(150));
        QVERIFY(fixture.timeline->playHead().value() >= fixture.timeline->edgeOf(3).x() - 0.5);
        fixture.timeline->setPlayedTime(std::nullopt);
        QVERIFY(!fixture.timeline->playHead());
    }

    // Files of others

    void anyStepsAreDrawn_data() {
        QTest::addColumn<QStringList>("steps");
        QStringList many;
        for (int step = 0; step < 300; ++step)
            many << stepAsText(step % 2, 4 + step % 40, step * 1000);
        QTest::newRow("none") << QStringList();
        QTest::newRow("one") << QStringList{"1 22 0"};
        QTest::newRow("a release alone") << QStringList{"0 22 0"};
        QTest::newRow("unknown") << QStringList{"77 1 -5", "9999 300 2147483647", "-1 -1 -2147483648"};
        QTest::newRow("many") << many;
    }
    void anyStepsAreDrawn() {
        QFETCH(QStringList, steps);
        const TimelineFixture fixture(steps);
        QCOMPARE(fixture.timeline->stepCount(), int(steps.size()));
        QVERIFY(!fixture.timeline->grab().isNull());
        fixture.timeline->setFocus();
        for (const Qt::Key key : {Qt::Key_End, Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Home})
            fixture.press(key);
        fixture.drag(qMax(0, int(steps.size()) - 1), 50);
        fixture.release();
        QVERIFY(!fixture.timeline->grab().isNull());
    }
};

QUORVI_PANE_TEST_MAIN(StepsTimelineTest)
#include "StepsTimelineTest.moc"
