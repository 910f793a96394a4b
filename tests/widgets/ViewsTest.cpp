#include "platform/widgets/KyvarQuorviTableView.h"
#include "platform/widgets/MouseView.h"
#include "platform/widgets/StageBar.h"
#include "platform/widgets/SymbolIcon.h"
#include "platform/widgets/TableColumns.h"
#include "widgets/WidgetTestMain.h"

#include <QHeaderView>
#include <QStandardItemModel>
#include <set>

using namespace quorvi;

/// Leaves everything to the table.
class IdleDelegate : public TableDelegate {
  public:
    bool handleMouseEvent(const QMouseEvent&, int, KyvarQuorviTableView*) override { return false; }
    void handleKeyPressed(char16_t, KyvarQuorviTableView*, int) override {}
};

class ViewsTest : public QObject {
    Q_OBJECT

  private slots:
    void tableSelectsOneWholeRow() {
        KyvarQuorviTableView table;
        IdleDelegate delegate;
        table.setDelegate(&delegate);
        QStandardItemModel model(3, 2);
        table.setModel(&model);
        table.resize(300, 200);
        table.selectAll();
        table.selectRow(0);
        QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::ControlModifier,
            table.visualRect(model.index(2, 1)).center());
        QCOMPARE(table.selectionModel()->selectedRows().size(), 1);
        QCOMPARE(table.selectionModel()->selectedIndexes().size(), 2);
        QCOMPARE(table.selectionModel()->selectedRows().first().row(), 2);
    }

    void tableWithoutATagHasTagZero() {
        KyvarQuorviTableView table;
        QCOMPARE(table.tag(), 0);
        table.setProperty("tag", 3);
        QCOMPARE(table.tag(), 3);
    }

    void tableLaysOutItsColumnsSoThatTheirTitlesFit() {
        KyvarQuorviTableView table;
        table.setProperty("tag", 1);
        QStandardItemModel model(1, 4);
        model.setHorizontalHeaderLabels(
            {"No.", "Profile", "Application", "Very long title of the last column"});
        table.setModel(&model);
        const QHeaderView* header = table.horizontalHeader();
        QCOMPARE(header->sectionResizeMode(0), QHeaderView::Interactive);
        QCOMPARE(header->sectionResizeMode(1), QHeaderView::Stretch);
        QVERIFY(header->sectionSize(3) >=
                header->fontMetrics().horizontalAdvance("Very long title of the last column"));
    }

    void tableTakesAModelWithTooFewColumnsAndNone() {
        KyvarQuorviTableView table;
        table.setProperty("tag", 1);
        QStandardItemModel model(1, 2);
        table.setModel(&model);
        QCOMPARE(table.horizontalHeader()->sectionResizeMode(1), QHeaderView::Stretch);
        table.setModel(nullptr);
        QVERIFY(!table.model());
    }

    void tableForgetsADeletedMenu() {
        KyvarQuorviTableView table;
        auto menu = std::make_unique<QMenu>();
        table.setMenu(menu.get());
        QCOMPARE(table.menu(), menu.get());
        menu.reset();
        QVERIFY(!table.menu());
    }

    void columnsOfTheTables() {
        const auto identifiers = [](int tag) {
            QList<int> list;
            for (const TableColumn& column : tableColumns(tag))
                list << column.identifier;
            return list;
        };
        QCOMPARE(identifiers(1), QList<int>({11, 12, 13, 14}));
        QCOMPARE(identifiers(2), QList<int>({21}));
        QCOMPARE(identifiers(3), QList<int>({31, 32}));
        QCOMPARE(identifiers(4), QList<int>({41, 42}));
        QCOMPARE(identifiers(5), QList<int>());
    }

    void stageBarMarksTheCurrentStageOnly() {
        StageBar bar;
        bar.resize(400, 30);
        bar.setStages({"A", "B", "C", "D"}, 1);
        const QColor mark = bar.palette().color(QPalette::Highlight);
        const QImage image = bar.grab().toImage();
        QCOMPARE(image.pixelColor(110, 15), mark);
        QVERIFY(image.pixelColor(10, 15) != mark);
        QVERIFY(image.pixelColor(210, 15) != mark);
        QCOMPARE(bar.accessibleDescription(), QString("A, B, C, D"));
    }

    void stageBarMarksNoneForAnIndexOutside() {
        StageBar bar;
        bar.setStages({"A", "B"}, 2);
        QCOMPARE(bar.currentStage(), -1);
        bar.setStages({"A", "B"}, -1);
        QCOMPARE(bar.currentStage(), -1);
        bar.setStages({}, 0);
        QCOMPARE(bar.currentStage(), -1);
        QVERIFY(!bar.grab().isNull());
    }

    void mouseViewMarksInputsOneToNine() {
        MouseView view;
        view.resize(220, 330);
        const QImage plain = view.grab().toImage();
        for (int input = 1; input <= 9; ++input) {
            view.setMarkedInput(input);
            QCOMPARE(view.markedInput(), input);
            QVERIFY(view.grab().toImage() != plain);
        }
        view.setMarkedInput(10);
        QCOMPARE(view.markedInput(), 0);
        QCOMPARE(view.grab().toImage(), plain);
    }

    void symbolsDifferAndFollowThePalette() {
        const QPalette before = QApplication::palette();
        std::set<QByteArray> seen;
        for (Symbol symbol : {Symbol::Add, Symbol::Remove, Symbol::Gear, Symbol::Record})
            seen.insert(pixels(symbol, QIcon::Normal));
        QCOMPARE(seen.size(), std::size_t(4));

        QPalette bright = before;
        bright.setColor(QPalette::Active, QPalette::ButtonText, Qt::magenta);
        const QByteArray add = pixels(Symbol::Add, QIcon::Normal);
        QApplication::setPalette(bright);
        const QByteArray brightAdd = pixels(Symbol::Add, QIcon::Normal);
        QApplication::setPalette(before);
        QVERIFY(add != brightAdd);
        QVERIFY(pixels(Symbol::Record, QIcon::Normal) != pixels(Symbol::Record, QIcon::Disabled));
    }

  private:
    static QByteArray pixels(Symbol symbol, QIcon::Mode mode) {
        const QImage image = symbolIcon(symbol).pixmap(QSize(32, 32), mode).toImage();
        return QByteArray(reinterpret_cast<const char*>(image.constBits()), int(image.sizeInBytes()));
    }
};

QUORVI_WIDGET_TEST_MAIN(ViewsTest)
#include "ViewsTest.moc"
