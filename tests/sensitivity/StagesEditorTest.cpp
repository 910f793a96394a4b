// The sheet of the sensitivity stages: adding, removing and setting them, OK and Cancel, and device lists
// that arrive while it is open.

#include <QGroupBox>
#include <QPushButton>

#include "pane/ListTools.h"
#include "pane/PaneTestMain.h"
#include "plist/DeepCopy.h"
#include "sensitivity/SensitivityFixture.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr char kTable[] = "quorviStageTableStages";
constexpr char kAdd[] = "quorviStageButtonAdd";
constexpr char kRemove[] = "quorviStageButtonRemove";
constexpr char kX[] = "quorviStageSliderX";
constexpr char kY[] = "quorviStageSliderY";
constexpr char kSeparate[] = "quorviStageBoxIndepXY";

QStringList shown(const PaneFixture& fixture) {
    return shownIn(fixture, kTable, 1);
}

plist::Dictionary treeWithStages(int count, int current) {
    const auto tree = PaneFixture::sampleTree();
    const auto stages = plist::Array::create();
    for (int i = 0; i < count; ++i) {
        const auto stage = plist::Dictionary::create();
        stage.set("dpix", 100 * (i + 1));
        stage.set("dpiy", 100 * (i + 1));
        stage.set("independentxy", false);
        stages.append(stage);
    }
    tree.array("profiles").dictionary(0).set("stages", stages);
    const auto settings = tree.dictionary("settings");
    settings.set("stage", current);
    settings.set("dpix", 100 * current);
    settings.set("dpiy", 100 * current);
    return tree;
}

} // namespace

class StagesEditorTest : public QObject {
    Q_OBJECT

  private slots:
    void opensOnTheCurrentStage() {
        SensitivityFixture fixture;
        fixture.open();
        inStagesSheet(fixture, [&](QDialog* sheet) {
            QCOMPARE(shown(fixture), QStringList({"400 DPI", "800 DPI", "1600 DPI"}));
            QCOMPARE(shownIn(fixture, kTable, 0), QStringList({"1", "2", "3"}));
            QCOMPARE(fixture.selectedRow(kTable), 1);
            QCOMPARE(fixture.slider(kX)->value(), 800);
            QVERIFY(fixture.isEnabled(kAdd) && fixture.isEnabled(kRemove) && fixture.isEnabled(kX));
            QVERIFY(!fixture.isEnabled(kY));
            endSheet(sheet, false);
        });
        QVERIFY(fixture.nothingHappened());
    }

    void addingInsertsACopyAfterTheCurrentStageAndMakesItCurrent() {
        SensitivityFixture fixture;
        fixture.open();
        inStagesSheet(fixture, [&](QDialog* sheet) {
            fixture.click(kAdd);
            QCOMPARE(shown(fixture), QStringList({"400 DPI", "800 DPI", "800 DPI", "1600 DPI"}));
            QCOMPARE(fixture.selectedRow(kTable), 2);
            fixture.press(kX, Qt::Key_Right); // a copy of its own
            QCOMPARE(shown(fixture), QStringList({"400 DPI", "800 DPI", "825 DPI", "1600 DPI"}));
            QVERIFY(fixture.nothingHappened());
            endSheet(sheet, true);
        });
        QCOMPARE(fixture.savedResolutions(), QStringList({"400/400", "800/800", "825/825", "1600/1600"}));
        QCOMPARE(fixture.savedSettingsPart().integer("stage"), 3);
        QCOMPARE(fixture.savedSettings().array("profiles").dictionary(0).integer("defaultstage"), 3);
        QCOMPARE(fixture.savedResolution(), QStringLiteral("825/825"));
        QVERIFY(fixture.announced(1));
        QCOMPARE(fixture.text("quorviTextDPI"), QStringLiteral("825 DPI"));
        fixture.press("quorviSliderSensitivityX", Qt::Key_Right); // on into the stored list
        QCOMPARE(fixture.savedResolutions().at(2), QStringLiteral("850/850"));
        QVERIFY(fixture.announced(1));
    }

    void fiveStagesAreTheMost() {
        SensitivityFixture fixture;
        fixture.open(treeWithStages(5, 5));
        inStagesSheet(fixture, [&](QDialog* sheet) {
            QVERIFY(!fixture.isEnabled(kAdd));
            fixture.pane->actionButtonStageAdd();
            QCOMPARE(shown(fixture).size(), 5);
            fixture.click(kRemove);
            QVERIFY(fixture.isEnabled(kAdd));
            endSheet(sheet, false);
        });
    }

    void withTwoStagesRemovingIsOfferedAndDoesNothing() {
        SensitivityFixture fixture;
        fixture.open(treeWithStages(2, 1));
        inStagesSheet(fixture, [&](QDialog* sheet) {
            QVERIFY(fixture.isEnabled(kRemove));
            fixture.click(kRemove);
            fixture.press(kTable, Qt::Key_Delete);
            QCOMPARE(shown(fixture), QStringList({"100 DPI", "200 DPI"}));
            QCOMPARE(fixture.selectedRow(kTable), 0);
            endSheet(sheet, true);
        });
        QCOMPARE(fixture.savedResolutions(), QStringList({"100/100", "200/200"}));
    }

    void withOneStageRemovingIsNotOffered() {
        SensitivityFixture fixture;
        fixture.open(treeWithStages(1, 1));
        inStagesSheet(fixture, [&](QDialog* sheet) {
            QVERIFY(!fixture.isEnabled(kRemove));
            fixture.click(kAdd);
            QVERIFY(fixture.isEnabled(kRemove));
            endSheet(sheet, false);
        });
    }

    void removingMakesTheSuccessorCurrentAndBehindTheLastTheNewLast_data() {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("rest");
        QTest::addColumn<int>("current");
        QTest::newRow("first") << 0 << "200 DPI,300 DPI,400 DPI" << 0;
        QTest::newRow("middle") << 1 << "100 DPI,300 DPI,400 DPI" << 1;
        QTest::newRow("last") << 3 << "100 DPI,200 DPI,300 DPI" << 2;
    }

    void removingMakesTheSuccessorCurrentAndBehindTheLastTheNewLast() {
        QFETCH(int, row);
        QFETCH(QString, rest);
        QFETCH(int, current);
        for (const bool byKey : {false, true}) {
            SensitivityFixture fixture;
            fixture.open(treeWithStages(4, 2));
            inStagesSheet(fixture, [&](QDialog* sheet) {
                fixture.selectRow(kTable, row);
                if (byKey)
                    fixture.press(kTable, Qt::Key_Backspace);
                else
                    fixture.click(kRemove);
                QCOMPARE(shown(fixture).join(','), rest);
                QCOMPARE(fixture.selectedRow(kTable), current);
                endSheet(sheet, true);
            });
            QCOMPARE(fixture.savedSettingsPart().integer("stage"), current + 1);
            QCOMPARE(fixture.savedResolutions().size(), 3);
            QVERIFY(fixture.announced(1));
        }
    }

    void theStageSelectedLastIsTheOneThatTheProfileStartsIn() {
        SensitivityFixture fixture;
        fixture.open();
        inStagesSheet(fixture, [&](QDialog* sheet) {
            fixture.selectRow(kTable, 0);
            fixture.press(kTable, Qt::Key_Down);
            fixture.press(kTable, Qt::Key_Down);
            QCOMPARE(fixture.selectedRow(kTable), 2);
            QCOMPARE(fixture.slider(kX)->value(), 1600);
            endSheet(sheet, true);
        });
        QCOMPARE(fixture.savedSettingsPart().integer("stage"), 3);
        QCOMPARE(fixture.savedSettings().array("profiles").dictionary(0).integer("defaultstage"), 3);
        QCOMPARE(fixture.savedResolution(), QStringLiteral("1600/1600"));
        QVERIFY(fixture.announced(1));
    }

    void clearingTheSelectionSelectsTheFirstStage() {
        SensitivityFixture fixture;
        fixture.open();
        inStagesSheet(fixture, [&](QDialog* sheet) {
            auto* table = fixture.find<KyvarQuorviTableView>(kTable);
            QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::ControlModifier,
                cellOf(fixture, kTable, 1, 1).center());
            QCOMPARE(fixture.selectedRow(kTable), 0);
            QCOMPARE(fixture.slider(kX)->value(), 400);
            endSheet(sheet, true);
        });
        QCOMPARE(fixture.savedSettingsPart().integer("stage"), 1);
    }

    void theAxesOfAStage() {
        SensitivityFixture fixture;
        fixture.open();
        inStagesSheet(fixture, [&](QDialog* sheet) {
            fixture.press(kX, Qt::Key_Right);
            QCOMPARE(shown(fixture).at(1), QStringLiteral("825 DPI"));
            fixture.click(kSeparate);
            QVERIFY(fixture.isEnabled(kY));
            QCOMPARE(shown(fixture).at(1), QStringLiteral("X = 825, Y = 825 DPI"));
            fixture.press(kY, Qt::Key_PageUp);
            fixture.press(kX, Qt::Key_Left);
            QCOMPARE(shown(fixture).at(1), QStringLiteral("X = 800, Y = 1075 DPI"));
            QVERIFY(fixture.nothingHappened());
            endSheet(sheet, true);
        });
        QCOMPARE(fixture.savedResolution(), QStringLiteral("800/1075 separate"));
        QVERIFY(fixture.announced(1));
        inStagesSheet(fixture, [&](QDialog* sheet) {
            fixture.click(kSeparate);
            QCOMPARE(shown(fixture).at(1), QStringLiteral("800 DPI"));
            QVERIFY(!fixture.isEnabled(kY));
            endSheet(sheet, true);
        });
        QCOMPARE(fixture.savedResolution(), QStringLiteral("800/800"));
        QVERIFY(fixture.announced(1));
    }

    void aStagesSliderIsDraggedInWholeStepsAndSavesNothing() {
        SensitivityFixture fixture;
        fixture.open();
        inStagesSheet(fixture, [&](QDialog* sheet) {
            KyvarQuorviSlider* slider = fixture.slider(kX);
            QTest::mousePress(slider, Qt::LeftButton, {}, handleOf(*slider));
            for (int x = handleOf(*slider).x(); x < slider->width(); x += 11) {
                dragTo(*slider, QPoint(x, 8));
                QCOMPARE((slider->value() - 100) % 25, 0);
                QCOMPARE(shown(fixture).at(1), QStringLiteral("%1 DPI").arg(slider->value()));
            }
            QTest::mouseRelease(slider, Qt::LeftButton, {}, QPoint(slider->width() - 1, 8));
            QVERIFY(slider->value() > 6000);
            QVERIFY(fixture.nothingHappened());
            endSheet(sheet, false);
        });
    }

    void cancelForgets_data() {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("button") << false;
        QTest::newRow("Escape") << true;
    }

    void cancelForgets() {
        QFETCH(bool, byKey);
        SensitivityFixture fixture;
        fixture.open();
        const plist::Value before = plist::deepCopy(fixture.pane->deviceConfig());
        inStagesSheet(fixture, [&](QDialog* sheet) {
            fixture.click(kAdd);
            fixture.press(kX, Qt::Key_PageUp);
            fixture.click(kSeparate);
            fixture.selectRow(kTable, 0);
            fixture.click(kRemove);
            if (byKey)
                QTest::keyClick(sheet, Qt::Key_Escape);
            else
                endSheet(sheet, false);
        });
        QVERIFY(plist::Value(fixture.pane->deviceConfig()) == before);
        QVERIFY(fixture.nothingHappened());
        inStagesSheet(fixture, [&](QDialog* sheet) { // and opens on what is stored
            QCOMPARE(shown(fixture), QStringList({"400 DPI", "800 DPI", "1600 DPI"}));
            QCOMPARE(fixture.selectedRow(kTable), 1);
            endSheet(sheet, false);
        });
    }

    void withoutStagesTheSheetShowsTheMiddleAndOkStoresNothing() {
        const auto tree = treeWithStages(0, 2);
        // As in the stage that is not there, so that the panel does not save when it takes the mouse.
        tree.dictionary("settings").set("dpix", 0);
        tree.dictionary("settings").set("dpiy", 0);
        SensitivityFixture fixture;
        fixture.open(tree);
        inStagesSheet(fixture, [&](QDialog* sheet) {
            QCOMPARE(shown(fixture), QStringList());
            QCOMPARE(fixture.slider(kX)->value(), 1500);
            QCOMPARE(fixture.slider(kY)->value(), 1500);
            for (const char* control : {kX, kY, kSeparate, kRemove})
                QVERIFY2(!fixture.isEnabled(control), control);
            fixture.click(kAdd);
            QCOMPARE(shown(fixture), QStringList());
            endSheet(sheet, true);
        });
        QVERIFY(fixture.nothingHappened());
    }

    void theActionsDoNothingWhileTheSheetIsClosed() {
        SensitivityFixture fixture;
        fixture.open();
        const plist::Value before = plist::deepCopy(fixture.pane->deviceConfig());
        fixture.pane->editStageIndex(0);
        fixture.pane->actionButtonStageAdd();
        fixture.pane->actionButtonStageRemove();
        fixture.pane->actionSliderStagesSensitivityX(fixture.slider(kX));
        fixture.pane->actionSliderStagesSensitivityY(fixture.slider(kY));
        fixture.pane->actionBoxStagesIndependentXY(fixture.find<QAbstractButton>(kSeparate));
        fixture.pane->updateSensitivityStagesUI();
        QVERIFY(plist::Value(fixture.pane->deviceConfig()) == before);
        QVERIFY(fixture.nothingHappened());
    }

    // Device lists while the sheet is open.

    void aListThatReplacesTheTreeLeavesTheEditAndOkStoresItInTheNewTree() {
        SensitivityFixture fixture;
        fixture.open();
        inStagesSheet(fixture, [&](QDialog* sheet) {
            fixture.click(kAdd);
            const auto old = fixture.pane->deviceConfig();
            const plist::Value before = plist::deepCopy(old);
            auto changed = PaneFixture::sampleTree();
            changed.dictionary("settings").set("pollingrate", 1000);
            fixture.writeSettings(changed);
            fixture.connectDevices(1);
            QTRY_VERIFY(!fixture.pane->deviceConfig().isSameAs(old));
            QCOMPARE(shown(fixture).size(), 4);
            QCOMPARE(fixture.selectedRow(kTable), 2);
            fixture.press(kX, Qt::Key_Right);
            endSheet(sheet, true);
            QVERIFY(plist::Value(old) == before); // nothing goes into a tree that nobody saves
        });
        QCOMPARE(fixture.savedResolutions(), QStringList({"400/400", "800/800", "825/825", "1600/1600"}));
        QCOMPARE(fixture.savedSettingsPart().integer("pollingrate"), 1000);
        QVERIFY(fixture.announced(1));
    }

    void unpluggingEmptiesTheListAndPluggingInBringsTheEditBack() {
        SensitivityFixture fixture;
        fixture.open();
        inStagesSheet(fixture, [&](QDialog* sheet) {
            fixture.click(kAdd);
            fixture.press(kX, Qt::Key_PageUp);
            fixture.connectDevices(0);
            QTRY_COMPARE(shown(fixture), QStringList());
            fixture.connectDevices(1);
            QTRY_COMPARE(shown(fixture), QStringList({"400 DPI", "800 DPI", "1050 DPI", "1600 DPI"}));
            QCOMPARE(fixture.selectedRow(kTable), 2);
            endSheet(sheet, true);
        });
        QCOMPARE(fixture.savedResolutions(), QStringList({"400/400", "800/800", "1050/1050", "1600/1600"}));
        QCOMPARE(fixture.savedSettingsPart().integer("stage"), 3);
    }

    void okWhileUnpluggedStoresTheEdit() {
        SensitivityFixture fixture;
        fixture.open();
        inStagesSheet(fixture, [&](QDialog* sheet) {
            fixture.click(kAdd);
            fixture.connectDevices(0);
            QTRY_COMPARE(shown(fixture), QStringList());
            endSheet(sheet, true);
        });
        QCOMPARE(fixture.savedResolutions().size(), 4);
    }

    void whenAnotherProfileHasBecomeCurrentOkStoresNothing() {
        SensitivityFixture fixture;
        fixture.open();
        auto changed = PaneFixture::sampleTree();
        changed.dictionary("settings").set("profileid", 2);
        inStagesSheet(fixture, [&](QDialog* sheet) {
            fixture.click(kAdd);
            fixture.writeSettings(changed);
            fixture.connectDevices(1);
            QTRY_COMPARE(fixture.text("quorviTextProfile"), QStringLiteral("Game"));
            endSheet(sheet, true);
        });
        QVERIFY(fixture.commandsBecome({}));
        QVERIFY(plist::Value(fixture.savedSettings()) == plist::Value(changed));
    }

    void aProfileThatWasRenamedMeanwhileKeepsTheEdit() {
        SensitivityFixture fixture;
        fixture.open();
        auto changed = PaneFixture::sampleTree();
        changed.array("profiles").dictionary(0).set("name", u"Table");
        inStagesSheet(fixture, [&](QDialog* sheet) {
            fixture.click(kAdd);
            fixture.writeSettings(changed);
            fixture.connectDevices(1);
            QTRY_COMPARE(fixture.text("quorviTextProfile"), QStringLiteral("Table"));
            endSheet(sheet, true);
        });
        QVERIFY(fixture.announced(1));
        QCOMPARE(fixture.savedResolutions(), QStringList({"400/400", "800/800", "800/800", "1600/1600"}));
        QCOMPARE(namesIn(fixture.savedSettings(), "profiles"), QStringList({"Table", "Game"}));
    }

    void thePanelMayGoAwayWhileTheSheetIsUp_data() {
        QTest::addColumn<QString>("how");
        for (const char* how : {"hidden", "panel first", "window first"})
            QTest::newRow(how) << how;
    }

    void thePanelMayGoAwayWhileTheSheetIsUp() {
        QFETCH(QString, how);
        SensitivityFixture fixture;
        fixture.open();
        inStagesSheet(fixture, [&](QDialog* sheet) {
            fixture.click(kAdd);
            QTimer::singleShot(0, qApp, [&, sheet] {
                fixture.pane->willUnselect();
                if (how == "hidden") {
                    endSheet(sheet, true);
                    return;
                }
                if (how == "window first")
                    fixture.window.reset();
                fixture.pane.reset();
            });
        });
        QVERIFY(fixture.commandsBecome({"KyRO 0", "KyPR 0"}));
        QCOMPARE(fixture.savedResolutions(), QStringList({"400/400", "800/800", "1600/1600"}));
        if (how == "hidden")
            fixture.pane->didSelect(); // pairs the end of the test
    }
};

QUORVI_PANE_TEST_MAIN(StagesEditorTest)
#include "StagesEditorTest.moc"
