#include <QAccessible>
#include <QHeaderView>
#include <QStandardItemModel>

#include <limits>
#include <set>

#include "widgets/AccelerationCurve.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/StageBar.h"
#include "widgets/SymbolIcon.h"
#include "widgets/SymbolOutlines.h"
#include "widgets/TableColumns.h"
#include "widgets/ThemeColours.h"
#include "widgets/WidgetTestMain.h"

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

    void tableWithoutNeedOfItsModelHasNoRowsYet() {
        KyvarQuorviTableView table;
        QStandardItemModel model(3, 2);
        table.setModelLater(&model);
        table.selectRowAlone(1);
        QVERIFY(!table.model());
        QCOMPARE(table.selectedRow(), -1);
        table.completeModel();
        QCOMPARE(table.model(), &model);
        table.selectRowAlone(1);
        QCOMPARE(table.selectedRow(), 1);
        QStandardItemModel next(1, 1);
        table.setModel(&next);
        table.completeModel(); // what was awaited once is not any more
        QCOMPARE(table.model(), &next);
    }

    void tableIsWholeWhenItIsShown() {
        KyvarQuorviTableView table;
        QStandardItemModel model(3, 2);
        table.setModelLater(&model);
        table.show();
        QCOMPARE(table.model(), &model);
        QCOMPARE(table.horizontalHeader()->count(), 2);
        QStandardItemModel next(1, 1);
        table.setModelLater(&next); // it will not be shown for the first time again
        QCOMPARE(table.model(), &next);
    }

    void tableIsWholeForWhoeverReadsItOut() {
        KyvarQuorviTableView table;
        QStandardItemModel model(3, 2);
        table.setModelLater(&model);
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&table);
        QVERIFY(spoken && spoken->tableInterface());
        QCOMPARE(spoken->tableInterface()->rowCount(), 3);
        QCOMPARE(spoken->tableInterface()->columnCount(), 2);
    }

    void tableTellsOfEveryOtherSelectedRow() {
        KyvarQuorviTableView table;
        QStandardItemModel model(3, 2);
        table.setModel(&model);
        int selected = -2;
        connect(&table, &KyvarQuorviTableView::selectedRowChanged, &table,
            [&] { selected = table.selectedRow(); });
        table.selectRowAlone(2);
        QCOMPARE(selected, 2);
        table.deselectAll();
        QCOMPARE(selected, -1);
    }

    void tableLaysOutItsColumnsSoThatTheirTitlesFit_data() {
        QTest::addColumn<bool>("modelComesFirst");
        QTest::newRow("when it is shown") << true;
        QTest::newRow("when its model comes") << false;
    }
    void tableLaysOutItsColumnsSoThatTheirTitlesFit() {
        QFETCH(bool, modelComesFirst);
        KyvarQuorviTableView table;
        table.setProperty("tag", 1);
        table.setVisible(!modelComesFirst);
        QStandardItemModel model(1, 4);
        model.setHorizontalHeaderLabels(
            {"No.", "Profile", "Application", "Very long title of the last column"});
        table.setModel(&model);
        table.show();
        const QHeaderView* header = table.horizontalHeader();
        QCOMPARE(header->sectionResizeMode(0), QHeaderView::Interactive);
        QCOMPARE(header->sectionResizeMode(1), QHeaderView::Stretch);
        QVERIFY(header->sectionSize(3) >=
                header->fontMetrics().horizontalAdvance("Very long title of the last column"));
        QVERIFY(header->height() >= header->sizeHint().height());
        QCOMPARE(table.viewport()->geometry().top(), header->geometry().bottom() + 1);
    }

    void tableTakesAModelWithTooFewColumnsAndNone() {
        KyvarQuorviTableView table;
        table.show();
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
        bar.resize(400, 40);
        bar.setStages({{"A", 100, 100}, {"B", 200, 200}, {"C", 300, 300}, {"D", 400, 400}}, 1);
        const QColor mark = markGroundColour(bar.palette());
        const QImage image = bar.grab().toImage();
        QCOMPARE(image.pixelColor(105, 20), mark);
        QVERIFY(image.pixelColor(5, 20) != mark);
        QVERIFY(image.pixelColor(205, 20) != mark);
    }

    void stageBarOfADisabledPanelIsNotHighlighted() {
        StageBar bar;
        bar.resize(200, 40);
        bar.setStages({{"A", 100, 100}, {"B", 200, 200}}, 0);
        QPalette palette;
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Disabled})
            palette.setColor(group, QPalette::Highlight, Qt::magenta);
        bar.setPalette(palette);
        QCOMPARE(bar.grab().toImage().pixelColor(5, 20), markGroundColour(palette));
        bar.setEnabled(false);
        const QImage image = bar.grab().toImage();
        QVERIFY(image.pixelColor(5, 20) != QColor(Qt::magenta));
        QVERIFY(image.pixelColor(5, 20) != image.pixelColor(195, 5));
    }

    void stageBarComparesEachResolutionWithTheHighest() {
        StageBar bar;
        bar.setStages({{"A", 100, 100}, {"B", 400, 800}, {"C", -5, -5}}, 0);
        QCOMPARE(bar.levelOf(800), 1.0);
        QCOMPARE(bar.levelOf(400), 0.5);
        QCOMPARE(bar.levelOf(100), 0.125);
        QCOMPARE(bar.levelOf(-5), 0.0);
        bar.setStages({{"A", 0, 0}, {"B", 0, 0}}, 0);
        QCOMPARE(bar.levelOf(0), 0.0);
        QVERIFY(!bar.grab().isNull());
    }

    void stageBarDrawsALevelForEachAxis() {
        StageBar bar;
        bar.resize(200, 44);
        bar.setStages({{"A", 400, 800}}, -1);
        const QImage image = bar.grab().toImage();
        const QColor background = bar.palette().color(QPalette::Base);
        const auto inked = [&](int x) {
            int rows = 0;
            for (int y = 22; y < 42; ++y)
                rows += image.pixelColor(x, y) != background;
            return rows;
        };
        QVERIFY(inked(20) > inked(150)); // both axes reach as far as this, only one as far as that
        QVERIFY(inked(150) > 0);
    }

    void accelerationCurveIsTheNeutralLineForTheNeutralFactorAndForNonsense() {
        AccelerationCurve curve;
        curve.resize(200, 120);
        const QImage neutral = curve.grab().toImage();
        for (const float factor : {1.0F, 0.0F, 0.05F, 2.5F, -1.0F, std::numeric_limits<float>::infinity(),
                 std::numeric_limits<float>::quiet_NaN()}) {
            curve.setFactor(factor);
            QCOMPARE(curve.factor(), 1.0F);
            QCOMPARE(curve.grab().toImage(), neutral);
        }
        curve.setFactor(1.2F);
        QVERIFY(curve.grab().toImage() != neutral);
    }

    void accelerationCurveEndsAtItsFactor() {
        AccelerationCurve curve;
        curve.resize(220, 140);
        const QRectF plot = curve.plot();
        const QColor mark = curve.palette().color(QPalette::Highlight);
        for (const float factor : {0.1F, 0.5F, 1.0F, 1.6F, 1.9F}) {
            curve.setFactor(factor);
            const QImage image = curve.grab().toImage();
            const int x = int(plot.right()) - 1;
            const int y = qRound(plot.bottom() - plot.height() * double(factor) / 2.0);
            bool found = false;
            for (int row = y - 4; row <= y + 4; ++row)
                found = found || image.pixelColor(x, row) == mark;
            QVERIFY2(found, qPrintable(QString::number(double(factor))));
        }
    }

    void pointerSpeedRisesFromTheHandsSpeedToTheFactor() {
        for (const double factor : {0.1, 0.5, 1.0, 1.5, 2.0}) {
            QCOMPARE(pointerSpeed(0.0, factor), 0.0);
            QVERIFY(qAbs(pointerSpeed(1.0, factor) - factor) < 1e-12);
            QVERIFY(qAbs(pointerSpeed(0.001, factor) / 0.001 - 1.0) < 0.01);
            for (int step = 1; step <= 100; ++step)
                QVERIFY(pointerSpeed(step / 100.0, factor) > pointerSpeed((step - 1) / 100.0, factor));
        }
        QCOMPARE(pointerSpeed(0.37, 1.0), 0.37);
    }

    void drawnTextAndLinesStandOutFromTheirFieldInLightAndDark_data() {
        QTest::addColumn<QColor>("base");
        QTest::addColumn<QColor>("text");
        QTest::newRow("light") << QColor(Qt::white) << QColor(Qt::black);
        QTest::newRow("dark") << QColor(30, 30, 30) << QColor(Qt::white);
    }

    void drawnTextAndLinesStandOutFromTheirFieldInLightAndDark() {
        QFETCH(QColor, base);
        QFETCH(QColor, text);
        QPalette palette;
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Text, text);
        const auto distance = [&](const QColor& colour) {
            return qAbs(colour.lightness() - base.lightness());
        };
        QVERIFY(distance(outlineColour(palette)) >= 70);
        QVERIFY(distance(mutedTextColour(palette)) >= 120);
        for (const QColor& highlight : {QColor(0x15, 0x53, 0x9e), QColor(0x30, 0x8c, 0xc6)}) {
            palette.setColor(QPalette::Highlight, highlight);
            QVERIFY(distance(markColour(palette)) >= 70);
        }
    }

    void stageBarOfAMirroredPanelBeginsOnTheRight() {
        StageBar bar;
        bar.resize(200, 44);
        bar.setStages({{"A", 100, 100}, {"B", 400, 400}}, 0);
        const QColor mark = markGroundColour(bar.palette());
        QCOMPARE(bar.grab().toImage().pixelColor(10, 20), mark);
        bar.setLayoutDirection(Qt::RightToLeft);
        const QImage image = bar.grab().toImage();
        QCOMPARE(image.pixelColor(190, 20), mark);
        QVERIFY(image.pixelColor(10, 20) != mark);
    }

    void mirroredTableSelectsTheRowAndAlignsItsTitles() {
        KyvarQuorviTableView table;
        QStandardItemModel model(3, 2);
        table.setModel(&model);
        table.setLayoutDirection(Qt::RightToLeft);
        table.resize(300, 200);
        table.selectRowAlone(1);
        QCOMPARE(table.selectionModel()->selectedRows().size(), 1);
        QCOMPARE(table.selectedRow(), 1);
        QCOMPARE(table.currentIndex(), model.index(1, 0));
        QVERIFY(table.horizontalHeader()->defaultAlignment() & Qt::AlignRight);
        table.setLayoutDirection(Qt::LeftToRight);
        QVERIFY(table.horizontalHeader()->defaultAlignment() & Qt::AlignLeft);
    }

    void stageBarMarksNoneForAnIndexOutside() {
        StageBar bar;
        bar.setStages({{"A"}, {"B"}}, 2);
        QCOMPARE(bar.currentStage(), -1);
        bar.setStages({{"A"}, {"B"}}, -1);
        QCOMPARE(bar.currentStage(), -1);
        bar.setStages({}, 0);
        QCOMPARE(bar.currentStage(), -1);
        QVERIFY(!bar.grab().isNull());
    }

    void symbolsDifferAndFollowThePalette() {
        const QPalette before = QApplication::palette();
        std::set<QByteArray> seen;
        int count = 0;
        for (; count <= int(Symbol::Close); ++count)
            seen.insert(pixels(Symbol(count), QIcon::Normal));
        QCOMPARE(count, 50);
        QCOMPARE(seen.size(), std::size_t(count));

        QPalette bright = before;
        bright.setColor(QPalette::Active, QPalette::ButtonText, Qt::magenta);
        const QByteArray add = pixels(Symbol::Add, QIcon::Normal);
        QApplication::setPalette(bright);
        const QByteArray brightAdd = pixels(Symbol::Add, QIcon::Normal);
        QApplication::setPalette(before);
        QVERIFY(add != brightAdd);
        QVERIFY(pixels(Symbol::Record, QIcon::Normal) != pixels(Symbol::Record, QIcon::Disabled));
    }

    void symbolsStayWithinTheirGrid() {
        const QRectF grid(0, 0, kSymbolGrid, kSymbolGrid);
        for (int symbol = 0; symbol <= int(Symbol::Close); ++symbol) {
            const SymbolOutline outline = outlineOf(Symbol(symbol));
            QPainterPathStroker pen;
            pen.setWidth(kSymbolPen);
            const QRectF drawn =
                outline.areas.boundingRect().united(pen.createStroke(outline.lines).boundingRect());
            QVERIFY2(!drawn.isEmpty() && grid.contains(drawn), qPrintable(QString::number(symbol)));
        }
    }

    void arcsOfAPathGoAroundTheirCircle() {
        const auto nearTo = [](QPointF a, QPointF b) { return (a - b).manhattanLength() < 0.01; };
        const auto covers = [&](const char* notation, const QRectF& wanted) {
            const QRectF found = pathFrom(notation).boundingRect();
            return nearTo(found.topLeft(), wanted.topLeft()) &&
                   nearTo(found.bottomRight(), wanted.bottomRight());
        };
        // The four ways between two points that are a quarter of a circle apart.
        QVERIFY(covers("M0 4 A4 4 0 0 1 4 0", {0, 0, 4, 4}));
        QVERIFY(covers("M0 4 A4 4 0 0 0 4 0", {0, 0, 4, 4}));
        QVERIFY(covers("M0 4 A4 4 0 1 1 4 0", {-4, -4, 8, 8}));
        QVERIFY(covers("M0 4 A4 4 0 1 0 4 0", {0, 0, 8, 8}));
        QVERIFY(nearTo(pathFrom("M0 4 A4 4 0 0 1 4 0").pointAtPercent(0.5), {1.1716, 1.1716}));
        QVERIFY(nearTo(pathFrom("M0 4 A4 4 0 0 0 4 0").pointAtPercent(0.5), {2.8284, 2.8284}));
    }

  private:
    static QByteArray pixels(Symbol symbol, QIcon::Mode mode) {
        const QImage image = symbolIcon(symbol).pixmap(QSize(32, 32), mode).toImage();
        return QByteArray(reinterpret_cast<const char*>(image.constBits()), int(image.sizeInBytes()));
    }
};

QUORVI_WIDGET_TEST_MAIN(ViewsTest)
#include "ViewsTest.moc"
