// Recording keys and mouse buttons through the window.

#include <QMouseEvent>

#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr quint32 kShiftSymbol = 0xffe1;
constexpr quint32 kCapsLockSymbol = 0xffe5;
constexpr quint32 kShiftState = 0x1;
constexpr quint32 kControl = 37;
constexpr quint32 kControlSymbol = 0xffe3;
constexpr quint32 kControlState = 0x4;
constexpr quint32 kLockState = 0x2;

const QStringList kFourSteps{"1 4 300", "0 4 500", "1 5 20", "0 5 0"};

} // namespace

class RecordingTest : public QObject {
    Q_OBJECT

  private slots:
    void keysBecomeStepsWithTheirNamesAndDelays() {
        MacroFixture fixture;
        fixture.record();
        for (const quint32 key : {scancodes::a, scancodes::b}) {
            fixture.press(key);
            fixture.wait(120);
            fixture.release(key);
            fixture.wait(120);
        }
        QCOMPARE(fixture.steps(), QStringList({"1 4 150", "0 4 150", "1 5 150", "0 5 0"}));
        QCOMPARE(fixture.shownSteps(), QStringList({"Press a", "Release a", "Press b", "Release b"}));
        QCOMPARE(fixture.shownDelays(), QStringList({"150 ms", "150 ms", "150 ms", "None"}));
        QCOMPARE(fixture.selectedRow(kStepsTable), 3);
    }

    void delaysAreRoundedUpToTheMillisecond_data() {
        QTest::addColumn<int>("interval");
        QTest::addColumn<int>("delay");
        for (const auto& [interval, delay] :
            {std::pair(9, 10), {49, 50}, {50, 100}, {51, 100}, {4999, 5000}, {5000, 5000}, {60000, 5000}})
            QTest::addRow("%d", interval) << interval << delay;
    }
    void delaysAreRoundedUpToTheMillisecond() {
        QFETCH(int, interval);
        QFETCH(int, delay);
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::a);
        fixture.wait(interval);
        fixture.release(scancodes::a);
        QCOMPARE(fixture.steps(), QStringList({stepAsText(1, 4, delay), "0 4 0"}));
    }

    void aRecordingGoesOnWhereTheMacroEnds() {
        MacroFixture fixture({"1 4 20", "0 4 0"});
        fixture.click("quorviButtonStepAdd");
        fixture.wait(4000);
        fixture.press(scancodes::b);
        QCOMPARE(fixture.steps(), QStringList({"1 4 20", "0 4 100", "1 5 0"}));
    }

    void aModifierAroundAKeyIsRecordedAroundIt() {
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::shift, kShiftSymbol);
        fixture.press(scancodes::a, 0x41, kShiftState);
        fixture.release(scancodes::a, 0x41, kShiftState);
        fixture.release(scancodes::shift, kShiftSymbol, kShiftState);
        QCOMPARE(fixture.shownSteps(), QStringList({"Press Shift", "Press a", "Release a", "Release Shift"}));
    }

    void capsLockIsAPressAndAReleaseWhicheverWayItTurns() {
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::capsLock, kCapsLockSymbol);
        fixture.release(scancodes::capsLock, kCapsLockSymbol, kLockState);
        QCOMPARE(fixture.shownSteps(), QStringList({"Press Caps Lock", "Release Caps Lock"}));
        fixture.press(scancodes::capsLock, kCapsLockSymbol, kLockState);
        fixture.release(scancodes::capsLock, kCapsLockSymbol, kLockState);
        QCOMPARE(fixture.steps().size(), 4);
        QCOMPARE(fixture.shownSteps().mid(2), QStringList({"Press Caps Lock", "Release Caps Lock"}));
    }

    void aKeyHeldFromBeforeIsNoPartOfTheRecording() {
        MacroFixture fixture;
        fixture.press(scancodes::enter);
        fixture.record();
        QVERIFY(fixture.send(QEvent::KeyRelease, scancodes::enter));
        QCOMPARE(fixture.steps(), QStringList());
    }

    void aRepetitionIsNotRecorded() {
        MacroFixture fixture;
        fixture.record();
        fixture.press(scancodes::a);
        QVERIFY(fixture.send(QEvent::KeyRelease, scancodes::a, 0, 0, true));
        QVERIFY(fixture.send(QEvent::KeyPress, scancodes::a, 0, 0, true));
        fixture.release(scancodes::a);
        QCOMPARE(fixture.steps(), QStringList({"1 4 10", "0 4 0"}));
    }

    void everyMouseButtonIsRecordedWithItsNumber() {
        MacroFixture fixture;
        fixture.record();
        for (const Qt::MouseButton button :
            {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::BackButton, Qt::ForwardButton}) {
            fixture.clickSteps(button);
            fixture.wait(30);
        }
        QCOMPARE(fixture.steps(), QStringList({"129 0 10", "128 0 40", "130 0 10", "128 0 40", "132 0 10",
                                      "128 0 40", "136 0 10", "128 0 40", "144 0 10", "128 0 0"}));
        QCOMPARE(fixture.shownSteps().at(8), QStringLiteral("Press button 5"));
        QVERIFY(!QApplication::activePopupWidget());
    }

    void aButtonThatMacrosDoNotKnowIsTheTablesOwn() {
        MacroFixture fixture(kFourSteps);
        fixture.record();
        QTest::mousePress(fixture.find<KyvarQuorviTableView>(kStepsTable)->viewport(), Qt::ExtraButton3, {},
            QPoint(20, 10));
        QCOMPARE(fixture.steps(), kFourSteps);
    }

    void buttonsAreRecordedInAllFourTables_data() {
        QTest::addColumn<QString>("table");
        for (const char* table :
            {"quorviTableProfiles", "quorviTableMacros", "quorviTableSteps", "quorviStageTableStages"})
            QTest::addRow("%s", table) << QString::fromLatin1(table);
    }
    void buttonsAreRecordedInAllFourTables() {
        QFETCH(QString, table);
        MacroFixture fixture;
        fixture.record();
        auto* view = fixture.find<KyvarQuorviTableView>(qPrintable(table));
        const int selected = view->selectedRow();
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, QPointF(10, 40), QPointF(view->viewport()->mapToGlobal(QPoint(10, 40))),
                Qt::LeftButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(view->viewport(), &event);
        }
        QCOMPARE(fixture.shownSteps(), QStringList({"Press button 1", "Release button"}));
        if (view->tag() != 3)
            QCOMPARE(view->selectedRow(), selected);
    }

    void aDoubleClickIsTwoClicks() {
        MacroFixture fixture;
        fixture.record();
        fixture.clickSteps(Qt::LeftButton);
        auto* viewport = fixture.find<KyvarQuorviTableView>(kStepsTable)->viewport();
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, QPoint(20, 60));
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, QPoint(20, 60));
        QVERIFY(fixture.shownSteps().startsWith(QStringLiteral("Press button 1")));
        QCOMPARE(fixture.shownSteps().mid(0, 4),
            QStringList({"Press button 1", "Release button", "Press button 1", "Release button"}));
    }

    void aClickThatSlipsChoosesNoRow() {
        MacroFixture fixture(kFourSteps);
        fixture.record();
        auto* viewport = fixture.find<KyvarQuorviTableView>(kStepsTable)->viewport();
        const QPoint first = cellOf(fixture, kStepsTable, 0, 0).center();
        const QPoint second = cellOf(fixture, kStepsTable, 1, 0).center();
        QTest::mousePress(viewport, Qt::LeftButton, {}, first);
        QCOMPARE(fixture.selectedRow(kStepsTable), 4);
        QMouseEvent move(QEvent::MouseMove, second, QPointF(viewport->mapToGlobal(second)), Qt::NoButton,
            Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport, &move);
        QCOMPARE(fixture.selectedRow(kStepsTable), 4);
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, second);
        QCOMPARE(fixture.selectedRow(kStepsTable), 5);
    }

    void aStepIsRecordedAgainTogetherWithItsPartner() {
        MacroFixture fixture(kFourSteps);
        fixture.selectStep(0);
        fixture.chooseForSteps(32);
        QVERIFY(fixture.pane->isRecordingMacro());
        fixture.press(scancodes::x);
        QVERIFY(!fixture.pane->isRecordingMacro());
        fixture.release(scancodes::x);
        QCOMPARE(fixture.steps(), QStringList({"1 27 300", "0 27 500", "1 5 20", "0 5 0"}));
        QCOMPARE(fixture.selectedRow(kStepsTable), 0);
        QCOMPARE(fixture.savedSteps(), fixture.steps());
        QVERIFY(fixture.commandsBecome({"KyDM 1", "KyDM 0", "KyPR 0"}));
    }

    void aPressOverAReleaseBecomesTheRelease() {
        MacroFixture fixture(kFourSteps);
        fixture.selectStep(3);
        fixture.chooseForSteps(32);
        fixture.press(scancodes::x);
        QCOMPARE(fixture.steps(), QStringList({"1 4 300", "0 4 500", "1 27 20", "0 27 0"}));
    }

    void ofAClickOverAStepOnlyThePressIsRecorded() {
        MacroFixture fixture(kFourSteps);
        fixture.selectStep(2);
        fixture.chooseForSteps(32);
        fixture.clickSteps(Qt::RightButton);
        QCOMPARE(fixture.steps(), QStringList({"1 4 300", "0 4 500", "130 0 20", "128 0 0"}));
        QVERIFY(!fixture.pane->isRecordingMacro());
        QVERIFY(!QApplication::activePopupWidget());
    }

    void aModifierFromBeforeThatIsLetGoIsNoStepOfARunForOneStep() {
        MacroFixture fixture(kFourSteps);
        fixture.selectStep(0);
        fixture.press(scancodes::shift, kShiftSymbol);
        fixture.chooseForSteps(32);
        QVERIFY(fixture.send(QEvent::KeyRelease, scancodes::shift, kShiftSymbol, kShiftState));
        QVERIFY(fixture.pane->isRecordingMacro());
        QCOMPARE(fixture.steps(), kFourSteps);
        QCOMPARE(fixture.selectedRow(kStepsTable), 0);
        fixture.press(scancodes::x);
        QVERIFY(!fixture.pane->isRecordingMacro());
        QCOMPARE(fixture.steps(), QStringList({"1 27 300", "0 27 500", "1 5 20", "0 5 0"}));
        QVERIFY(fixture.commandsBecome({"KyDM 1", "KyDM 0", "KyPR 0"}));
    }

    void ofTwoModifiersFromBeforeNeitherIsAStepOfARunForOneStep() {
        MacroFixture fixture(kFourSteps);
        fixture.selectStep(0);
        fixture.press(scancodes::shift, kShiftSymbol);
        fixture.press(kControl, kControlSymbol, kShiftState);
        fixture.chooseForSteps(32);
        fixture.release(scancodes::shift, kShiftSymbol, kShiftState | kControlState);
        fixture.release(kControl, kControlSymbol, kControlState);
        QVERIFY(fixture.pane->isRecordingMacro());
        QCOMPARE(fixture.steps(), kFourSteps);
        fixture.press(scancodes::shift, kShiftSymbol);
        QVERIFY(!fixture.pane->isRecordingMacro());
        QCOMPARE(fixture.steps().mid(0, 2), QStringList({"1 225 300", "0 225 500"}));
    }

    void aModifierFromBeforeThatIsLetGoDoesNotEndALongerRun() {
        MacroFixture fixture(kFourSteps);
        fixture.selectStep(0);
        fixture.press(scancodes::shift, kShiftSymbol);
        fixture.record();
        fixture.release(scancodes::shift, kShiftSymbol, kShiftState);
        QVERIFY(fixture.pane->isRecordingMacro());
        QCOMPARE(fixture.steps(), kFourSteps);
        QCOMPARE(fixture.selectedRow(kStepsTable), 3);
    }

    void aStepThatAFullMacroDoesNotTakeEndsARunForOneStep_data() {
        QTest::addColumn<bool>("key");
        QTest::newRow("key") << true;
        QTest::newRow("mouse button") << false;
    }
    void aStepThatAFullMacroDoesNotTakeEndsARunForOneStep() {
        QFETCH(bool, key);
        const QStringList full = kFourSteps + kFourSteps + kFourSteps + kFourSteps;
        MacroFixture fixture(full);
        fixture.pane->startStopRecording(true, true);
        if (key)
            fixture.press(scancodes::x);
        else
            fixture.clickSteps(Qt::LeftButton);
        QVERIFY(!fixture.pane->isRecordingMacro());
        QCOMPARE(fixture.steps(), full);
    }

    void aStepThatIsRecordedAgainIsShownBeforeTheRunEnds() {
        MacroFixture fixture(kFourSteps);
        fixture.selectStep(0);
        fixture.chooseForSteps(32);
        QStringList shownAtTheEnd;
        const auto* button = fixture.find<QAbstractButton>("quorviButtonStepRecord");
        connect(button, &QAbstractButton::toggled, this, [&] { shownAtTheEnd = fixture.shownSteps(); });
        const auto* model = fixture.find<QTableView>(kStepsTable)->model();
        int reloads = 0;
        const auto count = [&] { reloads += fixture.pane->isRecordingMacro(); };
        connect(model, &QAbstractItemModel::modelReset, this, count);
        connect(model, &QAbstractItemModel::dataChanged, this, count);
        fixture.press(scancodes::x);
        QCOMPARE(shownAtTheEnd, QStringList({"Press x", "Release x", "Press b", "Release b"}));
        QVERIFY(reloads > 0);
    }

    void withNoStepSelectedOneIsAppended() {
        MacroFixture fixture(kFourSteps);
        fixture.pane->startStopRecording(true, true);
        fixture.press(scancodes::x);
        QCOMPARE(fixture.steps(), QStringList({"1 4 300", "0 4 500", "1 5 20", "0 5 100", "1 27 0"}));
        QVERIFY(!fixture.pane->isRecordingMacro());
    }

    void theSeventeenthStepIsNotStoredAndTheRecordingGoesOn() {
        MacroFixture fixture;
        fixture.record();
        for (int number = 0; number < 9; ++number)
            fixture.tap(scancodes::a);
        QCOMPARE(fixture.steps().size(), 16);
        QCOMPARE(fixture.selectedRow(kStepsTable), 15);
        QVERIFY(fixture.pane->isRecordingMacro());
        const auto* table = fixture.find<KyvarQuorviTableView>(kStepsTable);
        QVERIFY(table->viewport()->rect().contains(cellOf(fixture, kStepsTable, 15, 0)));
    }

    void aMacroWithoutStepsSwallowsWhatIsTyped() {
        MacroFixture fixture;
        fixture.pane->deviceConfig().array("macros").dictionary(0).remove("steps");
        fixture.pane->editMacroIndex(0);
        fixture.record();
        QVERIFY(fixture.send(QEvent::KeyPress, scancodes::a));
        fixture.clickSteps(Qt::LeftButton);
        QVERIFY(!fixture.pane->deviceConfig().array("macros").dictionary(0).has("steps"));
        QVERIFY(fixture.pane->isRecordingMacro());
    }

    void theControllersOwnMethodsDoTheSame() {
        MacroFixture fixture({"1 4 20", "0 4 0"});
        bool down = false;
        QCOMPARE(KyvarQuorviPane::matchingCommand(131, &down), 0U);
        QVERIFY(down);
        fixture.pane->setMacroStep(130, 0, 0xFFFF, 1);
        QCOMPARE(fixture.steps(), QStringList({"130 0 20", "128 0 0"}));
        fixture.pane->setMacroStep(1, 200, 0, -1);
        fixture.wait(60);
        fixture.pane->appendMacroStep(0, 200, 0);
        QCOMPARE(fixture.steps(), QStringList({"130 0 20", "128 0 100", "1 200 100", "0 200 0"}));
    }

    void anEditOfANameIsFinishedFirstAndNoInputMethodTakesKeys() {
        MacroFixture fixture;
        auto* macros = fixture.find<KyvarQuorviTableView>("quorviTableMacros");
        macros->editCell(0, 0);
        QVERIFY(waitForCellEditor(fixture, "quorviTableMacros"));
        cellEditor(fixture, "quorviTableMacros")->setText(QStringLiteral("Typed"));
        fixture.pane->startStopRecording(true, false);
        QTRY_VERIFY(!cellEditor(fixture, "quorviTableMacros"));
        QCOMPARE(macros->model()->index(0, 0).data().toString(), QStringLiteral("Typed"));
        QVERIFY(QGuiApplication::focusObject());
        QInputMethodQueryEvent query(Qt::ImEnabled);
        QCoreApplication::sendEvent(QGuiApplication::focusObject(), &query);
        QVERIFY(!query.value(Qt::ImEnabled).toBool());
    }

    void theFocusStaysWhereTheRecordingIsStopped() {
        MacroFixture fixture(kFourSteps);
        fixture.selectStep(0);
        fixture.record();
        fixture.clickSteps(Qt::LeftButton);
        QVERIFY(fixture.find<QWidget>("quorviButtonStepRecord")->hasFocus());
        fixture.record();
        fixture.selectStep(1);
        QVERIFY(fixture.find<QWidget>(kStepsTable)->hasFocus());
    }

    void theRecordButtonHasTwoTitlesAndTheMenuToo() {
        MacroFixture fixture;
        auto* button = fixture.find<QAbstractButton>("quorviButtonStepRecord");
        QCOMPARE(button->text(), QStringLiteral("Record"));
        fixture.record();
        QCOMPARE(button->text(), QStringLiteral("Stop"));
        QCOMPARE(button->accessibleName(), QStringLiteral("Stop"));
        QVERIFY(button->isChecked());
        fixture.record();
        QCOMPARE(button->text(), QStringLiteral("Record"));
        QCOMPARE(button->accessibleName(), QStringLiteral("Record"));
        QVERIFY(!button->isChecked());
    }
};

QUORVI_PANE_TEST_MAIN(RecordingTest)
#include "RecordingTest.moc"
