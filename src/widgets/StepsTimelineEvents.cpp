// What the user does with a timeline, by mouse and by keys.

#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QToolTip>

#include <algorithm>
#include <iterator>

#include "widgets/AccessibleParts.h"
#include "widgets/MenuItems.h"
#include "widgets/StepsTimeline.h"
#include "widgets/TimelineDrawing.h"

namespace quorvi {

namespace {

// In heights of letters.
constexpr qreal kReachOfEdge = 0.35;
constexpr qreal kReachOfDelay = 0.35;

bool isLonger(const QKeyEvent& key) {
    // Where the sign takes Shift, without it too.
    return key.key() == Qt::Key_Plus || key.key() == Qt::Key_Equal;
}

bool isShorter(const QKeyEvent& key) {
    return key.key() == Qt::Key_Minus;
}

bool isPlain(const QKeyEvent& key) {
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    return modifiers == Qt::NoModifier ||
           (modifiers == Qt::ShiftModifier && (isLonger(key) || isShorter(key)));
}

} // namespace

// What is at a point

std::optional<std::size_t> StepsTimeline::barAt(const QPointF& point) const {
    const TimelineScene shown = scene();
    std::optional<std::size_t> found;
    for (std::size_t bar = 0; bar < m_content.timeline.bars.size(); ++bar)
        if (rectangleOfBar(shown, bar).contains(point) && m_geometry.drawing().contains(point))
            found = bar;
    return found;
}

// In a lane its own edges; in the foot all of them, and the macro's end where there is a delay before it.
std::optional<std::size_t> StepsTimeline::edgeAt(const QPointF& point) const {
    const Timeline& timeline = m_content.timeline;
    const auto lane = m_geometry.laneAt(point.y());
    if (!m_editable || (!lane && !m_geometry.foot().contains(point)))
        return std::nullopt;
    const std::size_t steps = timeline.steps();
    qreal nearest = kReachOfEdge * letters();
    std::optional<std::size_t> edge;
    for (std::size_t step = 1; step <= steps; ++step) {
        const bool isThere = step < steps ? (!lane || timeline.laneOfStep[step] == *lane)
                                          : !lane && timeline.delays.back() > 0;
        const qreal distance = qAbs(m_geometry.xOf(shownScale().placeOf(step)) - point.x());
        if (isThere && distance <= nearest) {
            nearest = distance;
            edge = step;
        }
    }
    return edge;
}

int StepsTimeline::stepAt(const QPoint& point) const {
    if (const auto bar = barAt(point))
        return int(m_content.timeline.bars[*bar].first);
    if (!m_geometry.foot().contains(point))
        return -1;
    const auto step = shownScale().stepBefore(m_geometry.placeOf(point.x()));
    return step ? int(*step) : -1;
}

QString StepsTimeline::explanationAt(const QPoint& point) const {
    const auto lane = m_geometry.laneAt(point.y());
    if (lane && !m_geometry.drawing().contains(point))
        return m_content.laneNames.value(int(*lane));
    if (const auto edge = edgeAt(point); edge && int(*edge) < stepCount())
        return m_content.stepsInWords.value(int(*edge));
    const auto bar = barAt(point);
    if (!bar)
        return m_content.stepsInWords.value(stepAt(point));
    QStringList lines;
    for (const std::size_t step : m_content.timeline.stepsOfBar(m_content.timeline.bars[*bar]))
        lines << m_content.stepsInWords.value(int(step));
    return lines.join(QLatin1Char('\n'));
}

bool StepsTimeline::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QString text = explanationAt(help->pos());
        // As one with tags, which is wrapped; names of keys are shown as they are.
        QString lines = (text.isEmpty() ? toolTip() : text).toHtmlEscaped();
        lines.replace(QLatin1Char('\n'), QStringLiteral("<br>"));
        QToolTip::showText(help->globalPos(), QStringLiteral("<span>%1</span>").arg(lines), viewport());
        return true;
    }
    if (event->type() == QEvent::Leave && std::exchange(m_edge, std::nullopt))
        viewport()->update();
    return QAbstractScrollArea::viewportEvent(event);
}

// Selecting

void StepsTimeline::chooseSteps(const std::vector<std::size_t>& steps) {
    const std::vector<int> chosen(steps.begin(), steps.end());
    emit stepsChosen(chosen);
}

void StepsTimeline::chooseStep(int step) {
    if (step >= 0 && step < stepCount())
        chooseSteps({std::size_t(step)});
}

// What belongs to each other is selected together, or added to what is selected and taken from it again.
void StepsTimeline::chooseAt(const QPoint& point, bool further) {
    std::vector<std::size_t> steps;
    if (const auto bar = barAt(point))
        steps = m_content.timeline.stepsOfBar(m_content.timeline.bars[*bar]);
    else if (const int step = stepAt(point); step >= 0)
        steps.push_back(std::size_t(step));
    if (steps.empty())
        return;
    std::vector<std::size_t> others;
    if (further)
        std::ranges::copy_if(m_selected, std::back_inserter(others),
            [&](int step) { return std::ranges::find(steps, std::size_t(step)) == steps.end(); });
    const bool isSelected = std::ranges::find(m_selected, int(steps.front())) != m_selected.end();
    if (!further || !isSelected || others.empty())
        others.insert(others.begin(), steps.begin(), steps.end());
    chooseSteps(others);
}

void StepsTimeline::stepDelay(int step, bool longer) {
    if (step < 0 || step >= stepCount())
        return;
    const auto delay = nextDelay(m_usualDelays, m_content.timeline.delays[std::size_t(step)], longer);
    if (delay)
        emit delayChosen(step, *delay);
}

// The mouse

void StepsTimeline::mousePressEvent(QMouseEvent* event) {
    if (!m_editable || event->button() != Qt::LeftButton || m_drag)
        return;
    if (const auto edge = edgeAt(event->pos()))
        m_drag.emplace(m_scale, *edge, event->pos(), m_geometry.placeOf(event->pos().x()));
    else
        chooseAt(event->pos(), event->modifiers() & Qt::ControlModifier);
}

void StepsTimeline::moveDrag(const QPoint& point, Qt::KeyboardModifiers modifiers) {
    const bool exact = modifiers & Qt::ShiftModifier;
    m_drag->moveTo(point, m_geometry.placeOf(point.x()),
        exact ? std::span<const std::int32_t>() : std::span<const std::int32_t>(m_usualDelays),
        kReachOfDelay * letters());
    viewport()->update();
}

void StepsTimeline::mouseMoveEvent(QMouseEvent* event) {
    if (m_drag)
        moveDrag(event->pos(), event->modifiers());
    else if (event->buttons() == Qt::NoButton)
        showEdgeAt(event->pos());
}

void StepsTimeline::showEdgeAt(const QPointF& point) {
    const auto edge = edgeAt(point);
    if (edge == m_edge)
        return;
    m_edge = edge;
    if (edge)
        viewport()->setCursor(Qt::SplitHCursor);
    else
        viewport()->unsetCursor();
    viewport()->update();
}

void StepsTimeline::mouseReleaseEvent(QMouseEvent* event) {
    if (m_drag && event->button() == Qt::LeftButton)
        endDrag(true);
}

// Whoever hears of the delay shows the macro anew, with the drag over.
void StepsTimeline::endDrag(bool taken) {
    const auto drag = std::exchange(m_drag, std::nullopt);
    if (!drag)
        return;
    viewport()->update();
    if (!taken)
        return;
    if (!drag->hasMoved())
        chooseStep(int(qMin(drag->edge(), drag->scale().stepCount() - 1)));
    else if (drag->hasChanged())
        emit delayChosen(int(drag->step()), drag->delay());
}

std::optional<std::int32_t> StepsTimeline::draggedDelay() const {
    return m_drag && m_drag->hasMoved() ? std::optional(m_drag->delay()) : std::nullopt;
}

void StepsTimeline::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!m_editable || event->button() != Qt::LeftButton)
        return;
    const auto edge = edgeAt(event->pos());
    typeDelayOf(edge ? int(*edge) - 1 : stepAt(event->pos()));
}

void StepsTimeline::typeDelayOf(int step) {
    if (step < 0)
        return;
    chooseStep(step);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_F2, Qt::NoModifier);
    handToList(key);
}

void StepsTimeline::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (!m_editable || !m_menu || m_drag)
        return;
    if (event->reason() == QContextMenuEvent::Keyboard)
        return openMenuByKey();
    const int step = stepAt(viewport()->mapFromGlobal(event->globalPos()));
    if (step >= 0 && std::ranges::find(m_selected, step) == m_selected.end())
        chooseAt(viewport()->mapFromGlobal(event->globalPos()));
    m_menu->popup(event->globalPos());
}

void StepsTimeline::openMenuByKey() {
    m_menu->popup(positionOfMenu(*m_menu, *viewport(), barOf(currentStep())));
    activateFirstItem(*m_menu);
}

// Keys

int StepsTimeline::stepOfKey(int key) const {
    const bool mirrored = m_geometry.isMirrored();
    const int current = currentStep();
    switch (key) {
    case Qt::Key_Home:
        return 0;
    case Qt::Key_End:
        return stepCount() - 1;
    case Qt::Key_Up:
        return qMax(0, current - 1);
    case Qt::Key_Down:
        return qMin(current + 1, stepCount() - 1);
    case Qt::Key_Left:
        return stepOfKey(mirrored ? Qt::Key_Down : Qt::Key_Up);
    case Qt::Key_Right:
        return stepOfKey(mirrored ? Qt::Key_Up : Qt::Key_Down);
    default:
        return -1;
    }
}

bool StepsTimeline::isOwnKey(const QKeyEvent& key) const {
    if (m_drag)
        return true;
    const bool opensMenu = keyOpensContextMenu(key);
    return opensMenu || (isPlain(key) && (isLonger(key) || isShorter(key) || stepOfKey(key.key()) >= 0));
}

void StepsTimeline::keyPressEvent(QKeyEvent* event) {
    if (!m_editable)
        return QAbstractScrollArea::keyPressEvent(event);
    event->accept();
    if (m_drag) {
        if (event->key() == Qt::Key_Escape)
            endDrag(false);
        else if (event->key() == Qt::Key_Shift)
            moveDrag(m_drag->pointer(), Qt::ShiftModifier);
    } else if (!isOwnKey(*event)) {
        handToList(*event);
    } else if (keyOpensContextMenu(*event)) {
        if (m_menu)
            openMenuByKey();
    } else if (isLonger(*event) || isShorter(*event)) {
        stepDelay(currentStep(), isLonger(*event));
    } else {
        chooseStep(stepOfKey(event->key()));
    }
}

void StepsTimeline::keyReleaseEvent(QKeyEvent* event) {
    if (m_drag && event->key() == Qt::Key_Shift)
        moveDrag(m_drag->pointer(), Qt::NoModifier);
    else
        QAbstractScrollArea::keyReleaseEvent(event);
}

// The list, and what is around it, have been asked then: nobody is to be asked again.
bool StepsTimeline::handToList(QEvent& event) {
    if (m_list)
        QCoreApplication::sendEvent(m_list, &event);
    event.accept();
    return true;
}

bool StepsTimeline::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate)
        endDrag(false);
    if (event->type() != QEvent::ShortcutOverride || !m_editable)
        return QAbstractScrollArea::event(event);
    if (isOwnKey(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    event->ignore();
    if (m_list)
        QCoreApplication::sendEvent(m_list, event);
    return event->isAccepted();
}

void StepsTimeline::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
    // The timeline tells of itself when this is done.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (hasFocus())
                tellOfPart(*this, currentStep(), QAccessible::Focus);
        },
        Qt::QueuedConnection);
}

void StepsTimeline::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    endDrag(false);
    viewport()->update();
}

void StepsTimeline::showEvent(QShowEvent* event) {
    emit appears();
    QAbstractScrollArea::showEvent(event);
}

void StepsTimeline::hideEvent(QHideEvent* event) {
    QAbstractScrollArea::hideEvent(event);
    endDrag(false);
}

} // namespace quorvi
