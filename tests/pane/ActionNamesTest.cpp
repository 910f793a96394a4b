// The undo button's names of user actions: every change has a name, and is one action.

#include <QCheckBox>
#include <QDir>
#include <QPushButton>

#include <array>

#include "model/ItemFile.h"
#include "pane/AssignmentFixture.h"
#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"
#include "resources/MenuTags.h"
#include "resources/TableTags.h"
#include "support/Tabs.h"
#include "widgets/KyvarQuorviSlider.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr const char* kProfileGear = "quorviButtonProfileGear";
constexpr const char* kProfiles = "quorviTableProfiles";
constexpr const char* kMacros = "quorviTableMacros";

/// The action that is undone next; what the button says without one.
QString last(const PaneFixture& fixture) {
    QString tip = fixture.find<QPushButton>("quorviButtonUndo")->toolTip().section(" (Ctrl", 0, 0);
    return tip.startsWith(QLatin1String("Undo ")) ? tip.mid(5) : tip;
}

void undo(const PaneFixture& fixture) {
    fixture.click("quorviButtonUndo");
}

/// The panel at the tab.
std::unique_ptr<PaneFixture> panelAt(int tab) {
    auto fixture = std::make_unique<PaneFixture>();
    fixture->openWith(PaneFixture::sampleTree());
    fixture->selectTab(tab);
    fixture->window->resize(900, 700);
    QCoreApplication::processEvents();
    return fixture;
}

/// Leaves the cell that a new item's name is edited in, with that name.
void typeName(const PaneFixture& fixture, const char* table, const char* name) {
    if (!waitForCellEditor(fixture, table))
        qFatal("the name is not edited");
    QTest::keyClicks(cellEditor(fixture, table), QLatin1String(name));
    QTest::keyClick(cellEditor(fixture, table), Qt::Key_Return);
    if (!QTest::qWaitFor([&] { return !cellEditor(fixture, table); }, kWindowPatienceMs))
        qFatal("the name is still edited");
}

void selectProfile(const PaneFixture& fixture, int row) {
    fixture.selectRow(kProfiles, row);
    QCoreApplication::processEvents();
}

void confirmAndClick(const PaneFixture& fixture, const char* button) {
    clickInSheet(fixture.window.get(), "quorviPanelConfirm", "quorviConfirmButtonOK");
    fixture.click(button);
}

/// The file of an item of the sample tree.
QString fileOf(const PaneFixture& fixture, const char* list, const char* name) {
    const QString path = fixture.home.filePath(QLatin1String(name));
    if (writeItemFile(PaneFixture::sampleTree().array(list).dictionary(1), path.toStdString()))
        qFatal("the file cannot be written");
    return path;
}

} // namespace

class ActionNamesTest : public QObject {
    Q_OBJECT

  private slots:
    void ofTheInputs() {
        AssignmentFixture fixture;
        fixture.open();
        QCOMPARE(last(fixture), QStringLiteral("Nothing to undo"));
        choose(fixture.popUp(4), {"Back"});
        QCOMPARE(last(fixture), QStringLiteral("Assign Button 4"));
        choose(fixture.popUp(5), {"Switch to Profile", "Game"});
        QCOMPARE(last(fixture), QStringLiteral("Assign Button 5"));
        choose(fixture.popUp(8), {"Run Macro", "World"});
        QCOMPARE(last(fixture), QStringLiteral("Assign Wheel Up"));
        choose(fixture.popUp(9), {"Scroll Left"});
        QCOMPARE(last(fixture), QStringLiteral("Assign Wheel Down"));
    }

    void aChoiceThatChangesNothingIsNone() {
        AssignmentFixture fixture;
        fixture.open();
        choose(fixture.popUp(4), {"No Function"});
        QCOMPARE(last(fixture), QStringLiteral("Nothing to undo"));
    }

    void ofAKeyThatIsAskedFor() {
        AssignmentFixture fixture;
        fixture.open();
        for (const bool ok : {false, true}) {
            bool isAnswered = false;
            whenSheetIsUp(fixture.window.get(), "quorviPanelSingleKey", [ok, &isAnswered](QDialog* sheet) {
                for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
                    QKeyEvent left(type, Qt::Key_Left, Qt::NoModifier, 113, 0xFF51, 0); // as X11 tells of it
                    QCoreApplication::sendEvent(sheet->windowHandle(), &left);
                }
                clickButton(outlet<QAbstractButton>(
                    sheet, ok ? "quorviSingleKeyButtonOK" : "quorviSingleKeyButtonCancel"));
                isAnswered = true;
            });
            choose(fixture.popUp(6), {"Press Key"});
            QTRY_VERIFY(isAnswered);
            QTRY_VERIFY(!fixture.find<QDialog>("quorviPanelSingleKey")->isVisible());
            QTRY_COMPARE(
                last(fixture), ok ? QStringLiteral("Assign Button 6") : QStringLiteral("Nothing to undo"));
        }
    }

    void ofTheSensitivity() {
        const auto fixture = panelAt(kSensitivityTab);
        for (const char* slider : {"quorviSliderSensitivityX", "quorviSliderAcceleration"}) {
            if (slider == QLatin1String("quorviSliderAcceleration")) {
                fixture->click("quorviBoxAcceleration");
                QCOMPARE(last(*fixture), QStringLiteral("Turn On Acceleration"));
            }
            QTest::keyClick(fixture->find<KyvarQuorviSlider>(slider), Qt::Key_Right);
            QCOMPARE(last(*fixture), slider == QLatin1String("quorviSliderAcceleration")
                                         ? QStringLiteral("Change Acceleration")
                                         : QStringLiteral("Change Sensitivity"));
        }
        fixture->click("quorviBoxAcceleration");
        QCOMPARE(last(*fixture), QStringLiteral("Turn Off Acceleration"));
        fixture->click("quorviBoxIndependentXY");
        QCOMPARE(last(*fixture), QStringLiteral("Set X and Y Separately"));
        QTest::keyClick(fixture->find<KyvarQuorviSlider>("quorviSliderSensitivityY"), Qt::Key_Right);
        QCOMPARE(last(*fixture), QStringLiteral("Change Sensitivity"));
        fixture->click("quorviBoxIndependentXY");
        QCOMPARE(last(*fixture), QStringLiteral("Set X and Y Together"));
    }

    void ofTheDisplays() {
        const auto fixture = panelAt(kSensitivityTab);
        const bool shown = fixture->find<QAbstractButton>("quorviBoxSensitivityOSD")->isChecked();
        for (const bool shows : {!shown, shown}) {
            fixture->click("quorviBoxSensitivityOSD");
            QCOMPARE(last(*fixture), shows ? QStringLiteral("Show Sensitivity on Screen")
                                           : QStringLiteral("Do Not Show Sensitivity on Screen"));
        }
        fixture->selectTab(kProfilesTab);
        const bool named = fixture->find<QAbstractButton>("quorviBoxProfileOSD")->isChecked();
        for (const bool shows : {!named, named}) {
            fixture->click("quorviBoxProfileOSD");
            QCOMPARE(last(*fixture), shows ? QStringLiteral("Show Profile Name on Screen")
                                           : QStringLiteral("Do Not Show Profile Name on Screen"));
        }
    }

    void ofTheStages() {
        const auto fixture = panelAt(kSensitivityTab);
        whenSheetIsUp(fixture->window.get(), "quorviPanelStages", [](QDialog* sheet) {
            clickButton(outlet<QAbstractButton>(sheet, "quorviStageButtonAdd"));
            clickButton(outlet<QAbstractButton>(sheet, "quorviStagesButtonOK"));
        });
        fixture->click("quorviButtonEditStages");
        QCOMPARE(last(*fixture), QStringLiteral("Change Stages"));
    }

    void ofTheDevice() {
        const auto fixture = panelAt(kDeviceTab);
        choose(fixture->find<PopUpButton>("quorviMenuPollingRate"), {"1000 Hz"});
        QCOMPARE(last(*fixture), QStringLiteral("Change Polling Rate"));
        const std::array lights{std::pair("quorviBoxLightOnWheel", QStringLiteral("Wheel Light")),
            std::pair("quorviBoxLightOnBattery", QStringLiteral("Battery Indicator Light"))};
        for (const auto& [box, name] : lights) {
            const bool lit = fixture->find<QAbstractButton>(box)->isChecked();
            for (const bool on : {!lit, lit}) {
                fixture->click(box);
                QCOMPARE(last(*fixture), (on ? "Turn On " : "Turn Off ") + name);
            }
        }
        confirmAndClick(*fixture, "quorviButtonRestoreDefaults");
        QCOMPARE(last(*fixture), QStringLiteral("Restore Defaults"));
    }

    void ofTheListOfProfiles() {
        const auto fixture = panelAt(kProfilesTab);
        fixture->click("quorviButtonProfileAdd");
        QCOMPARE(last(*fixture), QStringLiteral("New Profile"));
        typeName(*fixture, kProfiles, "Work");
        QCOMPARE(last(*fixture), QStringLiteral("Rename Profile “Work”"));
        chooseInGearMenu(*fixture, kProfileGear, kDuplicateProfileItem);
        typeName(*fixture, kProfiles, "Work 2");
        QCOMPARE(last(*fixture), QStringLiteral("Duplicate Profile “Work”")); // the name is the proposed one
        selectProfile(*fixture, 1);
        QCOMPARE(last(*fixture), QStringLiteral("Switch to Profile “Game”"));
        for (const bool on : {true, false}) {
            fixture->pane->setObjectValue(on, kProfileAutoswitchColumn, 1);
            QCOMPARE(last(*fixture), on ? QStringLiteral("Switch to Profile “Game” Automatically")
                                        : QStringLiteral("Do Not Switch to Profile “Game” Automatically"));
        }
        confirmAndClick(*fixture, "quorviButtonProfileRemove");
        QCOMPARE(last(*fixture), QStringLiteral("Delete Profile “Game”"));
        fixture->pane->importProfileCompletion(fileOf(*fixture, "profiles", "a.quorviProfile"));
        QCOMPARE(last(*fixture), QStringLiteral("Import Profile “Game”"));
        chooseInGearMenu(*fixture, kProfileGear, kNewProfileItem);
        QCOMPARE(last(*fixture), QStringLiteral("New Profile"));
    }

    void anAddedProfileIsOneActionWithTheSwitchToIt() {
        const auto fixture = panelAt(kProfilesTab);
        const auto before = plist::Value(fixture->savedSettings());
        fixture->click("quorviButtonProfileAdd");
        QTest::keyClick(cellEditor(*fixture, kProfiles), Qt::Key_Escape);
        undo(*fixture);
        QCOMPARE(last(*fixture), QStringLiteral("Nothing to undo"));
        QVERIFY(plist::Value(fixture->savedSettings()) == before);
    }

    void aDeletedProfileIsOneActionWithTheSwitchFromIt() {
        const auto fixture = panelAt(kProfilesTab);
        selectProfile(*fixture, 1);
        const auto before = plist::Value(fixture->savedSettings());
        confirmAndClick(*fixture, "quorviButtonProfileRemove");
        undo(*fixture);
        QCOMPARE(last(*fixture), QStringLiteral("Switch to Profile “Game”"));
        QVERIFY(plist::Value(fixture->savedSettings()) == before);
    }

    void ofAnApplication() {
        const auto fixture = panelAt(kProfilesTab);
        fixture->pane->assignApplication(QStringLiteral("/usr/bin/bild"));
        QCOMPARE(last(*fixture), QStringLiteral("Assign Application “bild”"));
        chooseInGearMenu(*fixture, kProfileGear, kRemoveApplicationItem);
        QCOMPARE(last(*fixture), QStringLiteral("Remove Application"));
    }

    void ofTheListOfMacros() {
        MacroFixture fixture;
        fixture.click("quorviButtonMacroAdd");
        QCOMPARE(last(fixture), QStringLiteral("New Macro"));
        typeName(fixture, kMacros, "Build");
        QCOMPARE(last(fixture), QStringLiteral("Rename Macro “Build”"));
        confirmAndClick(fixture, "quorviButtonMacroRemove");
        QCOMPARE(last(fixture), QStringLiteral("Delete Macro “Build”"));
        fixture.pane->importMacroCompletion(fileOf(fixture, "macros", "a.quorviMacro"));
        QCOMPARE(last(fixture), QStringLiteral("Import Macro “World”"));
    }

    void ofTheSteps() {
        MacroFixture fixture({"1 4 300", "0 4 500", "1 5 20", "0 5 0"});
        fixture.selectStep(0);
        fixture.pane->setObjectValue(3, kStepDelayColumn, 0);
        QCOMPARE(last(fixture), QStringLiteral("Change Delay"));
        fixture.chooseForSteps(kUseDelayForAllItem);
        QCOMPARE(last(fixture), QStringLiteral("Use This Delay for All Steps"));
        fixture.chooseForSteps(kRemoveAllDelaysItem);
        QCOMPARE(last(fixture), QStringLiteral("Remove All Delays"));
        fixture.selectStep(3);
        fixture.click("quorviButtonStepRemove");
        QCOMPARE(last(fixture), QStringLiteral("Remove Step"));
        fixture.chooseForSteps(kRemoveAllStepsItem);
        QCOMPARE(last(fixture), QStringLiteral("Remove All Steps"));
        undo(fixture);
        QCOMPARE(fixture.savedSteps(), QStringList({"1 4 0", "0 4 0", "1 5 0"}));
    }

    void aRecordingIsOneAction() {
        MacroFixture fixture({"1 4 300", "0 4 0"});
        fixture.record();
        fixture.tap(scancodes::b);
        fixture.tap(scancodes::x);
        fixture.pane->startStopRecording(false, false);
        QCOMPARE(last(fixture), QStringLiteral("Record Macro “Hello”"));
        QCOMPARE(fixture.steps().size(), 6);
        undo(fixture);
        QCOMPARE(fixture.savedSteps(), QStringList({"1 4 300", "0 4 0"}));
        QCOMPARE(last(fixture), QStringLiteral("Nothing to undo"));
    }

    void aRecordingOfNothingIsNone() {
        MacroFixture fixture({"1 4 300", "0 4 0"});
        fixture.record();
        fixture.press(scancodes::escape, 0xff1b); // held to end it
        fixture.wait(2000);
        QVERIFY(!fixture.pane->isRecordingMacro());
        QCOMPARE(last(fixture), QStringLiteral("Nothing to undo"));
    }

    void ofAStepThatIsRecordedAgain() {
        MacroFixture fixture({"1 4 300", "0 4 0"});
        fixture.selectStep(0);
        fixture.chooseForSteps(kRecordStepItem);
        fixture.tap(scancodes::b);
        QCOMPARE(last(fixture), QStringLiteral("Record Step Again"));
        QCOMPARE(fixture.steps(), QStringList({"1 5 300", "0 5 0"}));
    }

    void aLongNameIsCut() {
        MacroFixture fixture;
        auto tree = MacroFixture::treeWith({});
        tree.array("macros").dictionary(0).set("name", std::u16string(1000, u'x'));
        fixture.writeSettings(tree);
        fixture.connectDevices(1);
        fixture.selectRow(kMacros, 0);
        fixture.record();
        fixture.tap(scancodes::a);
        fixture.pane->startStopRecording(false, false);
        QCOMPARE(last(fixture), "Record Macro “" + QString(80, QLatin1Char('x')) + "…”");
    }
};

QUORVI_PANE_TEST_MAIN(ActionNamesTest)
#include "ActionNamesTest.moc"
