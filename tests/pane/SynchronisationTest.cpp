// The controls after a device list has arrived.

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabWidget>

#include "model/Keys.h"
#include "pane/PaneFixture.h"
#include "pane/PaneTestMain.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/PopUpButton.h"
#include "widgets/StageBar.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

plist::Dictionary sampleWith(std::string_view key, const plist::Value& value) {
    auto tree = PaneFixture::sampleTree();
    tree.set(key, value);
    return tree;
}

plist::Array copies(const char* key, std::size_t count) {
    const plist::Value first = PaneFixture::sampleTree().array(key).value(0);
    auto result = plist::Array::create();
    for (std::size_t i = 0; i < count; ++i)
        result.append(first);
    return result;
}

/// Connects a list without devices and closes the sheet that says so.
void connectNothing(PaneFixture& fixture) {
    clickInSheet(fixture.window.get(), "quorviPanelNoDevice", "quorviNoDeviceButtonOK");
    fixture.connectDevices(0);
    fixture.helper->forget();
}

/// Values that the key of a tree cannot have, and the empty ones of those that it can.
std::vector<plist::Value> valuesOfEveryOtherType(const QByteArray& key) {
    std::vector<plist::Value> values{
        u"text", plist::Data{1, 2}, plist::Array::create(), plist::Dictionary::create()};
    // A number of any type is a version.
    if (key != "firmware")
        values.insert(values.end(), {7, true, 1.5});
    return values;
}

/// What the window shows of each part of the tree.
QString summaryOf(const PaneFixture& fixture) {
    const auto rows = [&](const char* table) {
        return fixture.find<KyvarQuorviTableView>(table)->model()->rowCount();
    };
    return QStringLiteral("%1, row %2 of %3, %4 macros, %5")
        .arg(fixture.text("quorviTextProfile"))
        .arg(fixture.selectedRow("quorviTableProfiles"))
        .arg(rows("quorviTableProfiles"))
        .arg(rows("quorviTableMacros"))
        .arg(fixture.text("quorviTextFirmwareVersion"));
}

} // namespace

class SynchronisationTest : public QObject {
    Q_OBJECT

  private slots:
    void aFirstListWithoutDevicesGreysEverythingButTheUpdateButton() {
        PaneFixture fixture;
        fixture.writeSettings(PaneFixture::sampleTree());
        fixture.select();
        connectNothing(fixture);
        QCOMPARE(fixture.text("quorviTextProfile"), QStringLiteral("No device connected"));
        QCOMPARE(fixture.text("quorviTextFirmwareVersion"), QStringLiteral("-"));
        QVERIFY(fixture.isEnabled("quorviButtonCheckForUpdates"));
        const auto* tabs = fixture.find<QTabWidget>("quorviTabsMain");
        for (const char* control : {"quorviMenuTop1", "quorviMenuTop9", "quorviSliderSensitivityX",
                 "quorviBoxIndependentXY", "quorviTableProfiles", "quorviButtonProfileAdd",
                 "quorviTableMacros", "quorviButtonMacroGear", "quorviButtonStepRecord",
                 "quorviMenuPollingRate", "quorviBoxLightOnWheel", "quorviButtonRestoreDefaults"})
            QVERIFY2(
                tabs->findChild<QWidget*>(QLatin1String(control)) && !fixture.isEnabled(control), control);
        const auto* label = fixture.find<QLabel>("quorviTextDPI");
        QCOMPARE(label->palette().color(QPalette::Active, QPalette::WindowText),
            QApplication::palette(label).color(QPalette::Disabled, QPalette::WindowText));
        QVERIFY(fixture.isEnabled("quorviTextDPI"));
    }

    void theNoDeviceSheetIsShownOnceOnly() {
        PaneFixture fixture;
        fixture.select();
        connectNothing(fixture);
        for (int list = 0; list < 2; ++list) {
            fixture.helper->sendDeviceList(0);
            QVERIFY(!QTest::qWaitFor(
                [&] { return fixture.find<QDialog>("quorviPanelNoDevice")->isVisible(); }, 200));
        }
    }

    void theNoDeviceSheetIsNotShownWhenTheFirstListHadADevice() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.helper->sendDeviceList(0);
        QTRY_COMPARE(fixture.text("quorviTextProfile"), QStringLiteral("No device connected"));
        QVERIFY(!fixture.find<QDialog>("quorviPanelNoDevice")->isVisible());
    }

    void theNoDeviceSheetStacksInFrontOfAnotherSheet() {
        PaneFixture fixture;
        fixture.writeSettings(PaneFixture::sampleTree());
        fixture.select();
        QStringList ended;
        whenSheetIsUp(fixture.window.get(), "quorviPanelConfirm", [&](QDialog* confirm) {
            whenSheetIsUp(fixture.window.get(), "quorviPanelNoDevice", [&](QDialog* noDevice) {
                QCOMPARE(noDevice->parentWidget(), confirm);
                ended << QStringLiteral("no device");
                QTest::mouseClick(
                    noDevice->findChild<QPushButton*>("quorviNoDeviceButtonOK"), Qt::LeftButton);
            });
            fixture.connectDevices(0);
            QTRY_COMPARE(ended.size(), 1);
            ended << QStringLiteral("confirm");
            confirm->reject();
        });
        QVERIFY(!fixture.pane->confirmAction(QStringLiteral("Question"), std::nullopt));
        QCOMPARE(ended, QStringList({"no device", "confirm"}));
        QCOMPARE(fixture.find<QDialog>("quorviPanelNoDevice")->parentWidget(), fixture.pane->mainView());
    }

    void aListReadsTheFileAfreshAndDropsWhatWasOnlyInMemory() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.pane->deviceConfig().array("profiles").dictionary(0).set("name", u"Only in memory");
        auto changed = PaneFixture::sampleTree();
        changed.dictionary("settings").set("pollingrate", 1000);
        fixture.writeSettings(changed);
        fixture.helper->sendDeviceList(1);
        QTRY_COMPARE(fixture.find<PopUpButton>("quorviMenuPollingRate")->selectedTag(), 1000);
        QCOMPARE(fixture.text("quorviTextProfile"), QStringLiteral("Desk"));
    }

    void anInvalidUserFileGivesTheDefaultsAndIsReplacedAtTheNextSave() {
        PaneFixture fixture;
        fixture.openWith(sampleWith("version", 5));
        QCOMPARE(fixture.text("quorviTextProfile"), QStringLiteral("Default Profile"));
        QVERIFY(fixture.pane->saveSettings(fixture.pane->deviceConfig()));
        QCOMPARE(fixture.savedSettings().integer("version"), 6);
        QCOMPARE(fixture.savedSettings().array("macros").size(), 0U);
    }

    void danglingAssignmentsAreRepairedOnLoading() {
        auto tree = PaneFixture::sampleTree();
        auto lost = plist::Dictionary::create();
        lost.set("command", 65);
        lost.set("param1", 9);
        tree.array("profiles").dictionary(0).dictionary("buttons").set("03", lost);
        PaneFixture fixture;
        fixture.openWith(tree);
        const auto repaired = fixture.pane->deviceConfig()
                                  .array("profiles")
                                  .dictionary(0)
                                  .dictionary("buttons")
                                  .dictionary("03");
        QCOMPARE(repaired.integer("command"), 0);
        QCOMPARE(repaired.size(), 1U);
    }

    void theProfileThatTheFileNamesIsCurrentAndSelected() {
        auto tree = PaneFixture::sampleTree();
        tree.dictionary("settings").set("profileid", 2);
        PaneFixture fixture;
        fixture.openWith(tree);
        QCOMPARE(fixture.pane->profileIndex(), 1);
        QCOMPARE(fixture.selectedRow("quorviTableProfiles"), 1);
        QCOMPARE(fixture.text("quorviTextProfile"), QStringLiteral("Game"));
        QCOMPARE(fixture.selectedRow("quorviTableMacros"), -1);
        QVERIFY(fixture.commandsBecome({}));
    }

    void differentAxesTurnTheIndependentFlagOnAndTheStageTakesTheValues_data() {
        QTest::addColumn<int>("defaultStage");
        QTest::newRow("default stage is the current one") << 2;
        QTest::newRow("default stage is another one") << 1;
    }

    void differentAxesTurnTheIndependentFlagOnAndTheStageTakesTheValues() {
        QFETCH(int, defaultStage);
        auto tree = PaneFixture::sampleTree();
        tree.dictionary("settings").set("dpiy", 1600);
        tree.array("profiles").dictionary(0).set("defaultstage", defaultStage);
        PaneFixture fixture;
        fixture.writeSettings(tree);
        fixture.select();
        fixture.connectDevices(1);
        QVERIFY(fixture.commandsBecome({"KyRO 1", "KyPR 0"}));
        const auto saved = fixture.savedSettings();
        const auto stage = saved.array("profiles").dictionary(0).array("stages").dictionary(1);
        for (const auto& holder : {saved.dictionary("settings"), stage}) {
            QCOMPARE(holder.integer("dpix"), 800);
            QCOMPARE(holder.integer("dpiy"), 1600);
            QVERIFY(holder.boolean("independentxy"));
        }
        QCOMPARE(saved.dictionary("settings").integer("stage"), 2);
        QCOMPARE(fixture.text("quorviTextDPI"), QStringLiteral("X = 800,  Y = 1600 DPI"));
        QCOMPARE(fixture.find<StageBar>("quorviViewStages")->texts().at(1), QStringLiteral("800 × 1600"));
        QCOMPARE(fixture.text("quorviTextXLabel"), QStringLiteral("X"));
        QCOMPARE(fixture.text("quorviTextYLabel"), QStringLiteral("Y"));
        QVERIFY(fixture.isEnabled("quorviSliderSensitivityY"));
    }

    void equalAxesTurnTheIndependentFlagOff() {
        auto tree = PaneFixture::sampleTree();
        tree.dictionary("settings").set("independentxy", true);
        PaneFixture fixture;
        fixture.openWith(tree);
        QVERIFY(!fixture.pane->deviceConfig().dictionary("settings").boolean("independentxy"));
        QCOMPARE(fixture.text("quorviTextDPI"), QStringLiteral("800 DPI"));
        QCOMPARE(fixture.text("quorviTextXLabel"), QStringLiteral(" "));
        QCOMPARE(fixture.text("quorviTextYLabel"), QStringLiteral(" "));
        QVERIFY(!fixture.isEnabled("quorviSliderSensitivityY"));
        QVERIFY(fixture.commandsBecome({}));
    }

    void fiveProfilesDisableAddingAndTwelveMacrosToo() {
        const auto isAddEnabled = [](const char* key, std::size_t count, const char* button) {
            PaneFixture fixture;
            fixture.openWith(sampleWith(key, copies(key, count)));
            return fixture.isEnabled(button);
        };
        QVERIFY(isAddEnabled("profiles", 4, "quorviButtonProfileAdd"));
        QVERIFY(!isAddEnabled("profiles", 5, "quorviButtonProfileAdd"));
        QVERIFY(isAddEnabled("macros", 11, "quorviButtonMacroAdd"));
        QVERIFY(!isAddEnabled("macros", 12, "quorviButtonMacroAdd"));
    }

    void theFirstProfileCannotBeRemoved() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(2);
        QVERIFY(!fixture.isEnabled("quorviButtonProfileRemove"));
        fixture.selectRow("quorviTableProfiles", 1);
        QVERIFY(fixture.isEnabled("quorviButtonProfileRemove"));
        fixture.selectRow("quorviTableProfiles", 0);
        QVERIFY(!fixture.isEnabled("quorviButtonProfileRemove"));
    }

    void choosingAProfileStartsInItsDefaultStageAndSaves() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(2);
        fixture.selectRow("quorviTableProfiles", 1);
        QVERIFY(fixture.commandsBecome({"KyPR 1"}));
        const auto settings = fixture.savedSettings().dictionary("settings");
        QCOMPARE(settings.integer("profileid"), 2);
        QCOMPARE(settings.integer("stage"), 3);
        QCOMPARE(settings.integer("dpix"), 1600);
    }

    void whileRecordingTheMacrosAndStepsCannotBeChanged() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(3);
        fixture.selectRow("quorviTableMacros", 1);
        fixture.selectRow("quorviTableSteps", 0);
        const auto controls = {"quorviTableMacros", "quorviButtonMacroAdd", "quorviButtonMacroRemove",
            "quorviButtonMacroGear", "quorviButtonStepAdd", "quorviButtonStepRemove", "quorviButtonStepGear"};
        const auto delayCells = [&] {
            auto* steps = fixture.find<KyvarQuorviTableView>("quorviTableSteps")->model();
            return steps->flags(steps->index(0, 1)).testFlag(Qt::ItemIsEnabled);
        };
        for (const char* control : controls)
            QVERIFY2(fixture.isEnabled(control), control);
        QVERIFY(delayCells());
        fixture.pane->startStopRecording(true, false);
        for (const char* control : controls)
            QVERIFY2(!fixture.isEnabled(control), control);
        QVERIFY(!delayCells());
        QVERIFY(fixture.isEnabled("quorviButtonStepRecord"));
        fixture.pane->startStopRecording(false, false);
        for (const char* control : controls)
            QVERIFY2(fixture.isEnabled(control), control);
    }

    void theStepsAreShownOnlyWithAMacroSelectedAndADevice() {
        PaneFixture fixture;
        fixture.openWith(PaneFixture::sampleTree());
        fixture.selectTab(3);
        auto* steps = fixture.find<QStackedWidget>("quorviTabsShowHideSteps");
        QCOMPARE(steps->currentIndex(), 1);
        fixture.selectRow("quorviTableMacros", 0);
        QCOMPARE(steps->currentIndex(), 0);
        QVERIFY(fixture.isEnabled("quorviButtonMacroRemove"));
        fixture.helper->sendDeviceList(0);
        QTRY_COMPARE(steps->currentIndex(), 1);
    }

    void firmwareIsShownAsTwoNumbers_data() {
        QTest::addColumn<int>("firmware");
        QTest::addColumn<QString>("text");
        QTest::newRow("1.05") << 0x0105 << QStringLiteral("1.05");
        QTest::newRow("10.00") << 0x0A00 << QStringLiteral("10.00");
        QTest::newRow("1.18") << 0x0112 << QStringLiteral("1.18");
        QTest::newRow("missing") << -1 << QStringLiteral("0.00");
        QTest::newRow("above 16 bits") << 0x7F0105 << QStringLiteral("1.05");
        QTest::newRow("255.255") << 0xFFFF << QStringLiteral("255.255");
    }

    void firmwareIsShownAsTwoNumbers() {
        QFETCH(int, firmware);
        QFETCH(QString, text);
        auto tree = PaneFixture::sampleTree();
        if (firmware < 0)
            tree.remove("firmware");
        else
            tree.set("firmware", firmware);
        PaneFixture fixture;
        fixture.openWith(tree);
        QCOMPARE(fixture.text("quorviTextFirmwareVersion"), text);
    }

    void everyControlShowsItsValue() {
        auto tree = PaneFixture::sampleTree();
        tree.dictionary("settings").set("pollingrate", 125);
        const auto profile = tree.array("profiles").dictionary(0);
        profile.set("ledstate", 2);
        profile.dictionary("driver").set("enableaccel", true);
        profile.dictionary("driver").set("acceleration", 0.5F);
        profile.dictionary("driver").set("sensitivityosd", false);
        PaneFixture fixture;
        fixture.openWith(tree);
        QCOMPARE(fixture.find<PopUpButton>("quorviMenuPollingRate")->selectedTag(), 125);
        QVERIFY(!fixture.find<QCheckBox>("quorviBoxLightOnWheel")->isChecked());
        QVERIFY(fixture.find<QCheckBox>("quorviBoxLightOnBattery")->isChecked());
        QVERIFY(fixture.find<QCheckBox>("quorviBoxAcceleration")->isChecked());
        QVERIFY(fixture.isEnabled("quorviSliderAcceleration"));
        QCOMPARE(fixture.find<KyvarQuorviSlider>("quorviSliderAcceleration")->floatValue(), 3.0F);
        QVERIFY(!fixture.find<QCheckBox>("quorviBoxSensitivityOSD")->isChecked());
        QVERIFY(fixture.find<QCheckBox>("quorviBoxProfileOSD")->isChecked());
        QCOMPARE(fixture.find<KyvarQuorviSlider>("quorviSliderSensitivityX")->value(), 800);
        QCOMPARE(fixture.find<StageBar>("quorviViewStages")->texts(), QStringList({"400", "800", "1600"}));
        QCOMPARE(fixture.find<StageBar>("quorviViewStages")->currentStage(), 1);
        QCOMPARE(fixture.text("quorviTextConnection"), QStringLiteral("Connected"));
        QCOMPARE(fixture.find<PopUpButton>("quorviMenuTop1")->selectedTag(), 1);
        QCOMPARE(fixture.find<PopUpButton>("quorviMenuTop2")->selectedTag(), 2);
    }

    void aPollingRateWithoutAnItemSelectsNone() {
        auto tree = PaneFixture::sampleTree();
        tree.dictionary("settings").set("pollingrate", 250);
        PaneFixture fixture;
        fixture.openWith(tree);
        QVERIFY(!fixture.find<PopUpButton>("quorviMenuPollingRate")->selectedItem());
    }

    void aProfileWithoutANameIsCalledTheDefaultProfile() {
        auto tree = PaneFixture::sampleTree();
        tree.array("profiles").dictionary(0).set("name", u"");
        PaneFixture fixture;
        fixture.openWith(tree);
        QCOMPARE(fixture.text("quorviTextProfile"), QStringLiteral("Default Profile"));
    }

    void aFileThatNamesNoProfileIsShownWithoutOne() {
        auto tree = PaneFixture::sampleTree();
        tree.dictionary("settings").set("profileid", 77);
        PaneFixture fixture;
        fixture.openWith(tree);
        QCOMPARE(fixture.pane->profileIndex(), -1);
        QCOMPARE(fixture.selectedRow("quorviTableProfiles"), -1);
        QCOMPARE(fixture.text("quorviTextProfile"), QStringLiteral("Default Profile"));
    }

    void valuesOfEveryWrongTypeAreShownAsNothing_data() {
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QString>("shown");
        QTest::newRow("settings") << QByteArray("settings") << "Default Profile, row -1 of 2, 0 macros, 1.05";
        QTest::newRow("profiles") << QByteArray("profiles") << "Default Profile, row -1 of 0, 0 macros, 1.05";
        QTest::newRow("macros") << QByteArray("macros") << "Desk, row 0 of 2, 0 macros, 1.05";
        QTest::newRow("firmware") << QByteArray("firmware") << "Desk, row 0 of 2, 2 macros, 0.00";
    }

    void valuesOfEveryWrongTypeAreShownAsNothing() {
        QFETCH(QByteArray, key);
        QFETCH(QString, shown);
        for (const plist::Value& wrong : valuesOfEveryOtherType(key)) {
            PaneFixture fixture;
            fixture.openWith(sampleWith(key.toStdString(), wrong));
            fixture.pane->updateUI();
            QCOMPARE(summaryOf(fixture), shown);
        }
    }
};

QUORVI_PANE_TEST_MAIN(SynchronisationTest)
#include "SynchronisationTest.moc"
