// A drag writes and announces each step, and syncs once at its end, however it ends.

#include <QCheckBox>

#include "pane/PaneTestMain.h"
#include "sensitivity/SensitivityFixture.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QStringList kDurableSave{"sync file", "rename", "sync folder"};
const QStringList kSync{"sync file", "sync folder"};

/// The left button is down on the X slider from here on.
class Drag {
  public:
    explicit Drag(const char* name = "quorviSliderSensitivityX") {
        fixture.open();
        slider = fixture.slider(name);
        calls.log.clear();
        QTest::mousePress(slider, Qt::LeftButton, {}, handleOf(*slider));
    }

    /// Moves the handle to three places; each is a step.
    void moveThreeSteps() {
        for (const int percent : {40, 60, 80})
            dragTo(*slider, QPoint(slider->width() * percent / 100, 8));
    }
    void release() const {
        QTest::mouseRelease(slider, Qt::LeftButton, {}, QPoint(slider->width() * 4 / 5, 8));
    }

    RecordingCalls calls; // before what writes by them
    SensitivityFixture fixture{&calls};
    KyvarQuorviSlider* slider = nullptr;
};

} // namespace

class SensitivityDragTest : public QObject {
    Q_OBJECT

  private slots:
    void aKeyWaitsForTheDiskAtOnce() {
        RecordingCalls calls;
        SensitivityFixture fixture(&calls);
        fixture.open();
        calls.log.clear();
        fixture.press("quorviSliderSensitivityX", Qt::Key_Right);
        QCOMPARE(calls.log, kDurableSave);
    }

    void eachStepIsWrittenAndToldAndTheDiskIsWaitedForAtTheEnd() {
        Drag drag;
        drag.moveThreeSteps();
        QCOMPARE(drag.calls.log, QStringList({"rename", "rename", "rename"}));
        QCOMPARE(drag.fixture.savedSettingsPart().integer("dpix"), drag.slider->value());
        QVERIFY(drag.fixture.announced(3));
        drag.calls.log.clear();
        drag.release();
        QCOMPARE(drag.calls.log, kSync);
        QVERIFY(drag.fixture.commandsBecome({})); // what was told stands
        drag.calls.log.clear();
        drag.fixture.press("quorviSliderSensitivityX", Qt::Key_Right);
        QCOMPARE(drag.calls.log, kDurableSave);
    }

    void aClickThatMovesNothingTouchesNoDisk() {
        Drag drag;
        QTest::mouseRelease(drag.slider, Qt::LeftButton, {}, handleOf(*drag.slider));
        QCOMPARE(drag.calls.log, QStringList());
    }

    void aDragEndsWhateverEndsIt_data() {
        QTest::addColumn<QString>("how");
        for (const char* how : {"window without focus", "another tab", "window hidden", "mouse unplugged",
                 "panel hidden", "panel deleted", "window deleted"})
            QTest::newRow(how) << how;
    }

    void aDragEndsWhateverEndsIt() {
        QFETCH(QString, how);
        Drag drag;
        drag.moveThreeSteps();
        const int value = drag.slider->value();
        QVERIFY(drag.fixture.announced(3));
        drag.calls.log.clear();
        QWidget elsewhere;
        if (how == "window without focus") {
            elsewhere.show();
            elsewhere.activateWindow();
        } else if (how == "another tab") {
            drag.fixture.selectTab(0);
        } else if (how == "window hidden") {
            drag.fixture.window->hide();
        } else if (how == "mouse unplugged") {
            drag.fixture.helper->sendDeviceList(0);
        } else if (how == "panel hidden") {
            drag.fixture.pane->willUnselect();
        } else if (how == "panel deleted") {
            drag.fixture.pane.reset();
        } else {
            drag.fixture.window.reset();
        }
        QTRY_VERIFY(drag.calls.log.size() >= 2);
        QCOMPARE(drag.calls.log.mid(0, 2), kSync);
        QCOMPARE(drag.fixture.savedSettingsPart().integer("dpix"), value);
        if (how == "panel hidden")
            drag.fixture.pane->didSelect(); // pairs the end of the test
    }

    void stepsAfterTheEndOfADragThatLostTheFocusAreDurableOneByOne() {
        Drag drag;
        drag.moveThreeSteps();
        QEvent away(QEvent::WindowDeactivate);
        QApplication::sendEvent(drag.slider, &away);
        drag.calls.log.clear();
        dragTo(*drag.slider, QPoint(drag.slider->width() / 4, 8)); // the button is still down
        QCOMPARE(drag.calls.log, kDurableSave);
        drag.calls.log.clear();
        drag.release();
        QCOMPARE(drag.calls.log, QStringList());
    }

    void aDeviceListInADragLeavesItsStepsToTheEndOfTheDrag() {
        Drag drag;
        drag.moveThreeSteps();
        const int value = drag.slider->value();
        drag.fixture.connectDevices(1);
        QCOMPARE(drag.slider->value(), value);
        QVERIFY(!drag.calls.log.contains("sync file"));
        dragTo(*drag.slider, QPoint(drag.slider->width() / 2, 8));
        QCOMPARE(drag.fixture.savedSettingsPart().integer("dpix"), drag.slider->value());
        drag.calls.log.clear();
        drag.release();
        QCOMPARE(drag.calls.log.mid(drag.calls.log.size() - 2), kSync);
    }

    void aFileThatIsGoneWhenTheDragEndsIsWrittenAnew() {
        Drag drag;
        drag.moveThreeSteps();
        QVERIFY(drag.fixture.announced(3));
        std::filesystem::remove(drag.fixture.settingsFile());
        drag.calls.log.clear();
        drag.release();
        QCOMPARE(drag.calls.log, kDurableSave);
        QCOMPARE(drag.fixture.savedSettingsPart().integer("dpix"), drag.slider->value());
        QVERIFY(drag.fixture.announced(1));
    }

    void theAccelerationIsDraggedTheSameWay() {
        RecordingCalls calls;
        SensitivityFixture fixture(&calls);
        fixture.open();
        fixture.click("quorviBoxAcceleration");
        KyvarQuorviSlider* slider = fixture.slider("quorviSliderAcceleration");
        calls.log.clear();
        QTest::mousePress(slider, Qt::LeftButton, {}, handleOf(*slider));
        for (const int percent : {55, 70, 90}) {
            dragTo(*slider, QPoint(slider->width() * percent / 100, 8));
            QCOMPARE(slider->value() % 10, 0);
        }
        QCOMPARE(calls.log, QStringList({"rename", "rename", "rename"}));
        calls.log.clear();
        QTest::mouseRelease(slider, Qt::LeftButton, {}, QPoint(slider->width() * 9 / 10, 8));
        QCOMPARE(calls.log, kSync);
    }
};

QUORVI_PANE_TEST_MAIN(SensitivityDragTest)
#include "SensitivityDragTest.moc"
