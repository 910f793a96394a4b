// Delays that are typed into the list of steps.

#include <QLabel>
#include <QLocale>

#include "layouts/X11KeyboardLayout.h"
#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"
#include "support/EnvironmentVariable.h"
#include "support/VirtualDisplay.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

/// How the language writes numbers while this exists.
class OtherNumbers {
  public:
    explicit OtherNumbers(const QString& name) { QLocale::setDefault(QLocale(name)); }
    ~OtherNumbers() { QLocale::setDefault(QLocale::c()); }
    OtherNumbers(const OtherNumbers&) = delete;
    OtherNumbers& operator=(const OtherNumbers&) = delete;
};

class DelayFixture : public MacroFixture {
  public:
    explicit DelayFixture(const QStringList& steps = {"1 4 75", "0 4 50"}, PaneOptions options = {})
        : MacroFixture(steps, std::move(options)) {
        selectStep(0);
        table->setFocus();
    }

    /// The field of the cell; null while none is open.
    [[nodiscard]] QLineEdit* field(int row = 0) const {
        return qobject_cast<QLineEdit*>(table->indexWidget(table->model()->index(row, 1)));
    }
    /// Types the text in place of the selected step's delay.
    void type(const QString& text) const {
        QTest::keyClick(table, Qt::Key_F2);
        if (!field())
            qFatal("no field opens");
        QTest::keyClicks(field(), text);
        QTest::keyClick(field(), Qt::Key_Return);
        QTRY_VERIFY(!table->isEditing());
    }
    [[nodiscard]] QString told() const {
        const auto* notice = window->findChild<QLabel*>("textNotice");
        return notice && notice->isVisible() ? notice->text() : QString();
    }
    /// By the way that real clicks take, which first go to an open menu. Both come before the display has
    /// told of the keyboard that the menu grabs, as from a slow display.
    void doubleClick(const QPoint& point) const {
        QTest::mouseDClick(
            window->windowHandle(), Qt::LeftButton, {}, table->viewport()->mapTo(window.get(), point));
    }

    KyvarQuorviTableView* table = find<KyvarQuorviTableView>(kStepsTable);
};

} // namespace

class TypedDelaysTest : public QObject {
    Q_OBJECT

  private slots:
    void f2OpensAFieldWithTheExactDelaySelected() {
        const DelayFixture fixture;
        QTest::keyClick(fixture.table, Qt::Key_F2);
        QVERIFY(fixture.field());
        QCOMPARE(fixture.field()->text(), QStringLiteral("75 ms"));
        QCOMPARE(fixture.field()->selectedText(), QStringLiteral("75 ms"));
        QVERIFY(fixture.field()->hasFocus());
        QVERIFY(!QApplication::activePopupWidget());
    }

    void aDelayOfTheMenuIsTypedInNumbersToo() {
        const DelayFixture fixture({"1 4 500", "0 4 0"});
        QTest::keyClick(fixture.table, Qt::Key_F2);
        QCOMPARE(fixture.field()->text(), QStringLiteral("500 ms"));
        QTest::keyClick(fixture.field(), Qt::Key_Escape);
        fixture.selectStep(1);
        QTest::keyClick(fixture.table, Qt::Key_F2);
        QCOMPARE(fixture.field(1)->text(), QStringLiteral("0"));
    }

    void aDigitBeginsAnotherDelay() {
        const DelayFixture fixture;
        QTest::keyClick(fixture.table, Qt::Key_1);
        QVERIFY(fixture.field());
        QCOMPARE(fixture.field()->text(), QStringLiteral("1"));
        QTest::keyClicks(fixture.field(), ".25 s");
        QTest::keyClick(fixture.field(), Qt::Key_Return);
        QTRY_VERIFY(!fixture.table->isEditing());
        QCOMPARE(fixture.steps(), QStringList({"1 4 1250", "0 4 50"}));
        QCOMPARE(fixture.shownDelays(), QStringList({"1.25 s", "50 ms"}));
        QVERIFY(!QApplication::activePopupWidget());
    }

    void aKeyWithControlIsNoDigit() {
        const DelayFixture fixture;
        QTest::keyClick(fixture.table, Qt::Key_1, Qt::ControlModifier);
        QVERIFY(!fixture.table->isEditing());
    }

    void aDoubleClickOpensTheFieldInPlaceOfTheMenu() {
        const DelayFixture fixture;
        fixture.doubleClick(cellOf(fixture, kStepsTable, 1, 1).center());
        QTRY_VERIFY(fixture.field(1));
        QCOMPARE(fixture.field(1)->selectedText(), QStringLiteral("50 ms"));
        QVERIFY(!QApplication::activePopupWidget());
        QCOMPARE(fixture.steps(), QStringList({"1 4 75", "0 4 50"}));
    }

    // Qt 5 would take it for a loss of the focus.
    void theFieldStaysWhenTheDisplayTellsLateOfTheMenusGrab() {
        const DelayFixture fixture;
        fixture.doubleClick(cellOf(fixture, kStepsTable, 1, 1).center());
        QTRY_VERIFY(fixture.field(1));
        QGuiApplication::sync();
        QVERIFY(fixture.field(1));
        QVERIFY(fixture.field(1)->hasFocus());
        QTest::keyClicks(fixture.field(1), "60");
        QTest::keyClick(fixture.field(1), Qt::Key_Return);
        QTRY_COMPARE(fixture.steps(), QStringList({"1 4 75", "0 4 60"}));
    }

    void aDoubleClickOnTheArrowOpensNoField() {
        const DelayFixture fixture;
        const QRect cell = cellOf(fixture, kStepsTable, 0, 1);
        fixture.doubleClick({cell.right() - cell.height() / 2, cell.center().y()});
        QCoreApplication::processEvents();
        QVERIFY(!fixture.table->isEditing());
        MacroFixture::closeMenu();
    }

    void twoSlowClicksOpenTheMenuAndCloseIt() {
        const DelayFixture fixture;
        const QPoint point = fixture.table->viewport()->mapTo(
            fixture.window.get(), cellOf(fixture, kStepsTable, 0, 1).center());
        const int interval = QApplication::doubleClickInterval();
        QApplication::setDoubleClickInterval(0);
        QTest::mouseClick(fixture.window->windowHandle(), Qt::LeftButton, {}, point);
        QTRY_VERIFY(QApplication::activePopupWidget());
        QTest::mouseClick(fixture.window->windowHandle(), Qt::LeftButton, {}, point);
        QApplication::setDoubleClickInterval(interval);
        QCoreApplication::processEvents();
        QVERIFY(!fixture.table->isEditing());
        MacroFixture::closeMenu();
    }

    void escapeLeavesTheDelay() {
        const DelayFixture fixture;
        QTest::keyClick(fixture.table, Qt::Key_9);
        QTest::keyClick(fixture.field(), Qt::Key_Escape);
        QTRY_VERIFY(!fixture.table->isEditing());
        QCOMPARE(fixture.steps(), QStringList({"1 4 75", "0 4 50"}));
        QVERIFY(fixture.table->hasFocus());
        QCOMPARE(fixture.selectedRow(kStepsTable), 0);
    }

    void whatIsTypedIsTheDelay_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("delay");
        for (const auto& [typed, delay] :
            {std::pair("120", 120), std::pair("5 ms", 5), std::pair("1,5s", 1500), std::pair("2 sec", 2000),
                std::pair("1 min", 60000), std::pair("0", 0), std::pair("16777215", 16777215)})
            QTest::addRow("%s", typed) << QString(typed) << delay;
    }
    void whatIsTypedIsTheDelay() {
        QFETCH(QString, typed);
        QFETCH(int, delay);
        const DelayFixture fixture;
        fixture.type(typed);
        QCOMPARE(fixture.steps(), QStringList({stepAsText(1, 4, delay), "0 4 50"}));
        QCOMPARE(fixture.told(), QString());
    }

    void aTypedDelayIsSavedByTheNextActionAsAChosenOneIs() {
        const DelayFixture fixture;
        fixture.type("120");
        QCOMPARE(fixture.savedSteps(), QStringList({"1 4 75", "0 4 50"}));
        fixture.chooseForSteps(35);
        QCOMPARE(fixture.savedSteps(), QStringList({"1 4 120", "0 4 0"}));
    }

    void aTypedDelayIsUndone() {
        const DelayFixture fixture;
        fixture.type("120");
        fixture.click("quorviButtonUndo");
        QTRY_COMPARE(fixture.steps(), QStringList({"1 4 75", "0 4 50"}));
    }

    void nonsenseKeepsTheDelayAndTheBarSaysWhy_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("why");
        QTest::newRow("nonsense") << "soon"
                                  << QStringLiteral(
                                         "“soon” is not a delay. Type one such as 75 ms or 1.5 s.");
        QTest::newRow("negative") << "-5" << QStringLiteral("“-5” is not a delay: it is below zero.");
        QTest::newRow("too fine") << "0.5 ms"
                                  << QStringLiteral("“0.5 ms” is not a whole number of milliseconds.");
        QTest::newRow("too long") << "5000 min"
                                  << QStringLiteral(
                                         "“5000 min” is too long. The longest delay is 16777.215 s.");
    }
    void nonsenseKeepsTheDelayAndTheBarSaysWhy() {
        QFETCH(QString, typed);
        const DelayFixture fixture;
        fixture.type(typed);
        QCOMPARE(fixture.steps(), QStringList({"1 4 75", "0 4 50"}));
        QCOMPARE(fixture.shownDelays(), QStringList({"75 ms", "50 ms"}));
        QTEST(fixture.told(), "why");
        fixture.type("80");
        QCOMPARE(fixture.told(), QString());
        QCOMPARE(fixture.steps().first(), stepAsText(1, 4, 80));
    }

    void theDecimalSignIsThatOfTheLocale() {
        const OtherNumbers german("de_DE");
        const DelayFixture fixture({"1 4 1500", "0 4 0"});
        QCOMPARE(fixture.shownDelays().first(), QStringLiteral("1,5 s"));
        fixture.type("2,25 s");
        QCOMPARE(fixture.steps().first(), stepAsText(1, 4, 2250));
        QCOMPARE(fixture.shownDelays().first(), QStringLiteral("2,25 s"));
    }

    void theFieldTellsScreenReadersWhatItIsFor() {
        const DelayFixture fixture;
        QTest::keyClick(fixture.table, Qt::Key_F2);
        QCOMPARE(fixture.field()->accessibleName(), QStringLiteral("Delay After"));
        QCOMPARE(fixture.field()->accessibleDescription(),
            QStringLiteral(
                "Choose a delay, or double-click or press F2 to type one, such as 75 ms or 1.5 s."));
    }

    void theMenuStillOpensAfterTyping() {
        const DelayFixture fixture;
        fixture.type("120");
        QTest::keyClick(fixture.table, Qt::Key_Space);
        QTRY_VERIFY(QApplication::activePopupWidget());
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QCOMPARE(menu->activeAction(), itemWithTag(*menu, 100));
        clickItem(menu, itemWithTag(*menu, 300));
        QTRY_COMPARE(fixture.steps().first(), stepAsText(1, 4, 300));
    }

    void anExactDelayIsUsedForAllSteps() {
        const DelayFixture fixture({"1 4 10", "0 4 20", "1 5 30"});
        fixture.type("75");
        fixture.chooseForSteps(35);
        QCOMPARE(fixture.savedSteps(), QStringList({"1 4 75", "0 4 75", "1 5 0"}));
        QCOMPARE(fixture.shownDelays(), QStringList({"75 ms", "75 ms", "None"}));
    }

    // The first key of a second keyboard does so too.
    void whatIsTypedStaysWhenKeysGetOtherNames() {
        if (!isInstalled("Xvfb") || !isInstalled("setxkbmap"))
            QSKIP("there is no X server to change the layout of");
        const VirtualDisplay display;
        QVERIFY(display.setLayout("us"));
        const DelayFixture fixture({"1 20 75"}, {.watchKeyboardLayout = [&display] {
            const EnvironmentVariable variable("DISPLAY", display.name());
            return std::make_unique<KeyboardLayoutWatcher>(connectToX11Keyboard());
        }});
        QTRY_COMPARE(fixture.shownSteps(), QStringList("Press q"));
        QTest::keyClick(fixture.table, Qt::Key_9);
        QVERIFY(display.setLayout("fr"));
        QTRY_COMPARE(fixture.shownSteps(), QStringList("Press a"));
        QVERIFY(fixture.field());
        QCOMPARE(fixture.field()->text(), QStringLiteral("9"));
    }

    void aMacroThatGoesTakesItsFieldAlong() {
        DelayFixture fixture;
        QTest::keyClick(fixture.table, Qt::Key_9);
        fixture.connectDevices(2);
        QTRY_COMPARE(fixture.pane->macroIndex(), -1);
        QTRY_VERIFY(!fixture.table->isEditing());
        QCOMPARE(fixture.steps(), QStringList({"1 4 75", "0 4 50"}));
    }
};

QUORVI_PANE_TEST_MAIN(TypedDelaysTest)
#include "TypedDelaysTest.moc"
