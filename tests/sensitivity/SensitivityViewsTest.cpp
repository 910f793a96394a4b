// The bar and the curve match the controls, also for a screen reader.

#include "pane/PaneTestMain.h"
#include "sensitivity/SensitivityFixture.h"
#include "widgets/AccelerationCurve.h"
#include "widgets/StageBar.h"

using namespace quorvi;
using namespace quorvi::test;

class SensitivityViewsTest : public QObject {
    Q_OBJECT

  private slots:
    void theBarFollowsTheSliderAndTheSheet() {
        SensitivityFixture fixture;
        fixture.open();
        const auto* bar = fixture.find<StageBar>("quorviViewStages");
        QCOMPARE(bar->accessibleDescription(),
            QStringLiteral("Stage 2 of 3 is current. All stages, in DPI: 400, 800, 1600"));
        fixture.press("quorviSliderSensitivityX", Qt::Key_Right);
        QCOMPARE(bar->texts(), QStringList({"400", "825", "1600"}));
        QCOMPARE(bar->stages().at(1).x, 825);
        fixture.click("quorviBoxIndependentXY");
        fixture.press("quorviSliderSensitivityY", Qt::Key_PageUp);
        QCOMPARE(bar->texts().at(1), QStringLiteral("825 × 1075"));
        QCOMPARE(bar->stages().at(1).y, 1075);
        inStagesSheet(fixture, [&](QDialog* sheet) {
            fixture.selectRow("quorviStageTableStages", 2);
            fixture.click("quorviStageButtonAdd");
            endSheet(sheet, true);
        });
        QCOMPARE(bar->currentStage(), 3);
        QCOMPARE(bar->accessibleDescription(),
            QStringLiteral("Stage 4 of 4 is current. All stages, in DPI: 400, 825 × 1075, 1600, 1600"));
    }

    void theCurveIsNeutralWhileAccelerationIsOff() {
        SensitivityFixture fixture;
        const auto tree = PaneFixture::sampleTree();
        tree.array("profiles").dictionary(0).dictionary("driver").set("acceleration", 2.0F);
        fixture.open(tree);
        const auto* curve = fixture.find<AccelerationCurve>("quorviViewAcceleration");
        QCOMPARE(curve->factor(), 1.0F);
        QCOMPARE(
            curve->accessibleDescription(), QStringLiteral("Off: the pointer follows the hand unchanged."));
        fixture.click("quorviBoxAcceleration");
        QCOMPARE(curve->factor(), 2.0F);
        QCOMPARE(curve->accessibleDescription(),
            QStringLiteral("At the hand's full speed, the pointer moves 2.00 times as fast."));
        fixture.press("quorviSliderAcceleration", Qt::Key_Home);
        QCOMPARE(curve->factor(), 0.1F);
        QCOMPARE(curve->accessibleDescription(),
            QStringLiteral("At the hand's full speed, the pointer moves 0.10 times as fast."));
        for (int page = 0; page < 4; ++page)
            fixture.press("quorviSliderAcceleration", Qt::Key_PageUp);
        QCOMPARE(curve->factor(), 1.0F);
        QCOMPARE(curve->accessibleDescription(),
            QStringLiteral("The pointer follows the hand unchanged at every speed."));
    }

    void aFactorHasTheDecimalSignOfTheLocale() {
        const QLocale before;
        QLocale::setDefault(QLocale(QLocale::German));
        SensitivityFixture fixture;
        const auto tree = PaneFixture::sampleTree();
        tree.array("profiles").dictionary(0).dictionary("driver").set("acceleration", 0.5F);
        fixture.open(tree);
        fixture.click("quorviBoxAcceleration");
        QCOMPARE(fixture.find<AccelerationCurve>("quorviViewAcceleration")->accessibleDescription(),
            QStringLiteral("At the hand's full speed, the pointer moves 0,50 times as fast."));
        QLocale::setDefault(before);
    }

    void withoutAMouseBothAreGrey() {
        SensitivityFixture fixture;
        fixture.open();
        for (const char* view : {"quorviViewStages", "quorviViewAcceleration"})
            QVERIFY(fixture.isEnabled(view));
        fixture.connectDevices(0);
        for (const char* view : {"quorviViewStages", "quorviViewAcceleration"})
            QTRY_VERIFY(!fixture.isEnabled(view));
    }
};

QUORVI_PANE_TEST_MAIN(SensitivityViewsTest)
#include "SensitivityViewsTest.moc"
