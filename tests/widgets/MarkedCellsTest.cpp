// The signs beside a cell's text.
#include "widgets/MarkedCells.h"

#include <QLineEdit>
#include <QStandardItemModel>
#include <QTableView>

#include "widgets/Metrics.h"
#include "widgets/SymbolIcon.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

class MarkedCellsTest : public QObject {
    Q_OBJECT

  private slots:
    void aCellHasItsMarkAtTheEnd_data() {
        QTest::addColumn<Qt::LayoutDirection>("direction");
        QTest::newRow("from the left") << Qt::LeftToRight;
        QTest::newRow("from the right") << Qt::RightToLeft;
    }
    void aCellHasItsMarkAtTheEnd() {
        QFETCH(Qt::LayoutDirection, direction);
        Cells cells;
        cells.table.setLayoutDirection(direction);
        QVERIFY(cells.marks(0).isEmpty());
        cells.mark(0);
        QVERIFY(cells.marks(0).size() >= 4);
        const int middle = cells.table.visualRect(cells.model.index(0, 0)).center().x();
        QVERIFY(direction == Qt::LeftToRight ? cells.firstColumn > middle : cells.lastColumn < middle);
        QVERIFY(cells.marks(1).isEmpty());
    }

    void whatIsBeingTypedStaysWhenASignChanges() {
        Cells cells;
        const QModelIndex cell = cells.model.index(0, 0);
        cells.table.openPersistentEditor(cell);
        auto* editor = qobject_cast<QLineEdit*>(cells.table.indexWidget(cell));
        QVERIFY(editor);
        QCOMPARE(editor->text(), cell.data().toString());
        editor->setText("Desk");
        cells.mark(0);
        QCOMPARE(editor->text(), QStringLiteral("Desk"));
    }

    void aSignStandsBeforeTheText() {
        Cells cells;
        QApplication::setPalette(cells.colours());
        const QModelIndex cell = cells.model.index(0, 0);
        cells.model.setData(cell, int(Symbol::Add), MarkedCells::symbolRole);
        QVERIFY(!cells.marks(0).isEmpty());
        QVERIFY(cells.lastColumn < cells.table.visualRect(cell).center().x());
        QVERIFY(cells.lastColumn - cells.firstColumn <= metrics::iconSize);
        QVERIFY(cells.hasColour(0, Qt::red));
        QApplication::setPalette(QPalette());
    }

    void aTextThatStandsBackIsReadAndIsNotMutedInASelectedRow() {
        Cells cells;
        QPalette dark = Cells::colours();
        dark.setColor(QPalette::Text, Qt::darkBlue);
        cells.table.setPalette(dark);
        cells.model.setData(cells.model.index(0, 0), QStringLiteral("■■"));
        QVERIFY(cells.hasColour(0, Qt::darkBlue));
        cells.model.setData(cells.model.index(0, 0), true, MarkedCells::mutedRole);
        QVERIFY(!cells.hasColour(0, Qt::darkBlue));
        QVERIFY(!cells.marks(0).isEmpty());
        cells.table.selectRow(0);
        QVERIFY(cells.hasColour(0, Qt::red));
    }

    void theBoxOfASelectedRowStandsOnTheListsGround() {
        Cells cells;
        auto* item = new QStandardItem;
        item->setCheckable(true);
        item->setCheckState(Qt::Checked);
        cells.model.setItem(0, item);
        cells.table.selectRow(0);
        const QImage selected = cells.drawn(0);
        QStyleOptionViewItem option;
        option.initFrom(&cells.table);
        option.rect = QRect(QPoint(), selected.size());
        option.features |= QStyleOptionViewItem::HasCheckIndicator;
        const QRect box =
            cells.table.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &cells.table);
        QVERIFY(box.isValid());
        QCOMPARE(selected.pixelColor(box.right() + 1, box.center().y()), QColor(Qt::white));
        QCOMPARE(selected.pixelColor(box.right() + 4, box.center().y()), QColor(Qt::black));
        cells.table.clearSelection();
        QCOMPARE(cells.drawn(0).copy(box), selected.copy(box));
    }

    void theMarkHasTheColourOfTheText() {
        Cells cells;
        cells.mark(0);
        QVERIFY(cells.hasColour(0, Qt::green));
        cells.table.selectRow(0);
        QVERIFY(cells.hasColour(0, Qt::red));
        QVERIFY(!cells.hasColour(0, Qt::green));
    }

  private:
    struct Cells {
        Cells() {
            table.setModel(&model);
            table.setItemDelegate(new MarkedCells(&table));
            table.setShowGrid(false);
            table.setPalette(colours());
            table.setFocusPolicy(Qt::NoFocus);
            table.show();
        }
        [[nodiscard]] static QPalette colours() {
            QPalette palette;
            palette.setColor(QPalette::Text, Qt::green);
            palette.setColor(QPalette::HighlightedText, Qt::red);
            palette.setColor(QPalette::Highlight, Qt::black);
            palette.setColor(QPalette::Base, Qt::white);
            palette.setColor(QPalette::ButtonText, Qt::red);
            return palette;
        }
        void mark(int row) { model.setData(model.index(row, 0), true, MarkedCells::markRole); }
        [[nodiscard]] QImage drawn(int row) {
            return table.viewport()->grab(table.visualRect(model.index(row, 0))).toImage();
        }
        /// How many points of each column are drawn on, of the columns that have any.
        [[nodiscard]] QList<int> marks(int row) {
            const QImage image = drawn(row);
            QList<int> heights;
            for (int x = 0; x < image.width(); ++x) {
                int height = 0;
                for (int y = 0; y < image.height(); ++y)
                    height += image.pixel(x, y) != image.pixel(0, 0) ? 1 : 0;
                if (height == 0)
                    continue;
                firstColumn = heights.isEmpty() ? x : firstColumn;
                lastColumn = x;
                heights << height;
            }
            return heights;
        }
        [[nodiscard]] bool hasColour(int row, const QColor& colour) {
            const QImage image = drawn(row);
            for (int x = 0; x < image.width(); ++x)
                for (int y = 0; y < image.height(); ++y)
                    if (image.pixelColor(x, y) == colour)
                        return true;
            return false;
        }

        QStandardItemModel model{2, 1};
        QTableView table;
        int firstColumn = -1; ///< that marks() found last
        int lastColumn = -1;
    };
};

QUORVI_WIDGET_TEST_MAIN(MarkedCellsTest)
#include "MarkedCellsTest.moc"
