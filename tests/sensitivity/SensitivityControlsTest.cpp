// The controls of the sensitivity tab, by mouse, key and wheel: the result in the file, and a single message
// to the helper.

#include <QLabel>

#include "pane/PaneTestMain.h"
#include "sensitivity/SensitivityFixture.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr char kX[] = "quorviSliderSensitivityX";
constexpr char kY[] = "quorviSliderSensitivityY";
constexpr char kSeparate[] = "quorviBoxIndependentXY";
constexpr char kStrength[] = "quorviSliderAcceleration";
constexpr char kAccelerated[] = "quorviBoxAcceleration";
constexpr char kDisplay[] = "quorviBoxSensitivityOSD";

plist::Dictionary treeWithDriver(std::string_view key, const plist::Value& value) {
    const auto tree = PaneFixture::sampleTree();
    tree.array("profiles").dictionary(0).dictionary("driver").set(key, value);
    return tree;
}

} // namespace

class SensitivityControlsTest : public QObject {
    Q_OBJECT

  private slots:
    void xMovesYWithItWhileTheAxesAreOne() {
        SensitivityFixture fixture;
        fixture.open();
        fixture.press(kX, Qt::Key_Right);
        QCOMPARE(fixture.savedResolution(), QStringLiteral("825/825"));
        QVERIFY(fixture.announced(1));
        QCOMPARE(fixture.text("quorviTextDPI"), QStringLiteral("825 DPI"));
        QCOMPARE(fixture.slider(kY)->value(), 825);
        QVERIFY(!fixture.isEnabled(kY));
        QCOMPARE(resolutionOf(fixture.savedStages().dictionary(0)), QStringLiteral("400/400"));
        QCOMPARE(resolutionOf(fixture.savedStages().dictionary(2)), QStringLiteral("1600/1600"));
    }

    void xMovesAloneWhenTheAxesAreSeparate() {
        SensitivityFixture fixture;
        fixture.open(SensitivityFixture::separateAxes(400, 800));
        QCOMPARE(fixture.text("quorviTextDPI"), QStringLiteral("X = 400,  Y = 800 DPI"));
        fixture.press(kX, Qt::Key_Left);
        QCOMPARE(fixture.savedResolution(), QStringLiteral("375/800 separate"));
        QVERIFY(fixture.announced(1));
        QCOMPARE(fixture.text("quorviTextDPI"), QStringLiteral("X = 375,  Y = 800 DPI"));
    }

    void yMovesAlone() {
        SensitivityFixture fixture;
        fixture.open(SensitivityFixture::separateAxes(400, 800));
        fixture.press(kY, Qt::Key_PageUp);
        QCOMPARE(fixture.savedResolution(), QStringLiteral("400/1050 separate"));
        QVERIFY(fixture.announced(1));
        QCOMPARE(fixture.text("quorviTextDPI"), QStringLiteral("X = 400,  Y = 1050 DPI"));
    }

    // The stage says whether the axes are one, whatever the settings in force say.
    void theStagesFlagDecides() {
        SensitivityFixture fixture;
        fixture.open();
        fixture.pane->deviceConfig()
            .array("profiles")
            .dictionary(0)
            .array("stages")
            .dictionary(1)
            .set("independentxy", true);
        fixture.press(kX, Qt::Key_Right);
        QCOMPARE(fixture.savedResolution(), QStringLiteral("stage 825/800 separate, settings 825/800"));
        QVERIFY(fixture.announced(1));
    }

    void separatingTheAxesEnablesYAndNamesBoth() {
        SensitivityFixture fixture;
        fixture.open();
        QCOMPARE(fixture.text("quorviTextXLabel"), QStringLiteral(" "));
        QCOMPARE(fixture.text("quorviTextYLabel"), QStringLiteral(" "));
        fixture.click(kSeparate);
        QCOMPARE(fixture.savedResolution(), QStringLiteral("800/800 separate"));
        QVERIFY(fixture.announced(1));
        QVERIFY(fixture.isEnabled(kY));
        QCOMPARE(fixture.text("quorviTextXLabel"), QStringLiteral("X"));
        QCOMPARE(fixture.text("quorviTextYLabel"), QStringLiteral("Y"));
        QCOMPARE(fixture.text("quorviTextDPI"), QStringLiteral("X = 800,  Y = 800 DPI"));
    }

    void joiningTheAxesGivesYTheValueOfXInEachPlace() {
        SensitivityFixture fixture;
        fixture.open(SensitivityFixture::separateAxes(400, 800));
        // In force is something else than in the stage; each takes its own X over.
        fixture.pane->deviceConfig().dictionary("settings").set("dpix", 1000);
        fixture.click(kSeparate);
        QCOMPARE(fixture.savedResolution(), QStringLiteral("stage 400/400, settings 1000/1000"));
        QVERIFY(fixture.announced(1));
        QVERIFY(!fixture.isEnabled(kY));
        QCOMPARE(fixture.text("quorviTextDPI"), QStringLiteral("1000 DPI"));
    }

    void everyWayToMoveASliderEndsOnAMultipleOfTheStep() {
        SensitivityFixture fixture;
        fixture.open();
        const struct {
            Qt::Key key;
            int value;
        } keys[] = {{Qt::Key_Right, 825}, {Qt::Key_Up, 850}, {Qt::Key_Left, 825}, {Qt::Key_Down, 800},
            {Qt::Key_PageUp, 1050}, {Qt::Key_PageDown, 800}, {Qt::Key_End, 6475}, {Qt::Key_Home, 100}};
        for (const auto& [key, value] : keys) {
            fixture.press(kX, key);
            QCOMPARE(fixture.savedResolution(), QStringLiteral("%1/%1").arg(value));
            QVERIFY(fixture.announced(1));
        }
        turnWheel(*fixture.slider(kX), 120);
        QCOMPARE(fixture.savedSettingsPart().integer("dpix"), 100 + 25 * QApplication::wheelScrollLines());
        QVERIFY(fixture.announced(1));
    }

    void aStoredValueBetweenTwoStepsIsShownAndLeftUntilTheUserMoves() {
        SensitivityFixture fixture;
        auto tree = SensitivityFixture::separateAxes(812, 803);
        fixture.open(tree);
        QCOMPARE(fixture.text("quorviTextDPI"), QStringLiteral("X = 812,  Y = 803 DPI"));
        QCOMPARE(fixture.slider(kX)->value(), 812);
        QTest::mouseClick(fixture.slider(kX), Qt::LeftButton, {}, handleOf(*fixture.slider(kX)));
        QVERIFY(fixture.nothingHappened());
        fixture.press(kX, Qt::Key_Right);
        QCOMPARE(fixture.savedResolution(), QStringLiteral("825/803 separate"));
        QVERIFY(fixture.announced(1));
    }

    void aKeyAtTheEndOfASliderSavesNothing() {
        SensitivityFixture fixture;
        fixture.open(SensitivityFixture::separateAxes(6475, 100));
        fixture.press(kX, Qt::Key_Right);
        fixture.press(kY, Qt::Key_PageDown);
        QVERIFY(fixture.nothingHappened());
    }

    void aSliderIsDraggedInWholeSteps() {
        SensitivityFixture fixture;
        fixture.open();
        KyvarQuorviSlider* slider = fixture.slider(kX);
        QTest::mousePress(slider, Qt::LeftButton, {}, handleOf(*slider));
        int saves = 0;
        for (int x = handleOf(*slider).x(); x < slider->width(); x += 13) {
            const int before = slider->value();
            dragTo(*slider, QPoint(x, 8));
            saves += slider->value() != before;
            QCOMPARE((slider->value() - 100) % 25, 0);
            QCOMPARE(fixture.savedResolution(), QStringLiteral("%1/%1").arg(slider->value()));
            QCOMPARE(fixture.text("quorviTextDPI"), QStringLiteral("%1 DPI").arg(slider->value()));
        }
        QTest::mouseRelease(slider, Qt::LeftButton, {}, QPoint(slider->width() - 1, 8));
        QVERIFY(saves > 20);
        QVERIFY(fixture.announced(saves));
    }

    void theStrengthIsStoredAsItsFactor_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<float>("from");
        QTest::addColumn<float>("factor");
        QTest::newRow("one step up from the middle") << int(Qt::Key_Right) << 1.0F << 1.02F;
        QTest::newRow("one step down from the middle") << int(Qt::Key_Left) << 1.0F << 0.88F;
        QTest::newRow("a page up") << int(Qt::Key_PageUp) << 1.0F << 1.2F;
        QTest::newRow("a page down") << int(Qt::Key_PageDown) << 1.0F << 0.7F;
        QTest::newRow("lowest") << int(Qt::Key_Home) << 1.0F << 0.1F;
        QTest::newRow("highest") << int(Qt::Key_End) << 1.0F << 2.0F;
        QTest::newRow("up to the middle") << int(Qt::Key_PageUp) << 0.7F << 1.0F;
    }

    void theStrengthIsStoredAsItsFactor() {
        QFETCH(int, key);
        QFETCH(float, from);
        QFETCH(float, factor);
        const auto tree = treeWithDriver("enableaccel", true);
        tree.array("profiles").dictionary(0).dictionary("driver").set("acceleration", from);
        SensitivityFixture fixture;
        fixture.open(tree);
        fixture.press(kStrength, Qt::Key(key));
        QCOMPARE(float(fixture.savedDriver().real("acceleration")), factor);
        QVERIFY(fixture.announced(1));
    }

    void aStoredStrengthOutOfRangeShowsTheMiddle_data() {
        QTest::addColumn<double>("stored");
        for (const double stored : {0.05, 2.5, 0.0, -1.0, 1e300})
            QTest::addRow("%g", stored) << stored;
    }

    void aStoredStrengthOutOfRangeShowsTheMiddle() {
        QFETCH(double, stored);
        SensitivityFixture fixture;
        fixture.open(treeWithDriver("acceleration", stored));
        QCOMPARE(fixture.slider(kStrength)->floatValue(), 5.0F);
        QCOMPARE(fixture.pane->deviceConfig()
                     .array("profiles")
                     .dictionary(0)
                     .dictionary("driver")
                     .real("acceleration"),
            stored);
    }

    void theAccelerationBoxEnablesItsSlider() {
        SensitivityFixture fixture;
        fixture.open();
        QVERIFY(!fixture.isEnabled(kStrength));
        fixture.click(kAccelerated);
        QVERIFY(fixture.savedDriver().boolean("enableaccel"));
        QVERIFY(fixture.announced(1));
        QVERIFY(fixture.isEnabled(kStrength));
        fixture.press(kAccelerated, Qt::Key_Space);
        QVERIFY(!fixture.savedDriver().boolean("enableaccel"));
        QVERIFY(fixture.announced(1));
        QVERIFY(!fixture.isEnabled(kStrength));
    }

    void theDisplayOptionIsStored() {
        SensitivityFixture fixture;
        fixture.open();
        QVERIFY(fixture.isChecked(kDisplay));
        fixture.click(kDisplay);
        QVERIFY(!fixture.savedDriver().boolean("sensitivityosd"));
        QVERIFY(fixture.announced(1));
        fixture.press(kDisplay, Qt::Key_Space);
        QVERIFY(fixture.savedDriver().boolean("sensitivityosd"));
        QVERIFY(fixture.announced(1));
        QCOMPARE(fixture.savedDriver().real("acceleration"), 1.0);
    }

    void theOptionsAreThoseOfTheCurrentProfile() {
        SensitivityFixture fixture;
        fixture.open();
        fixture.selectTab(2);
        fixture.selectRow("quorviTableProfiles", 1);
        QVERIFY(fixture.commandsBecome({"KyPR 1"}));
        fixture.helper->forget();
        fixture.selectTab(1);
        fixture.click(kAccelerated);
        QVERIFY(fixture.commandsBecome({"KyPR 1"}));
        QVERIFY(!fixture.savedDriver().boolean("enableaccel"));
        QVERIFY(fixture.savedSettings()
                    .array("profiles")
                    .dictionary(1)
                    .dictionary("driver")
                    .boolean("enableaccel"));
    }

    void showingTheTreeActsOnNothing() {
        SensitivityFixture fixture;
        fixture.open();
        const auto tree = SensitivityFixture::separateAxes(2000, 3000);
        const auto driver = tree.array("profiles").dictionary(0).dictionary("driver");
        driver.set("acceleration", 0.3F);
        driver.set("enableaccel", true);
        driver.set("sensitivityosd", false);
        fixture.writeSettings(tree);
        (void)fixture.nothingHappened();
        fixture.helper->sendDeviceList(1);
        QTRY_COMPARE(fixture.slider(kX)->value(), 2000);
        QCOMPARE(fixture.slider(kY)->value(), 3000);
        QCOMPARE(fixture.slider(kStrength)->floatValue(), 2.0F);
        QVERIFY(fixture.isChecked(kAccelerated) && !fixture.isChecked(kDisplay));
        QVERIFY(fixture.nothingHappened());
    }

    void aSaveThatFailsKeepsTheChangeAndTellsNobody() {
        SensitivityFixture fixture;
        fixture.open();
        std::filesystem::remove(fixture.settingsFile());
        std::filesystem::create_directory(fixture.settingsFile());
        fixture.press(kX, Qt::Key_Right);
        QCOMPARE(fixture.text("quorviTextDPI"), QStringLiteral("825 DPI"));
        std::filesystem::remove(fixture.settingsFile());
        fixture.press(kX, Qt::Key_Right);
        QCOMPARE(fixture.savedResolution(), QStringLiteral("850/850"));
        QVERIFY(fixture.announced(1)); // of the second, not of the first
    }
};

QUORVI_PANE_TEST_MAIN(SensitivityControlsTest)
#include "SensitivityControlsTest.moc"
