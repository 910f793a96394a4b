// The state of a recording, on the screen and for a screen reader.

#include <QAccessible>
#include <QLabel>
#include <QScreen>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

#include <private/qguiapplication_p.h>

#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"
#include "widgets/ThemeColours.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

/// Between its round corners, above its text.
QColor groundOf(QLabel& label) {
    return label.grab().toImage().pixelColor(label.width() / 2, 1);
}

bool standsOnItsGround(QLabel& label) {
    return groundOf(label) == markGroundColour(label.palette());
}

constexpr const char* kState = "textRecording";
constexpr const char* kRecord = "quorviButtonStepRecord";
const QString kHowToEnd = QStringLiteral(" \u00B7 \u25A0 or hold Esc to stop");
const QString kSpokenHowToEnd = QStringLiteral(" \u00B7 Stop or hold Esc to stop");

/// What a screen reader would be told of the objects: "name: event".
QStringList told;

void writeDown(QAccessibleEvent* event) {
    if (event->object() &&
        (event->type() == QAccessible::DescriptionChanged || event->type() == QAccessible::NameChanged ||
            event->type() == QAccessible::Alert))
        told << event->object()->objectName() + QLatin1Char(' ') + QString::number(event->type());
}

/// The steps that make the macro that long.
QStringList stepsToFill(int count) {
    QStringList steps;
    for (int number = 0; number < count; ++number)
        steps << stepAsText(number % 2 == 0 ? 1 : 0, 4, 10);
    return steps;
}

} // namespace

class RecordingStateTest : public QObject {
    Q_OBJECT

  private slots:
    void theStateSaysHowManyStepsAreLeft() {
        MacroFixture fixture(stepsToFill(13));
        QCOMPARE(fixture.text(kState), QString());
        fixture.record();
        QCOMPARE(fixture.text(kState), QStringLiteral("Recording: 3 steps left") + kHowToEnd);
        fixture.tap(scancodes::a);
        QCOMPARE(fixture.text(kState), QStringLiteral("Recording: 1 step left") + kHowToEnd);
        fixture.press(scancodes::b);
        QCOMPARE(fixture.text(kState), QStringLiteral("Recording: the macro is full") + kHowToEnd);
        fixture.release(scancodes::b);
        QCOMPARE(fixture.text(kState), QStringLiteral("Recording: the macro is full") + kHowToEnd);
        fixture.record();
        QCOMPARE(fixture.text(kState), QString());
    }

    void aMacroThatIsTooLongHasNoStepsLeft() {
        MacroFixture fixture(stepsToFill(20));
        fixture.record();
        QCOMPARE(fixture.text(kState), QStringLiteral("Recording: the macro is full") + kHowToEnd);
    }

    void forOneStepTheStateSaysWhichIsReplaced() {
        MacroFixture fixture(stepsToFill(4));
        fixture.selectStep(2);
        fixture.chooseForSteps(32);
        QCOMPARE(fixture.text(kState), QStringLiteral("Recording step 3 again"));
        fixture.press(scancodes::a);
        QCOMPARE(fixture.text(kState), QString());
    }

    void theStateHasTheThemesColoursAndNoneWhenNothingIsRecorded() {
        MacroFixture fixture;
        auto* label = fixture.find<QLabel>(kState);
        QVERIFY(!standsOnItsGround(*label));
        fixture.record();
        QVERIFY(standsOnItsGround(*label));
        fixture.record();
        QVERIFY(!standsOnItsGround(*label));
    }

    void nothingMovesWhenARecordingStartsAndEnds() {
        MacroFixture fixture(stepsToFill(4));
        const auto places = [&] {
            QList<QRect> result{fixture.window->geometry()};
            for (const char* name : {"quorviTableMacros", kStepsTable, "quorviButtonStepAdd",
                     "quorviButtonStepGear", kState, kRecord})
                result << fixture.find<QWidget>(name)->geometry();
            return result;
        };
        QCoreApplication::processEvents();
        // A window that has grown over the screen's edge is moved by the window manager, a moment later.
        QTRY_VERIFY(QGuiApplication::platformName() != QLatin1String("xcb") ||
                    fixture.window->screen()->geometry().contains(fixture.window->frameGeometry()));
        const auto before = places();
        fixture.record();
        QCoreApplication::processEvents();
        QCOMPARE(places(), before);
        fixture.record();
        QCoreApplication::processEvents();
        QCOMPARE(places(), before);
    }

    void aScreenReaderIsToldOfTheStartOfTheLastStepsAndOfTheEnd() {
        MacroFixture fixture(stepsToFill(12));
        auto* button = fixture.find<QWidget>(kRecord);
        const QString description = button->accessibleDescription();
        QVERIFY(!description.isEmpty());
        const auto previous = QAccessible::installUpdateHandler(writeDown);
        // As a screen reader does that comes to the bus.
        QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
        const auto contains = [&](const char* object, QAccessible::Event event) {
            return told.contains(QLatin1String(object) + QLatin1Char(' ') + QString::number(event));
        };
        const auto isTold = [&] {
            const bool isIt =
                contains(kRecord, QAccessible::DescriptionChanged) && contains(kState, QAccessible::Alert);
            told.clear();
            return isIt;
        };
        told.clear();
        fixture.record();
        QVERIFY(contains(kRecord, QAccessible::NameChanged));
        QVERIFY(isTold());
        QVERIFY(button->hasFocus());
        QCOMPARE(
            button->accessibleDescription(), QStringLiteral("Recording: 4 steps left") + kSpokenHowToEnd);
        for (const quint32 key : {scancodes::a, scancodes::b}) {
            fixture.press(key);
            QVERIFY(!contains(kRecord, QAccessible::DescriptionChanged));
            QVERIFY(!contains(kState, QAccessible::Alert));
        }
        fixture.release(scancodes::a);
        QVERIFY(isTold());
        QCOMPARE(button->accessibleDescription(), QStringLiteral("Recording: 1 step left"));
        fixture.release(scancodes::b);
        QVERIFY(isTold());
        QCOMPARE(button->accessibleDescription(), QStringLiteral("Recording: the macro is full"));
        fixture.tap(scancodes::a); // has no room
        QVERIFY(!isTold());
        fixture.record();
        QVERIFY(isTold());
        QCOMPARE(button->accessibleDescription(), description);
        QAccessible::installUpdateHandler(previous);
    }

    void aMacroThatIsFullTurnsTheStateAmber() {
        MacroFixture fixture(stepsToFill(15));
        auto* label = fixture.find<QLabel>(kState);
        fixture.record();
        QVERIFY(standsOnItsGround(*label));
        fixture.press(scancodes::b);
        QCOMPARE(groundOf(*label), warningGroundColour());
        fixture.record();
        QVERIFY(!standsOnItsGround(*label));
        fixture.selectStep(0);
        fixture.chooseForSteps(32);
        QVERIFY(standsOnItsGround(*label)); // one step is always replaced
    }

    void theButtonShowsAStopSignWhileItRuns() {
        MacroFixture fixture;
        const auto* button = fixture.find<QAbstractButton>(kRecord);
        const auto corner = [&] { return button->icon().pixmap(64, 64).toImage().pixelColor(15, 15); };
        QCOMPARE(corner().alpha(), 0); // a disc
        fixture.record();
        QCOMPARE(corner().alpha(), 255); // a square
        fixture.record();
        QCOMPARE(corner().alpha(), 0);
    }

    void anEmptyListSaysWhatToDo() {
        MacroFixture fixture;
        auto* table = fixture.find<KyvarQuorviTableView>(kStepsTable);
        auto* hint = table->viewport()->findChild<QLabel*>();
        QVERIFY(hint && hint->isVisible());
        QCOMPARE(hint->text(),
            QStringLiteral("No steps yet. Press Record, then press keys or click in this list."));
        fixture.record();
        QVERIFY(hint->isVisible());
        QCOMPARE(hint->text(), QStringLiteral("Press keys, or click in this list."));
        fixture.press(scancodes::a);
        QVERIFY(!hint->isVisible());
        fixture.record();
        fixture.chooseForSteps(34);
        QVERIFY(hint->isVisible());
        QCOMPARE(hint->text(),
            QStringLiteral("No steps yet. Press Record, then press keys or click in this list."));
    }
};

QUORVI_PANE_TEST_MAIN(RecordingStateTest)
#include "RecordingStateTest.moc"
