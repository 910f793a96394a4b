// The list of steps: its texts, and choosing delays in it.

#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"
#include "support/EnvironmentVariable.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

constexpr int kDelayColumn = 32;
constexpr int kActionColumn = 31;

/// Runs with the delay menu that opens.
QMenu* openMenu() {
    if (!QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }, kWindowPatienceMs))
        qFatal("no menu opens");
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

void chooseIn(QMenu* menu, int tag) {
    clickItem(menu, itemWithTag(*menu, tag));
    QCoreApplication::processEvents();
}

} // namespace

class StepsTableTest : public QObject {
    Q_OBJECT

    static void clickCell(const MacroFixture& fixture, int row, int column) {
        QTest::mouseClick(fixture.find<KyvarQuorviTableView>(kStepsTable)->viewport(), Qt::LeftButton, {},
            cellOf(fixture, kStepsTable, row, column).center());
    }

  private slots:
    void everyStepIsPutInWords() {
        MacroFixture fixture({"1 4 0", "0 4 0", "1 40 0", "0 225 0", "128 0 0", "129 0 0", "130 0 0",
            "132 0 0", "136 0 0", "144 0 0", "2 4 0", "131 0 0", "-1 4 0"});
        QCOMPARE(fixture.shownSteps(),
            QStringList(
                {"Press a", "Release a", "Press Return", "Release Shift", "Release button", "Press button 1",
                    "Press button 2", "Press button 3", "Press button 4", "Press button 5", "", "", ""}));
    }

    void theKeyStandsWhereTheLanguageHasIt() {
        const EnvironmentVariable locale("LC_ALL", "ja_JP.UTF-8");
        const EnvironmentVariable list("LANGUAGE", std::nullopt);
        const MacroFixture fixture({"1 4 0", "0 4 0", "136 0 0"});
        QCOMPARE(fixture.shownSteps(), QStringList({QStringLiteral("a を押す"), QStringLiteral("a を離す"),
                                           QStringLiteral("マウスボタン 4 を押す")}));
    }

    void cellsPastTheEndAndOfOddStepsAreEmpty() {
        MacroFixture fixture({"1 4 0"});
        fixture.pane->deviceConfig().array("macros").dictionary(0).array("steps").append(5);
        for (const int row : {1, 2, 1000})
            QCOMPARE(fixture.pane->objectValueForTableColumn(kActionColumn, row).toString(), QString());
        QCOMPARE(fixture.pane->objectValueForTableColumn(kDelayColumn, 2), QVariant(QString()));
        QCOMPARE(fixture.pane->objectValueForTableColumn(kDelayColumn, 1), QVariant(0));
    }

    void theValueOfADelayIsItsItemOrTheNextShorterOne_data() {
        QTest::addColumn<int>("delay");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("title");
        for (const auto& [delay, index, title] : {std::tuple(0, 0, "None"), std::tuple(10, 1, "10 ms"),
                 std::tuple(11, 1, "10 ms"), std::tuple(9, -1, ""), std::tuple(1, -1, ""),
                 std::tuple(-1, -1, ""), std::tuple(50, 5, "50 ms"), std::tuple(75, 5, "50 ms"),
                 std::tuple(99, 5, "50 ms"), std::tuple(100, 6, "100 ms"), std::tuple(500, 11, "½ second"),
                 std::tuple(5000, 16, "5 seconds"), std::tuple(16777215, 16, "5 seconds")})
            QTest::addRow("%d", delay) << delay << index << QString::fromUtf8(title);
    }
    void theValueOfADelayIsItsItemOrTheNextShorterOne() {
        QFETCH(int, delay);
        MacroFixture fixture({stepAsText(1, 4, delay)});
        const QVariant value = fixture.pane->objectValueForTableColumn(kDelayColumn, 0);
        QTEST(value.toInt(), "index");
        QTEST(fixture.pane->titleOfDelay(value), "title");
        QCOMPARE(fixture.steps(), QStringList({stepAsText(1, 4, delay)}));
    }

    void aCellShowsItsItemOrTheExactDelay() {
        MacroFixture fixture({"1 4 0", "1 4 10", "1 4 500", "1 4 5000", "1 4 5", "1 4 11", "1 4 75",
            "1 4 1500", "1 4 60000", "1 4 16777215", "1 4 -1"});
        QCOMPARE(fixture.shownDelays(), QStringList({"None", "10 ms", "½ second", "5 seconds", "5 ms",
                                            "11 ms", "75 ms", "1.5 s", "60 s", "16777.215 s", ""}));
    }

    void aDelayIsSetAndNotSavedByThat() {
        MacroFixture fixture({"1 4 20", "0 4 0"});
        fixture.pane->setObjectValue(7, kDelayColumn, 0);
        QCOMPARE(fixture.steps(), QStringList({"1 4 150", "0 4 0"}));
        fixture.pane->setObjectValue(0, kDelayColumn, 0);
        QCOMPARE(fixture.steps(), QStringList({"1 4 0", "0 4 0"}));
        QCOMPARE(fixture.savedSteps(), QStringList({"1 4 20", "0 4 0"}));
        QVERIFY(fixture.commandsBecome({}));
    }

    void whatIsNoItemOrNoStepSetsNothing() {
        MacroFixture fixture({"1 4 20"});
        for (const QVariant& value : {QVariant(-1), QVariant(17), QVariant(QStringLiteral("3")), QVariant()})
            fixture.pane->setObjectValue(value, kDelayColumn, 0);
        for (const int row : {-1, 1, 100})
            fixture.pane->setObjectValue(7, kDelayColumn, row);
        fixture.pane->setObjectValue(7, kActionColumn, 0);
        QCOMPARE(fixture.steps(), QStringList({"1 4 20"}));
    }

    void aClickOnADelayOpensItsMenu() {
        MacroFixture fixture({"1 4 20", "0 4 50"});
        clickCell(fixture, 1, 1);
        QMenu* menu = openMenu();
        QCOMPARE(menu, fixture.find<QMenu>("quorviMenuStepDelay"));
        QCOMPARE(fixture.selectedRow(kStepsTable), 1);
        QVERIFY(itemWithTag(*menu, 50)->isChecked());
        QCOMPARE(menu->activeAction(), itemWithTag(*menu, 50));
        QVERIFY(!itemWithTag(*menu, 20)->isChecked());
        chooseIn(menu, 1000);
        QCOMPARE(fixture.steps(), QStringList({"1 4 20", "0 4 1000"}));
        QCOMPARE(fixture.shownDelays(), QStringList({"20 ms", "1 second"}));
        QVERIFY(fixture.commandsBecome({}));
    }

    void everyChoiceIsForTheCellThatWasOpenedLast() {
        MacroFixture fixture({"1 4 20", "0 4 50"});
        clickCell(fixture, 0, 1);
        openMenu()->close();
        clickCell(fixture, 1, 1);
        chooseIn(openMenu(), 100);
        QCOMPARE(fixture.steps(), QStringList({"1 4 20", "0 4 100"}));
        clickCell(fixture, 0, 1);
        chooseIn(openMenu(), 200);
        QCOMPARE(fixture.steps(), QStringList({"1 4 200", "0 4 100"}));
    }

    void aClickBesideADelayOpensNothing() {
        MacroFixture fixture({"1 4 20"});
        clickCell(fixture, 0, 0);
        QVERIFY(!QApplication::activePopupWidget());
        QTest::mouseClick(fixture.find<KyvarQuorviTableView>(kStepsTable)->viewport(), Qt::MiddleButton, {},
            cellOf(fixture, kStepsTable, 0, 1).center());
        QVERIFY(!QApplication::activePopupWidget());
    }

    void aDelayIsChosenByTheKeyboard_data() {
        QTest::addColumn<int>("key");
        for (const int key : {Qt::Key_F4, Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
            QTest::addRow("%x", key) << key;
    }
    void aDelayIsChosenByTheKeyboard() {
        QFETCH(int, key);
        MacroFixture fixture({"1 4 20", "0 4 50"});
        fixture.selectStep(0);
        auto* table = fixture.find<KyvarQuorviTableView>(kStepsTable);
        table->setFocus();
        QTest::keyClick(table, Qt::Key_Down);
        QCOMPARE(fixture.selectedRow(kStepsTable), 1);
        QTest::keyClick(table, Qt::Key(key));
        QMenu* menu = openMenu();
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
        QCOMPARE(fixture.steps(), QStringList({"1 4 20", "0 4 100"}));
    }

    void withoutASelectedStepTheKeysOpenNothing() {
        MacroFixture fixture({"1 4 20"});
        auto* table = fixture.find<KyvarQuorviTableView>(kStepsTable);
        table->setFocus();
        for (const Qt::Key key : {Qt::Key_F2, Qt::Key_7})
            QTest::keyClick(table, key);
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(!table->isEditing());
    }

    void delaysCannotBeSetWhileRecording() {
        MacroFixture fixture({"1 4 20"});
        fixture.selectStep(0);
        fixture.record();
        auto* table = fixture.find<KyvarQuorviTableView>(kStepsTable);
        QTest::keyClick(table, Qt::Key_F2);
        QVERIFY(!table->isEditing());
        QTest::mouseDClick(
            table->viewport(), Qt::LeftButton, {}, cellOf(fixture, kStepsTable, 0, 1).center());
        QVERIFY(!table->isEditing());
        QVERIFY(!QApplication::activePopupWidget());
        clickCell(fixture, 0, 1);
        QVERIFY(!QApplication::activePopupWidget());
        fixture.record();
        clickCell(fixture, 0, 1);
        openMenu()->close();
    }

    void aListThatIsReadAfreshMeanwhileKeepsItsDelays() {
        MacroFixture fixture({"1 4 20"});
        clickCell(fixture, 0, 1);
        QMenu* menu = openMenu();
        fixture.connectDevices(2);
        QTRY_COMPARE(fixture.pane->macroIndex(), -1);
        chooseIn(menu, 1000);
        QCOMPARE(fixture.steps(), QStringList({"1 4 20"}));
    }

    void theItemsOfTheGearMenuDoWhatTheySay() {
        MacroFixture fixture({"1 4 20", "0 4 50", "1 5 70"});
        fixture.selectStep(1);
        fixture.chooseForSteps(35);
        QCOMPARE(fixture.savedSteps(), QStringList({"1 4 50", "0 4 50", "1 5 0"}));
        fixture.chooseForSteps(36);
        QCOMPARE(fixture.savedSteps(), QStringList({"1 4 0", "0 4 0", "1 5 0"}));
        fixture.chooseForSteps(33);
        QCOMPARE(fixture.savedSteps(), QStringList({"1 4 0", "1 5 0"}));
        fixture.chooseForSteps(34);
        QCOMPARE(fixture.savedSteps(), QStringList());
        QVERIFY(fixture.commandsBecome({"KyPR 0", "KyPR 0", "KyPR 0", "KyPR 0"}));
        fixture.chooseForSteps(31);
        QVERIFY(fixture.pane->isRecordingMacro());
    }
};

QUORVI_PANE_TEST_MAIN(StepsTableTest)
#include "StepsTableTest.moc"
