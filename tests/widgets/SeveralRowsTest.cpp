// A table of which several rows can be selected at once.
#include <QAccessible>
#include <QStandardItemModel>

#include "widgets/KyvarQuorviTableView.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

namespace {

/// Leaves everything to the table.
class NoDelegate : public TableDelegate {
  public:
    bool handleMouseEvent(const QMouseEvent&, int, KyvarQuorviTableView*) override { return false; }
    void handleKeyPressed(char16_t, KyvarQuorviTableView*, int) override {}
};

using Rows = std::vector<int>;

struct Table : KyvarQuorviTableView {
    explicit Table(int rows = 6) : entries(rows, 2) {
        setDelegate(&delegate);
        setModel(&entries);
        setSeveralSelectable();
        setEditTriggers(NoEditTriggers);
        resize(300, 400);
        show();
        setFocus();
    }

    void click(int row, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(viewport(), button, modifiers, visualRect(entries.index(row, 0)).center());
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(this, key, modifiers); }
    /// The menu is asked for by the mouse over the row.
    void askForMenu(int row) {
        const QPoint spot = visualRect(entries.index(row, 0)).center();
        static_cast<void>(
            menuForEvent(QContextMenuEvent(QContextMenuEvent::Mouse, spot, viewport()->mapToGlobal(spot))));
    }

    NoDelegate delegate;
    QStandardItemModel entries;
};

} // namespace

class SeveralRowsTest : public QObject {
    Q_OBJECT

  private slots:
    void clicksSelectAsInOtherLists_data() {
        QTest::addColumn<Qt::LayoutDirection>("direction");
        QTest::newRow("from the left") << Qt::LeftToRight;
        QTest::newRow("from the right") << Qt::RightToLeft;
    }
    void clicksSelectAsInOtherLists() {
        QFETCH(Qt::LayoutDirection, direction);
        Table table;
        table.setLayoutDirection(direction);
        table.click(1);
        QCOMPARE(table.selectedRows(), Rows({1}));
        table.click(4, Qt::ShiftModifier);
        QCOMPARE(table.selectedRows(), Rows({1, 2, 3, 4}));
        table.click(2, Qt::ControlModifier);
        QCOMPARE(table.selectedRows(), Rows({1, 3, 4}));
        table.click(0, Qt::ControlModifier);
        QCOMPARE(table.selectedRows(), Rows({0, 1, 3, 4}));
        QCOMPARE(table.selectedRow(), 0);
        table.click(3);
        QCOMPARE(table.selectedRows(), Rows({3}));
    }

    void keysSelectAsInOtherLists_data() { clicksSelectAsInOtherLists_data(); }
    void keysSelectAsInOtherLists() {
        QFETCH(Qt::LayoutDirection, direction);
        Table table;
        table.setLayoutDirection(direction);
        table.selectRowAlone(3);
        table.press(Qt::Key_Up, Qt::ShiftModifier);
        table.press(Qt::Key_Up, Qt::ShiftModifier);
        QCOMPARE(table.selectedRows(), Rows({1, 2, 3}));
        QCOMPARE(table.selectedRow(), 1);
        table.press(Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(table.selectedRows(), Rows({2, 3}));
        table.press(Qt::Key_Down);
        QCOMPARE(table.selectedRows(), Rows({3}));
        table.press(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(table.selectedRows(), Rows({0, 1, 2, 3, 4, 5}));
        QCOMPARE(table.selectedRow(), 3);
    }

    void aRangeBeginsAtTheRowThatTheProgramSelectedLast() {
        Table table;
        table.click(0);
        table.selectRowAlone(4);
        table.press(Qt::Key_Down, Qt::ShiftModifier);
        QCOMPARE(table.selectedRows(), Rows({4, 5}));
        table.selectRowAlone(4);
        table.click(3, Qt::ShiftModifier);
        QCOMPARE(table.selectedRows(), Rows({3, 4}));
    }

    void theProgramSelectsSeveral() {
        Table table;
        int changes = 0;
        connect(&table, &KyvarQuorviTableView::selectedRowChanged, &table, [&] { ++changes; });
        table.selectRows({4, 1, 2}, 1);
        QCOMPARE(table.selectedRows(), Rows({1, 2, 4}));
        QCOMPARE(table.selectedRow(), 1);
        QCOMPARE(changes, 1);
        table.selectRows({1, 3});
        QCOMPARE(table.selectedRow(), 3);
        table.selectRows({-1, 5, 6}, 6);
        QCOMPARE(table.selectedRows(), Rows({5}));
        table.selectRows({});
        QCOMPARE(table.selectedRows(), Rows());
        QCOMPARE(table.selectedRow(), -1);
    }

    void aRowThatIsCurrentWithoutBeingSelectedIsNotTheSelectedOne() {
        Table table;
        table.selectRows({1, 2, 4});
        table.click(4, Qt::ControlModifier);
        QCOMPARE(table.currentIndex().row(), 4);
        QCOMPARE(table.selectedRow(), 1);
    }

    void aMenuIsForAllThatIsSelected() {
        Table table;
        table.selectRows({1, 2});
        table.askForMenu(2);
        QCOMPARE(table.selectedRows(), Rows({1, 2}));
        table.askForMenu(3);
        QCOMPARE(table.selectedRows(), Rows({3}));
    }

    void aClickThatSelectsOpensNoPopUp() {
        Table table;
        QMenu menu;
        menu.addAction("one");
        table.setPopUpColumn(0, &menu);
        table.click(1, Qt::ControlModifier);
        table.click(3, Qt::ShiftModifier);
        QVERIFY(!menu.isVisible());
        QCOMPARE(table.selectedRows(), Rows({1, 2, 3}));
        table.press(Qt::Key_Space, Qt::ControlModifier);
        QVERIFY(!menu.isVisible());
        QCOMPARE(table.selectedRows(), Rows({1, 2}));
        // The menu that opens gets the release.
        QTest::mousePress(
            table.viewport(), Qt::LeftButton, {}, table.visualRect(table.entries.index(2, 0)).center());
        QVERIFY(menu.isVisible());
        QCOMPARE(table.selectedRows(), Rows({1, 2}));
    }

    void screenReadersHearAndSelectSeveral() {
        Table table;
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&table);
        QVERIFY(spoken->state().multiSelectable);
        QAccessibleTableInterface* rows = spoken->tableInterface();
        QVERIFY(rows->selectRow(1));
        QVERIFY(rows->selectRow(3));
        QCOMPARE(table.selectedRows(), Rows({1, 3}));
        QCOMPARE(rows->selectedRows(), QList<int>({1, 3}));
        QCOMPARE(rows->selectedCellCount(), 4);
        QVERIFY(rows->isRowSelected(3));
        QVERIFY(!rows->isRowSelected(2));
        QVERIFY(rows->cellAt(1, 1)->state().selected);
        QVERIFY(!rows->cellAt(2, 1)->state().selected);
        QVERIFY(rows->unselectRow(3));
        QVERIFY(!rows->unselectRow(3));
        QCOMPARE(table.selectedRows(), Rows({1}));
    }

    void aTableOfOneAtATimeStaysSo() {
        KyvarQuorviTableView table;
        QStandardItemModel model(3, 2);
        table.setModel(&model);
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&table);
        QVERIFY(!spoken->state().multiSelectable);
        QVERIFY(spoken->tableInterface()->selectRow(1));
        QVERIFY(spoken->tableInterface()->selectRow(2));
        QCOMPARE(table.selectedRows(), Rows({2}));
        QVERIFY(!spoken->tableInterface()->unselectRow(2));
    }
};

QUORVI_WIDGET_TEST_MAIN(SeveralRowsTest)
#include "SeveralRowsTest.moc"
