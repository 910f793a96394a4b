// The mark beside the text of one cell.
#include "widgets/MarkedCells.h"

#include <QStandardItemModel>
#include <QTableView>

#include "widgets/ThemeColours.h"
#include "widgets/WidgetTestMain.h"

using namespace quorvi;

class MarkedCellsTest : public QObject {
    Q_OBJECT

  private slots:
    void aCellHasItsMarkAtTheEndAndPointingAtTheRow_data() {
        QTest::addColumn<Qt::LayoutDirection>("direction");
        QTest::newRow("from the left") << Qt::LeftToRight;
        QTest::newRow("from the right") << Qt::RightToLeft;
    }
    void aCellHasItsMarkAtTheEndAndPointingAtTheRow() {
        QFETCH(Qt::LayoutDirection, direction);
        Cells cells;
        cells.table.setLayoutDirection(direction);
        QVERIFY(cells.marks(0).isEmpty());
        cells.mark(0);
        QList<int> heights = cells.marks(0);
        if (direction == Qt::RightToLeft)
            std::reverse(heights.begin(), heights.end());
        QVERIFY(heights.size() >= 4);
        QVERIFY(std::is_sorted(heights.rbegin(), heights.rend())); // lower and lower
        QVERIFY(heights.first() > heights.last());
        QVERIFY(cells.marks(1).isEmpty());
        const int middle = cells.table.visualRect(cells.model.index(0, 0)).center().x();
        QVERIFY(direction == Qt::LeftToRight ? cells.firstColumn > middle : cells.lastColumn < middle);
    }

    void theMarkHasTheColourOfTheText() {
        Cells cells;
        QPalette palette;
        palette.setColor(QPalette::Text, Qt::green);
        palette.setColor(QPalette::HighlightedText, Qt::red);
        palette.setColor(QPalette::Highlight, Qt::black);
        palette.setColor(QPalette::Base, Qt::white);
        cells.table.setPalette(palette);
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
            table.setFocusPolicy(Qt::NoFocus);
            table.show();
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
