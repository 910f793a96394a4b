// A macro played in the window, with the time in the test's hands.
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QProxyStyle>
#include <QPushButton>

#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"
#include "widgets/StepsTimeline.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kPlay = "quorviButtonMacroPlay";
constexpr const char* kField = "quorviFieldTrial";
constexpr const char* kKeys = "textTrialKeys";

// Usages of keys, by their places on the keyboard of the United States.
enum KeyPlace : int {
    a = 0x04,
    b = 0x05,
    c = 0x06,
    h = 0x0B,
    i = 0x0C,
    v = 0x19,
    x = 0x1B,
    z = 0x1D,
    enter = 0x28,
    escape = 0x29,
    backspace = 0x2A,
    tab = 0x2B,
    minus = 0x2D,
    f4 = 0x3D,
    leftArrow = 0x50,
    control = 0xE0,
    shift = 0xE1,
    alt = 0xE2,
    super = 0xE3
};

QStringList pressed(int usage, int delay = 0) {
    return {stepAsText(1, usage, delay), stepAsText(0, usage, delay)};
}
QStringList with(int modifier, int usage) {
    return QStringList{stepAsText(1, modifier, 0)} + pressed(usage) + QStringList{stepAsText(0, modifier, 0)};
}
QStringList typed(const std::vector<int>& usages, int delay = 0) {
    QStringList steps;
    for (const int usage : usages)
        steps << pressed(usage, delay);
    return steps;
}

class Trial : public MacroFixture {
  public:
    using MacroFixture::MacroFixture;

    void play() const { click(kPlay); }
    [[nodiscard]] QString field() const { return find<QLineEdit>(kField)->text(); }
    [[nodiscard]] QString keys() const { return find<QLabel>(kKeys)->text(); }
    [[nodiscard]] bool isPlaying() const { return pane->isTryingMacro(); }
    /// The rows of the steps that are shown in bold letters.
    [[nodiscard]] QList<int> marked() const {
        QList<int> rows;
        const QAbstractItemModel& model = *find<KyvarQuorviTableView>(kStepsTable)->model();
        for (int row = 0; row < model.rowCount(); ++row)
            if (model.index(row, 0).data(Qt::FontRole).value<QFont>().bold())
                rows << row;
        return rows;
    }
};

} // namespace

class MacroTrialTest : public QObject {
    Q_OBJECT

  private slots:
    void theTextIsTypedIntoTheField() {
        const Trial trial(with(shift, h) + typed({i}));
        trial.play();
        QCOMPARE(trial.field(), QStringLiteral("Hi"));
        QVERIFY(!trial.isPlaying());
        QCOMPARE(trial.keys(), QString());
    }

    void delaysAreKept() {
        Trial trial(typed({h, i}, 100));
        trial.play();
        QCOMPARE(trial.field(), QStringLiteral("h"));
        QVERIFY(trial.isPlaying());
        QCOMPARE(trial.marked(), QList<int>{0});
        trial.wait(99);
        QCOMPARE(trial.marked(), QList<int>{0});
        trial.wait(1);
        QCOMPARE(trial.marked(), QList<int>{1});
        QCOMPARE(trial.field(), QStringLiteral("h"));
        trial.wait(100);
        QCOMPARE(trial.field(), QStringLiteral("hi"));
        QCOMPARE(trial.marked(), QList<int>{2});
        trial.wait(100);
        QVERIFY2(trial.isPlaying(), "the last step has its delay too");
        trial.wait(100);
        QVERIFY(!trial.isPlaying());
        QCOMPARE(trial.marked(), QList<int>());
    }

    void theStepsFollowToTheLast() {
        QStringList steps;
        for (int count = 0; count < 4; ++count)
            steps << pressed(h, 100) << pressed(i, 100);
        steps.last() = stepAsText(0, i, 0);
        Trial trial(steps);
        auto* table = trial.find<KyvarQuorviTableView>(kStepsTable);
        table->setFixedHeight(140);
        QTRY_VERIFY(table->viewport()->height() < 140);
        const auto isSeen = [table](int row) {
            return table->viewport()->rect().contains(table->visualRect(table->model()->index(row, 0)));
        };
        const int last = static_cast<int>(steps.size()) - 1;
        QVERIFY(!isSeen(last));
        trial.play();
        QVERIFY(isSeen(0));
        for (int step = 0; step < last; ++step)
            trial.wait(100);
        QVERIFY(!trial.isPlaying());
        QVERIFY(!isSeen(0));
        QVERIFY(isSeen(last));
    }

    void theTimelineFollows() {
        Trial trial(typed({h, i}, 100));
        const auto* timeline = trial.find<StepsTimeline>("quorviTimelineSteps");
        QVERIFY(!timeline->playHead());
        trial.play();
        const auto atStart = timeline->playHead();
        QVERIFY(atStart);
        trial.wait(50); // some frames
        QVERIFY(*timeline->playHead() > *atStart);
        trial.play();
        QVERIFY(!timeline->playHead());
    }

    // Who wants nothing to move sees the head with each step alone.
    void theTimelineFollowsByStepsWhereNothingIsToMove() {
        class StillStyle : public QProxyStyle {
          public:
            int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
                return hint == SH_Widget_Animation_Duration
                           ? 0
                           : QProxyStyle::styleHint(hint, option, widget, data);
            }
        };
        StillStyle still;
        Trial trial(typed({h, i}, 100));
        trial.find<QLineEdit>(kField)->setStyle(&still);
        const auto* timeline = trial.find<StepsTimeline>("quorviTimelineSteps");
        trial.play();
        const auto atStart = timeline->playHead();
        QVERIFY(atStart);
        trial.wait(50);
        QCOMPARE(timeline->playHead(), atStart);
        trial.wait(51);
        QVERIFY(*timeline->playHead() > *atStart);
    }

    void theButtonPlaysAndStops() {
        const Trial trial(typed({h, i}, 100));
        const auto* button = trial.find<QPushButton>(kPlay);
        QCOMPARE(button->text(), QStringLiteral("Play"));
        trial.play();
        QCOMPARE(button->text(), QStringLiteral("Stop"));
        QCOMPARE(button->accessibleName(), QStringLiteral("Stop"));
        QVERIFY(button->isChecked());
        trial.play();
        QVERIFY(!trial.isPlaying());
        QCOMPARE(button->text(), QStringLiteral("Play"));
        QVERIFY(!button->isChecked());
        QCOMPARE(trial.field(), QStringLiteral("h"));
    }

    void whatIsTypedIsThatOfTheLastRun() {
        const Trial trial(typed({h, i}));
        trial.play();
        trial.play();
        QCOMPARE(trial.field(), QStringLiteral("hi"));
        trial.find<QLineEdit>(kField)->setText(QStringLiteral("oh "));
        trial.play();
        QCOMPARE(trial.field(), QStringLiteral("oh hi"));
    }

    // Tab and the like have a meaning for the window, which must not hear of them.
    void keysThatLeadOutOfAFieldAreOnlyShown() {
        const Trial trial(typed({h, tab, escape, enter}) + with(alt, f4) + with(super, x));
        QWidget* before = QApplication::focusWidget();
        trial.play();
        QCOMPARE(trial.field(), QStringLiteral("h"));
        QCOMPARE(trial.keys(), QStringLiteral("Tab, Esc, Return, Alt+F4, Super+X"));
        QVERIFY(trial.window->isVisible());
        QVERIFY(QApplication::focusWidget() == before || QApplication::focusWidget()->objectName() == kPlay);
    }

    void modifiersAndMouseButtonsAreShownWhileTheyAreDown() {
        Trial trial({stepAsText(1, control, 50), stepAsText(1, shift, 50), stepAsText(129, 0, 50),
            stepAsText(128, 0, 0), stepAsText(0, shift, 0), stepAsText(0, control, 0)});
        trial.play();
        QCOMPARE(trial.keys(), QStringLiteral("Ctrl"));
        trial.wait(50);
        QCOMPARE(trial.keys(), QStringLiteral("Ctrl+Shift"));
        trial.wait(50);
        QCOMPARE(trial.keys(), QStringLiteral("Ctrl+Shift+Left button"));
    }

    void editingKeysEdit() {
        const Trial trial(typed({h, i, backspace, a, leftArrow, b}));
        trial.play();
        QCOMPARE(trial.field(), QStringLiteral("hba"));
    }

    void copyingStaysInTheField() {
        QGuiApplication::clipboard()->setText(QStringLiteral("mine"));
        const Trial trial(typed({h}) + with(control, a) + with(control, c) + with(control, v));
        trial.play();
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("mine"));
        QCOMPARE(trial.field(), QStringLiteral("h"));
        QCOMPARE(trial.keys(), QStringLiteral("Ctrl+A, Ctrl+C, Ctrl+V"));
    }

    void whatTheUserHasCopiedIsPasted() {
        QGuiApplication::clipboard()->setText(QStringLiteral("mine"));
        const Trial trial(with(control, v));
        trial.play();
        QCOMPARE(trial.field(), QStringLiteral("mine"));
    }

    void whatWasCopiedIsPasted() {
        QGuiApplication::clipboard()->setText(QStringLiteral("mine"));
        const Trial trial(typed({h, i}) + with(control, a) + with(control, x) + with(control, v));
        trial.play();
        QCOMPARE(trial.field(), QStringLiteral("hi"));
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("mine"));
    }

    // Ctrl+Z is the panel's key for undo.
    void shortcutsOfThePanelAreNotTriggered() {
        const Trial trial(with(control, z) + typed({h}));
        trial.selectStep(5);
        trial.chooseForSteps(33); // remove the step
        QCOMPARE(trial.steps().size(), 5);
        trial.play();
        QCOMPARE(trial.field(), QStringLiteral("h"));
        QCOMPARE(trial.steps().size(), 5);
        QVERIFY(trial.isEnabled("quorviButtonUndo"));
    }

    void anEmptyMacroCannotBePlayed() {
        const Trial trial;
        QVERIFY(!trial.isEnabled(kPlay));
        trial.pane->actionButtonMacroPlay();
        QVERIFY(!trial.isPlaying());
    }

    void escapeOfTheUserStops() {
        const Trial trial(typed({h, i}, 100));
        trial.play();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QVERIFY(!trial.isPlaying());
    }

    void anotherTabStops() {
        const Trial trial(typed({h, i}, 100));
        trial.play();
        trial.selectTab(0);
        QVERIFY(!trial.isPlaying());
    }

    void anotherMacroStops() {
        const Trial trial(typed({h, i}, 100));
        trial.play();
        trial.selectRow("quorviTableMacros", 1);
        QVERIFY(!trial.isPlaying());
    }

    void anEditOfTheStepsStops() {
        const Trial trial(typed({h, i}, 100));
        trial.selectStep(1);
        trial.play();
        trial.click("quorviButtonStepRemove");
        QVERIFY(!trial.isPlaying());
        trial.play();
        QVERIFY(trial.isPlaying());
        trial.pane->setObjectValue(3, 32, 0);
        QVERIFY2(!trial.isPlaying(), "another delay is an edit too");
    }

    void aRecordingStops() {
        const Trial trial(typed({h, i}, 100));
        trial.play();
        trial.record();
        QVERIFY(!trial.isPlaying());
        QVERIFY(!trial.isEnabled(kPlay));
        trial.record();
        QVERIFY(trial.isEnabled(kPlay));
    }

    void aHiddenPanelStops() {
        const Trial trial(typed({h, i}, 100));
        trial.play();
        trial.pane->willUnselect();
        QVERIFY(!trial.isPlaying());
        trial.pane->didSelect();
    }

    void aMouseThatIsUnpluggedStops() {
        Trial trial(typed({h, i}, 100));
        trial.play();
        trial.connectDevices(0);
        QVERIFY(!trial.isPlaying());
        QVERIFY(!trial.isEnabled(kPlay));
    }

    // A selection and another look at the same settings are no reason to stop.
    void whatChangesNothingLetsItPlay() {
        Trial trial(typed({h, i}, 100));
        trial.play();
        trial.selectRow(kStepsTable, 2);
        trial.connectDevices(1);
        QVERIFY(trial.isPlaying());
    }

    // The record has room for 128 bytes of steps; more than that reaches no mouse.
    void whatTheRecordDoesNotHoldIsNotPlayed() {
        QStringList steps;
        for (int count = 0; count < 40; ++count)
            steps << pressed(h, 1);
        Trial trial(steps);
        trial.play();
        for (int count = 0; count < 100 && trial.isPlaying(); ++count)
            trial.wait(1);
        QVERIFY(!trial.isPlaying());
        QCOMPARE(trial.field().size(), 16); // four bytes a step
    }

    void theKeyboardLayoutIsThatInUse() {
        const Trial trial(typed({minus, z}));
        SetCurrentKeyboardLayout(makeKeyboardLayout(keymapNamesInText("XKBLAYOUT=de")));
        trial.play();
        QCOMPARE(trial.field(), QStringLiteral("ßy"));
    }
};

QUORVI_PANE_TEST_MAIN(MacroTrialTest)
#include "MacroTrialTest.moc"
