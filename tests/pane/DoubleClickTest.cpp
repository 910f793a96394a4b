// A double click in a list does what people try it for.

#include "applications/ApplicationPanel.h"
#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kProfiles = "quorviTableProfiles";
constexpr int kApplicationColumn = 2;

/// Both clicks, with the release of the second.
void doubleClick(const PaneFixture& fixture, const char* table, int row, int column) {
    QWidget* viewport = fixture.find<KyvarQuorviTableView>(table)->viewport();
    const QPoint spot = cellOf(fixture, table, row, column).center();
    QTest::mouseClick(viewport, Qt::LeftButton, {}, spot);
    QTest::mouseDClick(viewport, Qt::LeftButton, {}, spot);
    QTest::mouseRelease(viewport, Qt::LeftButton, {}, spot);
}

} // namespace

class DoubleClickTest : public QObject {
    Q_OBJECT

  private slots:
    void onAnApplicationChoosesAnother() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(2);
        fixture.window->resize(900, 700);
        QCoreApplication::processEvents();
        bool wasOpen = false;
        auto* timer = new QTimer(fixture.window.get());
        connect(timer, &QTimer::timeout, timer, [&] {
            auto* chooser = fixture.window->findChild<ApplicationPanel*>();
            if (!chooser || !chooser->isVisible())
                return;
            wasOpen = true;
            chooser->reject();
        });
        timer->start(5);
        doubleClick(fixture, kProfiles, 1, kApplicationColumn);
        QTRY_VERIFY(wasOpen);
        QTRY_VERIFY(!fixture.window->findChild<ApplicationPanel*>() ||
                    !fixture.window->findChild<ApplicationPanel*>()->isVisible());
        QCOMPARE(fixture.selectedRow(kProfiles), 1);
        wasOpen = false;
        doubleClick(fixture, kProfiles, 1, 0); // its number
        QCoreApplication::processEvents();
        QVERIFY(!wasOpen);
    }

    void onAStepAsksForItAgain() {
        MacroFixture fixture({"1 4 300", "0 4 500", "1 5 20", "0 5 0"});
        doubleClick(fixture, kStepsTable, 2, 0);
        QVERIFY(fixture.pane->isRecordingMacro());
        QCOMPARE(fixture.text("textRecording"), QStringLiteral("Recording step 3 again"));
        QCOMPARE(fixture.steps(), QStringList({"1 4 300", "0 4 500", "1 5 20", "0 5 0"}));
        fixture.press(scancodes::x);
        QVERIFY(!fixture.pane->isRecordingMacro());
        QCOMPARE(fixture.steps(), QStringList({"1 4 300", "0 4 500", "1 27 20", "0 27 0"}));
    }

    void withAnotherButtonOrOfADisabledListDoesNothing() {
        const QStringList steps{"1 4 300", "0 4 500"};
        MacroFixture fixture(steps);
        QWidget* viewport = fixture.find<KyvarQuorviTableView>(kStepsTable)->viewport();
        const QPoint spot = cellOf(fixture, kStepsTable, 0, 0).center();
        fixture.selectStep(0);
        QTest::mouseDClick(viewport, Qt::MiddleButton, {}, spot);
        QTest::mouseRelease(viewport, Qt::MiddleButton, {}, spot);
        QVERIFY(!fixture.pane->isRecordingMacro());
        QCOMPARE(fixture.steps(), steps);
        fixture.connectDevices(0);
        QTest::mouseDClick(viewport, Qt::LeftButton, {}, spot);
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, spot);
        QVERIFY(!fixture.pane->isRecordingMacro());
    }
};

QUORVI_PANE_TEST_MAIN(DoubleClickTest)
#include "DoubleClickTest.moc"
