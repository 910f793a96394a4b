// The numbers beside the sliders, and the cells of the bar, do what the sliders and the sheet do.

#include <QLineEdit>

#include "pane/PaneTestMain.h"
#include "sensitivity/SensitivityFixture.h"
#include "widgets/NumberField.h"
#include "widgets/StageBar.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr char kX[] = "quorviFieldSensitivityX";
constexpr char kY[] = "quorviFieldSensitivityY";
constexpr char kStrength[] = "quorviFieldAcceleration";

void typeIn(const PaneFixture& fixture, const char* field, const char* number) {
    auto* widget = fixture.find<NumberField>(field);
    widget->setFocus();
    widget->selectAll();
    QTest::keyClicks(widget, number);
    QTest::keyClick(widget, Qt::Key_Return);
}

} // namespace

class SensitivityFieldsTest : public QObject {
    Q_OBJECT

  private slots:
    void aTypedSensitivityIsSavedOnceAndIsOneStepOfUndo() {
        RecordingCalls calls;
        SensitivityFixture fixture(&calls);
        fixture.open();
        QCOMPARE(fixture.find<NumberField>(kX)->text(), QStringLiteral("800 DPI"));
        calls.log.clear();
        typeIn(fixture, kX, "2400");
        QCOMPARE(fixture.savedResolution(), QStringLiteral("2400/2400"));
        QCOMPARE(calls.log, QStringList({"sync file", "rename", "sync folder"}));
        QVERIFY(fixture.announced(1));
        QCOMPARE(fixture.find<NumberField>(kY)->text(), QStringLiteral("2400 DPI"));
        QVERIFY(!fixture.isEnabled(kY));
        fixture.click("quorviButtonUndo");
        QCOMPARE(fixture.savedResolution(), QStringLiteral("800/800"));
        QCOMPARE(fixture.find<NumberField>(kX)->text(), QStringLiteral("800 DPI"));
    }

    void yIsTypedWhileTheAxesAreSeparate() {
        SensitivityFixture fixture;
        fixture.open(SensitivityFixture::separateAxes(400, 800));
        typeIn(fixture, kY, "1237");
        QCOMPARE(fixture.savedResolution(), QStringLiteral("400/1225 separate")); // the nearest step
    }

    void whatIsTypedIsChosenWhenTheFieldIsLeft() {
        SensitivityFixture fixture;
        fixture.open();
        auto* field = fixture.find<NumberField>(kX);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, "400");
        QVERIFY(fixture.nothingHappened());
        fixture.selectTab(0);
        QCOMPARE(fixture.savedResolution(), QStringLiteral("400/400"));
    }

    void accelerationIsTypedInPercent_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<float>("factor");
        QTest::newRow("faster") << "130"
                                << "130 %" << 1.3F;
        QTest::newRow("slower") << "50"
                                << "50 %" << 0.5F;
        QTest::newRow("twice") << "200"
                               << "200 %" << 2.0F;
        QTest::newRow("least") << "10"
                               << "10 %" << 0.1F;
        QTest::newRow("in the gap, low") << "93"
                                         << "88 %" << 0.88F;
        QTest::newRow("in the gap, high") << "95"
                                          << "100 %" << 1.0F;
        QTest::newRow("between two steps") << "131"
                                           << "130 %" << 1.3F;
    }
    void accelerationIsTypedInPercent() {
        QFETCH(QString, typed);
        QFETCH(QString, shown);
        QFETCH(float, factor);
        SensitivityFixture fixture;
        fixture.open();
        QVERIFY(!fixture.isEnabled(kStrength));
        fixture.click("quorviBoxAcceleration");
        QVERIFY(fixture.isEnabled(kStrength));
        QVERIFY(fixture.announced(1));
        typeIn(fixture, kStrength, "150");
        typeIn(fixture, kStrength, typed.toLatin1());
        QCOMPARE(fixture.find<NumberField>(kStrength)->text(), shown);
        QVERIFY(qAbs(float(fixture.savedDriver().real("acceleration")) - factor) < 1e-6F);
        QVERIFY(fixture.announced(2));
    }

    void arrowsCrossTheGapOfTheAcceleration() {
        SensitivityFixture fixture;
        fixture.open();
        fixture.click("quorviBoxAcceleration");
        typeIn(fixture, kStrength, "88");
        fixture.press(kStrength, Qt::Key_Up);
        QCOMPARE(fixture.find<NumberField>(kStrength)->text(), QStringLiteral("100 %"));
        fixture.press(kStrength, Qt::Key_Down);
        QCOMPARE(fixture.find<NumberField>(kStrength)->text(), QStringLiteral("88 %"));
    }

    void theSheetHasThemToo() {
        SensitivityFixture fixture;
        fixture.open();
        // Return in a field is Return in the sheet, as in its list.
        inStagesSheet(fixture, [&](QDialog* /*sheet*/) { typeIn(fixture, "quorviStageFieldX", "1200"); });
        QCOMPARE(fixture.savedResolution(), QStringLiteral("1200/1200"));
        inStagesSheet(fixture, [&](QDialog* sheet) {
            fixture.click("quorviStageBoxIndepXY");
            auto* field = fixture.find<NumberField>("quorviStageFieldY");
            QVERIFY(field->isEnabled());
            QTest::keyClick(field, Qt::Key_Down);
            endSheet(sheet, true);
        });
        QCOMPARE(fixture.savedResolution(), QStringLiteral("1200/1175 separate"));
    }

    void aCellOfTheBarOpensTheSheetAtItsStage() {
        SensitivityFixture fixture;
        fixture.open();
        auto* bar = fixture.find<StageBar>("quorviViewStages");
        for (const int stage : {2, 0, 1}) {
            whenSheetIsUp(fixture.window.get(), "quorviPanelStages", [&](QDialog* sheet) {
                const int row = fixture.selectedRow("quorviStageTableStages");
                endSheet(sheet, false);
                QCOMPARE(row, stage);
            });
            QTest::mouseClick(bar, Qt::LeftButton, {}, bar->cellOf(stage).center());
        }
        QVERIFY(fixture.nothingHappened()); // Cancel
        bar->setFocus(Qt::TabFocusReason);
        QTest::keyClick(bar, Qt::Key_Right);
        whenSheetIsUp(
            fixture.window.get(), "quorviPanelStages", [&](QDialog* sheet) { endSheet(sheet, true); });
        QTest::keyClick(bar, Qt::Key_Return);
        QCOMPARE(bar->currentStage(), 2); // the selected stage is the current one, as always in the sheet
        QCOMPARE(fixture.savedSettingsPart().integer("stage"), 3);
    }
};

QUORVI_PANE_TEST_MAIN(SensitivityFieldsTest)
#include "SensitivityFieldsTest.moc"
