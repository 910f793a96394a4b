// Steps that the mouse moves to another place of their list.

#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

#include "pane/MacroFixture.h"
#include "pane/PaneTestMain.h"
#include "widgets/DraggedRows.h"

using namespace quorvi;
using namespace quorvi::test;

namespace {

const QStringList kHi{"1 11 10", "0 11 20", "1 12 30", "0 12 0"};
const QStringList kCtrlC{"1 224 50", "1 6 60", "0 6 70", "0 224 0"};

class DraggedMacro : public MacroFixture {
  public:
    explicit DraggedMacro(const QStringList& steps) : MacroFixture(steps) { table->setFocus(); }

    [[nodiscard]] QPoint centre(int row) const { return cellOf(*this, kStepsTable, row, 0).center(); }
    /// In the upper part of the row: before it. Behind the last one for a row that is not there.
    [[nodiscard]] QPoint edge(int row) const {
        const QRect cell = cellOf(*this, kStepsTable, std::min(row, table->model()->rowCount() - 1), 0);
        return row < table->model()->rowCount() ? cell.center() - QPoint(0, cell.height() / 4)
                                                : cell.center() + QPoint(0, cell.height() / 4);
    }
    void mouse(QEvent::Type type, const QPoint& point, Qt::KeyboardModifiers modifiers = {}) const {
        QWidget* viewport = table->viewport();
        const bool moves = type == QEvent::MouseMove;
        QMouseEvent event(type, QPointF(point), QPointF(viewport->mapTo(viewport->window(), point)),
            QPointF(viewport->mapToGlobal(point)), moves ? Qt::NoButton : Qt::LeftButton,
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, modifiers);
        QCoreApplication::sendEvent(viewport, &event);
    }
    void grab(int row) const { mouse(QEvent::MouseButtonPress, centre(row)); }
    void dragTo(const QPoint& point, Qt::KeyboardModifiers modifiers = {}) const {
        mouse(QEvent::MouseMove, (centre(0) + point) / 2, modifiers);
        mouse(QEvent::MouseMove, point, modifiers);
    }
    void letGo(const QPoint& point) const { mouse(QEvent::MouseButtonRelease, point); }
    void drag(int row, int before, Qt::KeyboardModifiers modifiers = {}) const {
        grab(row);
        dragTo(edge(before), modifiers);
        letGo(edge(before));
    }
    [[nodiscard]] const DraggedRows* shown() const {
        for (const QObject* child : table->children())
            if (const auto* rows = dynamic_cast<const DraggedRows*>(child); rows && rows->isVisible())
                return rows;
        return nullptr;
    }
    [[nodiscard]] QString lastAction() const {
        const QString tip = find<QPushButton>("quorviButtonUndo")->toolTip().section(" (Ctrl", 0, 0);
        return tip.startsWith(QLatin1String("Undo ")) ? tip.mid(5) : QString();
    }

    KyvarQuorviTableView* table = find<KyvarQuorviTableView>(kStepsTable);
};

} // namespace

class StepDragTest : public QObject {
    Q_OBJECT

  private slots:
    void aStepGoesWhereItIsDropped() {
        const DraggedMacro macro(kCtrlC);
        macro.drag(0, 3);
        QCOMPARE(macro.savedSteps(), QStringList({"1 6 60", "0 6 70", "1 224 50", "0 224 0"}));
        QCOMPARE(macro.table->selectedRows(), std::vector({2}));
        QCOMPARE(macro.lastAction(), QStringLiteral("Move Step"));
        macro.click("quorviButtonUndo");
        QCOMPARE(macro.savedSteps(), kCtrlC);
        QCOMPARE(macro.lastAction(), QString());
    }

    void itsOtherHalfGoesAlong() {
        const DraggedMacro macro(kHi);
        macro.grab(0);
        macro.dragTo(macro.edge(4));
        QVERIFY(macro.shown());
        QCOMPARE(macro.shown()->rows(), std::vector({0, 1}));
        macro.letGo(macro.edge(4));
        QVERIFY(!macro.shown());
        QCOMPARE(macro.savedSteps(), QStringList({"1 12 30", "0 12 20", "1 11 10", "0 11 0"}));
        QCOMPARE(macro.table->selectedRows(), std::vector({2, 3}));
        QCOMPARE(macro.lastAction(), QStringLiteral("Move Steps"));
    }

    void withAltItGoesAlone() {
        const DraggedMacro macro(kHi);
        macro.drag(0, 4, Qt::AltModifier);
        QCOMPARE(macro.savedSteps(), QStringList({"0 11 20", "1 12 30", "0 12 10", "1 11 0"}));
    }

    void altCountsWheneverItIsPressed() {
        const DraggedMacro macro(kHi);
        macro.grab(0);
        macro.dragTo(macro.edge(4));
        QTest::keyPress(macro.window->windowHandle(), Qt::Key_Alt, Qt::AltModifier);
        QCOMPARE(macro.shown()->rows(), std::vector({0}));
        QTest::keyRelease(macro.window->windowHandle(), Qt::Key_Alt);
        QCOMPARE(macro.shown()->rows(), std::vector({0, 1}));
        macro.letGo(macro.edge(4));
        QCOMPARE(macro.savedSteps().first(), QStringLiteral("1 12 30"));
    }

    void allSelectedStepsAreDragged() {
        const DraggedMacro macro({"1 11 10", "0 11 20", "1 12 30", "0 12 40", "1 13 50", "0 13 0"});
        macro.table->selectRows({0, 1, 4, 5});
        macro.drag(4, 4);
        QCOMPARE(macro.savedSteps(),
            QStringList({"1 12 30", "0 12 40", "1 11 10", "0 11 20", "1 13 50", "0 13 0"}));
        QCOMPARE(macro.table->selectedRows(), std::vector({2, 3, 4, 5}));
    }

    void aLineShowsWhere() {
        const DraggedMacro macro(kHi);
        macro.grab(3);
        macro.dragTo(macro.edge(0));
        QCOMPARE(macro.shown()->line(), cellOf(macro, kStepsTable, 0, 0).top());
        macro.mouse(QEvent::MouseMove, macro.edge(4));
        QCOMPARE(macro.shown()->line(), -1); // it is there already
        macro.letGo(macro.edge(4));
        QCOMPARE(macro.steps(), kHi);
        QCOMPARE(macro.lastAction(), QString());
    }

    void escapeCallsItOff() {
        const DraggedMacro macro(kHi);
        macro.grab(0);
        macro.dragTo(macro.edge(4));
        QTest::keyClick(macro.window->windowHandle(), Qt::Key_Escape);
        QVERIFY(!macro.shown());
        macro.mouse(QEvent::MouseMove, macro.edge(3));
        macro.letGo(macro.edge(4));
        QCOMPARE(macro.steps(), kHi);
        QVERIFY(macro.window->isVisible());
        macro.drag(0, 4);
        QCOMPARE(macro.steps().first(), QStringLiteral("1 12 30"));
    }

    void otherKeysWait() {
        const DraggedMacro macro(kHi);
        macro.grab(0);
        macro.dragTo(macro.edge(4));
        QTest::keyClick(macro.window->windowHandle(), Qt::Key_D, Qt::ControlModifier);
        QTest::keyClick(macro.window->windowHandle(), Qt::Key_Delete);
        QCOMPARE(macro.steps(), kHi);
        QVERIFY(macro.shown());
        macro.letGo(macro.edge(4));
        QCOMPARE(macro.steps().size(), 4);
    }

    void aClickAndASmallMoveDragNothing() {
        const DraggedMacro macro(kHi);
        macro.grab(1);
        macro.mouse(QEvent::MouseMove, macro.centre(1) + QPoint(1, 1));
        QVERIFY(!macro.shown());
        macro.letGo(macro.centre(1));
        QCOMPARE(macro.table->selectedRows(), std::vector({1}));
        QCOMPARE(macro.steps(), kHi);
    }

    void aDragFromADelayOpensItsMenuInstead() {
        const DraggedMacro macro(kHi);
        const QPoint delay = cellOf(macro, kStepsTable, 0, 1).center();
        macro.mouse(QEvent::MouseButtonPress, delay);
        QVERIFY(QApplication::activePopupWidget());
        MacroFixture::closeMenu();
        macro.mouse(QEvent::MouseMove, macro.edge(4));
        QVERIFY(!macro.shown());
        macro.letGo(macro.edge(4));
        QCOMPARE(macro.steps(), kHi);
    }

    void whileRecordingNothingIsDragged() {
        const DraggedMacro macro(kHi);
        macro.record();
        macro.drag(0, 4);
        QVERIFY(!macro.shown());
        QCOMPARE(macro.steps().mid(0, 3), kHi.mid(0, 3));
    }

    void theListScrollsAtItsEdges() {
        QStringList steps;
        for (int key = 4; key < 12; ++key)
            steps << stepAsText(1, key, 10) << stepAsText(0, key, 20);
        const DraggedMacro macro(steps);
        macro.window->resize(700, 420);
        QCoreApplication::processEvents();
        QScrollBar* bar = macro.table->verticalScrollBar();
        if (bar->maximum() == 0)
            QSKIP("all steps are in view");
        macro.grab(0);
        macro.dragTo(macro.table->viewport()->rect().bottomLeft() + QPoint(20, -2));
        QTRY_COMPARE(bar->value(), bar->maximum());
        macro.letGo(macro.table->viewport()->rect().bottomLeft() + QPoint(20, -2));
        QCOMPARE(macro.steps().mid(14), QStringList({"1 4 10", "0 4 20"}));
    }

    void aNumberIsAsGoodAsItsRow() {
        const DraggedMacro macro(kHi);
        QWidget* numbers = macro.table->verticalHeader()->viewport();
        const auto beside = [&](int row) { return QPoint(numbers->width() / 2, macro.centre(row).y()); };
        QTest::mouseClick(numbers, Qt::LeftButton, {}, beside(1));
        QCOMPARE(macro.table->selectedRows(), std::vector({1}));
        QTest::mouseClick(numbers, Qt::LeftButton, Qt::ShiftModifier, beside(3));
        QCOMPARE(macro.table->selectedRows(), std::vector({1, 2, 3}));
        QCOMPARE(macro.shown(), nullptr);
        macro.record();
        QTest::mouseClick(numbers, Qt::LeftButton, {}, beside(0));
        QCOMPARE(macro.steps().mid(4), QStringList({"129 0 10", "128 0 0"}));
    }
};

QUORVI_PANE_TEST_MAIN(StepDragTest)
#include "StepDragTest.moc"
