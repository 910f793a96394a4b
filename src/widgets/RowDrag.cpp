#include "widgets/RowDrag.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTimerEvent>

#include <algorithm>
#include <utility>

#include "widgets/DraggedRows.h"
#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

namespace {

constexpr int kScrollMargin = 10;
constexpr int kScrollInterval = 60; // milliseconds for a row

} // namespace

RowDrag::RowDrag(KyvarQuorviTableView& table, RowMoves moves)
    : QObject(&table), m_table(table), m_moves(std::move(moves)) {}

RowDrag::~RowDrag() = default;

bool RowDrag::begins(const QMouseEvent& press) const {
    const bool selects = press.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier);
    const QModelIndex cell = m_table.indexAt(press.pos());
    return press.button() == Qt::LeftButton && !selects && cell.isValid() && !m_table.isPopUp(cell) &&
           m_table.isEnabled();
}

bool RowDrag::takes(const QEvent& event) {
    const auto& mouse = static_cast<const QMouseEvent&>(event); // where it is one
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        if (isRunning()) {
            cancel(); // another button
            return true;
        }
        m_isCancelled = false;
        m_pressed = mouse.pos();
        m_pressedRow = begins(mouse) ? m_table.rowAt(m_pressed.y()) : -1;
        return false;
    case QEvent::MouseMove:
        if (m_pressedRow < 0 || !(mouse.buttons() & Qt::LeftButton))
            return m_isCancelled && mouse.buttons() != Qt::NoButton;
        if (!isRunning() && (mouse.pos() - m_pressed).manhattanLength() >= QApplication::startDragDistance())
            begin();
        if (isRunning())
            follow(mouse.pos(), mouse.modifiers() & Qt::AltModifier);
        return true; // moves do not select what is passed
    case QEvent::MouseButtonRelease:
        m_pressedRow = -1;
        if (!isRunning())
            return std::exchange(m_isCancelled, false);
        drop();
        return true;
    default:
        return false;
    }
}

void RowDrag::begin() {
    const std::vector<int> selected = m_table.selectedRows();
    m_rows = std::ranges::binary_search(selected, m_pressedRow) ? selected : std::vector{m_pressedRow};
    m_shown =
        new DraggedRows(m_table, {m_pressed.x(), m_pressed.y() - m_table.rowViewportPosition(m_pressedRow)});
    // Now, so that it comes before whoever watches the table's keys already.
    m_table.installEventFilter(this);
    connect(m_table.model(), &QAbstractItemModel::modelReset, m_shown, [this] { cancel(); });
    m_scrolling.start(kScrollInterval, this);
}

int RowDrag::rowBehind(int y) const {
    const int count = m_table.model()->rowCount();
    const int row = m_table.rowAt(y);
    if (row < 0)
        return y < 0 ? std::max(0, m_table.rowAt(0)) : count;
    return y < m_table.rowViewportPosition(row) + m_table.rowHeight(row) / 2 ? row : row + 1;
}

void RowDrag::follow(const QPoint& point, bool alone) {
    m_point = point;
    m_alone = alone;
    const int before = rowBehind(point.y());
    const std::vector<int> carried = m_moves.carried(m_rows, before, alone);
    m_before = carried.empty() ? -1 : before;
    const bool isAtHome =
        std::ranges::binary_search(m_rows, before) || std::ranges::binary_search(m_rows, before - 1);
    const bool isForbidden = carried.empty() && !isAtHome;
    m_table.viewport()->setCursor(isForbidden ? Qt::ForbiddenCursor : Qt::ClosedHandCursor);
    m_shown->showAt(point, carried.empty() ? m_rows : carried, m_before);
}

void RowDrag::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_scrolling.timerId() || !isRunning())
        return QObject::timerEvent(event);
    QScrollBar& bar = *m_table.verticalScrollBar();
    const int before = bar.value();
    if (m_point.y() < kScrollMargin)
        bar.triggerAction(QAbstractSlider::SliderSingleStepSub);
    else if (m_point.y() > m_table.viewport()->height() - kScrollMargin)
        bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    if (bar.value() != before)
        follow(m_point, m_alone);
}

void RowDrag::drop() {
    const int before = std::exchange(m_before, -1);
    end();
    if (before >= 0)
        m_moves.drop(m_rows, before, m_alone);
}

void RowDrag::end() {
    m_pressedRow = -1;
    m_before = -1;
    if (!isRunning())
        return;
    m_scrolling.stop();
    m_table.removeEventFilter(this);
    m_table.viewport()->unsetCursor();
    m_shown->hide();
    m_shown->deleteLater();
    m_shown = nullptr;
}

void RowDrag::cancel() {
    m_isCancelled = isRunning();
    end();
}

bool RowDrag::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        event->accept();
        return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        const int key = static_cast<const QKeyEvent*>(event)->key();
        if (key == Qt::Key_Escape)
            cancel();
        else if (key == Qt::Key_Alt)
            follow(m_point, event->type() == QEvent::KeyPress);
        event->accept();
        return true;
    }
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::EnabledChange:
        cancel();
        return false;
    default:
        return QObject::eventFilter(watched, event);
    }
}

} // namespace quorvi
