// Steps that are inserted before or after the selected ones, and delays that are multiplied.

#include <QLabel>
#include <QLocale>
#include <QPushButton>

#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"
#include "platform/KeyEvents.h"
#include "resources/MenuTags.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QStringList kHi{"1 11 10", "0 11 20", "1 12 30", "0 12 0"};

class InsertedMacro : public MacroFixture {
  public:
    explicit InsertedMacro(const QStringList& steps, const std::vector<int>& rows = {})
        : MacroFixture(steps) {
        table->selectRows(rows);
        table->setFocus();
    }

    /// As the submenu does it.
    void choose(int tag) const {
        QAction* item = itemOf(tag);
        if (!pane->validateMenuItem(item))
            qFatal("the item %d cannot be chosen", tag);
        pane->actionMenuTableContext(item);
        QCoreApplication::processEvents();
    }
    [[nodiscard]] bool offers(int tag) const { return pane->validateMenuItem(itemOf(tag)); }
    [[nodiscard]] QAction* itemOf(int tag) const {
        return selectableItemWithTag(*find<QMenu>("quorviMenuStepGear"), tag);
    }
    [[nodiscard]] QString lastAction() const {
        const QString tip = find<QPushButton>("quorviButtonUndo")->toolTip().section(" (Ctrl", 0, 0);
        return tip.startsWith(QLatin1String("Undo ")) ? tip.mid(5) : QString();
    }
    [[nodiscard]] QString notice() const {
        const auto* label = window->findChild<QLabel*>("textNotice");
        return label && label->isVisible() ? label->text() : QString();
    }

    KyvarQuorviTableView* table = find<KyvarQuorviTableView>(kStepsTable);
};

} // namespace

class StepInsertsTest : public QObject {
    Q_OBJECT

    static int after(int tag) { return tag + kInsertAfterItems - kInsertBeforeItems; }

    /// Runs with the sheet of that name when it is up.
    static void whenSheetIsUp(const char* name, const std::function<void(QDialog&)>& action) {
        auto* timer = new QTimer(qApp);
        QObject::connect(timer, &QTimer::timeout, timer, [=] {
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                auto* sheet = qobject_cast<QDialog*>(widget);
                if (!sheet || !sheet->isVisible() || sheet->objectName() != QLatin1String(name))
                    continue;
                timer->deleteLater();
                timer->stop();
                return action(*sheet);
            }
        });
        timer->start(5);
    }

    /// In the sheet for the factor types the text and confirms, if that is possible.
    static void typeFactor(const InsertedMacro& macro, const QString& text, QString* request = nullptr) {
        whenSheetIsUp("quorviPanelFactor", [=](QDialog& sheet) {
            if (request)
                *request = sheet.findChild<QLabel*>("labelFactor")->text();
            sheet.findChild<QLineEdit*>("quorviFieldFactor")->setText(text);
            auto* confirm = sheet.findChild<QPushButton*>("quorviFactorButtonOK");
            confirm->isEnabled() ? confirm->click()
                                 : sheet.findChild<QPushButton*>("quorviFactorButtonCancel")->click();
        });
        macro.choose(kMultiplyDelaysItem);
    }

  private slots:
    void aMouseButtonIsInsertedAsPressAndRelease_data() {
        QTest::addColumn<int>("tag");
        QTest::addColumn<std::vector<int>>("selected");
        QTest::addColumn<QStringList>("steps");
        QTest::newRow("before") << int(kButton1BeforeItem) << std::vector{2, 3}
                                << QStringList{
                                       "1 11 10", "0 11 20", "129 0 50", "128 0 50", "1 12 30", "0 12 0"};
        QTest::newRow("after") << after(kButton1BeforeItem + 2) << std::vector{0, 1}
                               << QStringList{
                                      "1 11 10", "0 11 20", "132 0 50", "128 0 50", "1 12 30", "0 12 0"};
        QTest::newRow("last button") << after(kButton1BeforeItem + 4) << std::vector{3}
                                     << kHi.mid(0, 3) + QStringList{"0 12 50", "144 0 50", "128 0 0"};
        QTest::newRow("none selected") << int(kButton1BeforeItem + 1) << std::vector<int>()
                                       << kHi.mid(0, 3) + QStringList{"0 12 50", "130 0 50", "128 0 0"};
    }
    void aMouseButtonIsInsertedAsPressAndRelease() {
        QFETCH(int, tag);
        QFETCH(std::vector<int>, selected);
        const InsertedMacro macro(kHi, selected);
        macro.choose(tag);
        QTEST(macro.savedSteps(), "steps");
        QCOMPARE(macro.lastAction(), QStringLiteral("Insert Mouse Button"));
        QCOMPARE(macro.table->selectedRows().size(), std::size_t(2));
        macro.click("quorviButtonUndo");
        QCOMPARE(macro.savedSteps(), kHi);
    }

    void aKeyIsAskedForAndInserted() {
        const InsertedMacro macro(kHi, {0, 1});
        QString request;
        whenSheetIsUp("quorviPanelSingleKey", [&](QDialog& sheet) {
            request = sheet.findChild<QLabel*>("textSingleKey")->text();
            QVERIFY(macro.pane->receiveSingleKey(0x08, u'c', 0, true, KeyEvent()));
            sheet.findChild<QPushButton*>("quorviSingleKeyButtonOK")->click();
        });
        macro.choose(after(kKeyBeforeItem));
        QCOMPARE(request, QStringLiteral("Press the key to insert. A modifier key on its own works too."));
        QCOMPARE(
            macro.savedSteps(), QStringList({"1 11 10", "0 11 20", "1 6 50", "0 6 50", "1 12 30", "0 12 0"}));
        QCOMPARE(macro.lastAction(), QStringLiteral("Insert Key"));
        QCOMPARE(macro.table->selectedRows(), std::vector({2, 3}));
        QVERIFY(macro.find<QLabel>("textSingleKey")->text().contains("mouse input"));
    }

    void aKeyThatIsCalledOffInsertsNothing() {
        const InsertedMacro macro(kHi, {0});
        whenSheetIsUp("quorviPanelSingleKey",
            [](QDialog& sheet) { sheet.findChild<QPushButton*>("quorviSingleKeyButtonCancel")->click(); });
        macro.choose(kKeyBeforeItem);
        QCOMPARE(macro.steps(), kHi);
        QCOMPARE(macro.lastAction(), QString());
    }

    void aRecordingGoesInWhereItIsAskedFor() {
        InsertedMacro macro(kHi, {2});
        macro.choose(kRecordBeforeItem);
        QVERIFY(macro.pane->isRecordingMacro());
        macro.press(scancodes::x);
        macro.wait(120);
        macro.release(scancodes::x);
        QCOMPARE(macro.table->selectedRows(), std::vector({3}));
        macro.record();
        QCOMPARE(macro.savedSteps(),
            QStringList({"1 11 10", "0 11 20", "1 27 150", "0 27 100", "1 12 30", "0 12 0"}));
        QCOMPARE(macro.lastAction(), QStringLiteral("Record Macro “Hello”"));
        macro.record();
        macro.tap(scancodes::a);
        macro.record();
        QCOMPARE(macro.savedSteps().mid(6), QStringList({"1 4 10", "0 4 0"}));
    }

    void escapeEndsAnInsertionAndLeavesNoTrace() {
        InsertedMacro macro(kHi, {2});
        macro.choose(kRecordBeforeItem);
        macro.tap(scancodes::x);
        const QStringList before = macro.steps();
        macro.press(scancodes::escape);
        macro.wait(1500);
        QVERIFY(!macro.pane->isRecordingMacro());
        QCOMPARE(macro.savedSteps(), before);
        QCOMPARE(macro.table->selectedRows(), std::vector({3}));
    }

    void aPauseIsTypedIntoTheCellOfTheStepBefore() {
        const InsertedMacro macro(kHi, {2, 3});
        macro.choose(kPauseBeforeItem);
        QVERIFY(waitForCellEditor(macro, kStepsTable));
        QLineEdit* field = cellEditor(macro, kStepsTable);
        QCOMPARE(field->selectedText(), QStringLiteral("20 ms"));
        QTest::keyClicks(field, "1.5 s");
        QTest::keyClick(field, Qt::Key_Return);
        QTRY_VERIFY(!macro.table->isEditing());
        QCOMPARE(macro.steps(), QStringList({"1 11 10", "0 11 1500", "1 12 30", "0 12 0"}));
        QCOMPARE(macro.table->selectedRows(), std::vector({1}));
        QCOMPARE(macro.lastAction(), QStringLiteral("Change Delay"));
    }

    void whatIsImpossibleIsGreyed() {
        const InsertedMacro macro(kHi, {0});
        QVERIFY(!macro.offers(kPauseBeforeItem));
        QVERIFY(macro.offers(after(kPauseBeforeItem)));
    }

    void aMacroThatIsAlmostFullTakesRecordedStepsOnly() {
        QStringList full;
        for (int key = 4; key < 19; ++key)
            full << stepAsText(1, key, 10);
        const InsertedMacro narrow(full, {0});
        QVERIFY(narrow.offers(kRecordBeforeItem));
        QVERIFY(!narrow.offers(kKeyBeforeItem));
        QVERIFY(!narrow.offers(kButton1BeforeItem));
    }

    void whileRecordingNothingIsInserted() {
        const InsertedMacro macro(kHi, {1});
        macro.record();
        for (int tag = kInsertBeforeItems; tag < after(kButton1BeforeItem) + 5; ++tag)
            if (QAction* item = macro.itemOf(tag)) {
                QVERIFY2(!macro.offers(tag), qPrintable(QString::number(tag)));
                macro.pane->actionMenuTableContext(item);
            }
        QCOMPARE(macro.steps(), kHi);
    }

    void theSubmenusAreInTheMenuOfTheList() {
        const InsertedMacro macro(kHi, {0});
        QMenu* menu = nullptr;
        whenMenuIsOpen([&](QMenu* open) { menu = open; });
        macro.click("quorviButtonStepGear");
        QTRY_VERIFY(menu);
        QStringList submenus;
        for (const QAction* item : menu->actions())
            if (item->menu()) {
                QVERIFY(item->isEnabled());
                submenus << titleOfItem(*item);
            }
        QCOMPARE(submenus, QStringList({"Insert Before", "Insert After"}));
        QVERIFY(!macro.itemOf(kPauseBeforeItem)->isEnabled());
        menu->close();
    }

    void delaysOfAllStepsAreMultiplied() {
        const InsertedMacro macro(kHi, {3});
        QString request;
        typeFactor(macro, "0.5", &request);
        QCOMPARE(request, QStringLiteral("Multiply the delays of all steps by:"));
        QCOMPARE(macro.savedSteps(), QStringList({"1 11 5", "0 11 10", "1 12 15", "0 12 0"}));
        QCOMPARE(macro.lastAction(), QStringLiteral("Multiply Delays"));
        macro.click("quorviButtonUndo");
        QCOMPARE(macro.savedSteps(), kHi);
    }

    void delaysOfTheSelectedStepsAreMultiplied() {
        const InsertedMacro macro(kHi, {0, 2});
        QString request;
        typeFactor(macro, "2", &request);
        QCOMPARE(request, QStringLiteral("Multiply the delays of the selected steps by:"));
        QCOMPARE(macro.savedSteps(), QStringList({"1 11 20", "0 11 20", "1 12 60", "0 12 0"}));
        QCOMPARE(macro.table->selectedRows(), std::vector({0, 2}));
    }

    void aFactorIsTypedAsTheLanguageWritesIt() {
        QLocale::setDefault(QLocale("de_DE"));
        const InsertedMacro macro(kHi);
        typeFactor(macro, "1,5");
        QLocale::setDefault(QLocale::c());
        QCOMPARE(macro.savedSteps(), QStringList({"1 11 15", "0 11 30", "1 12 45", "0 12 0"}));
    }

    void whatIsNoFactorCannotBeConfirmed() {
        const InsertedMacro macro(kHi);
        for (const char* text : {"", "0", "-2", "two"}) {
            typeFactor(macro, text);
            QCOMPARE(macro.steps(), kHi);
        }
        QCOMPARE(macro.lastAction(), QString());
    }

    void aDelayThatWouldBeTooLongIsToldOf() {
        const InsertedMacro macro({"1 11 9000000", "0 11 50"});
        typeFactor(macro, "2");
        QCOMPARE(macro.savedSteps(), QStringList({"1 11 16777215", "0 11 100"}));
        QCOMPARE(macro.notice(), QStringLiteral("Delays limited to 16777.215 s, the longest possible: 1."));
    }
};

QUORVI_PANE_TEST_MAIN(StepInsertsTest)
#include "StepInsertsTest.moc"
