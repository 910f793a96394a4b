// What a timeline shows, and where. What the user does with it is in StepsTimelineEvents.cpp.

#include "widgets/StepsTimeline.h"

#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QtMath>

#include <algorithm>
#include <utility>

#include "widgets/AccessibleParts.h"
#include "widgets/Metrics.h"
#include "widgets/ThemeColours.h"
#include "widgets/TimelineDrawing.h"

namespace quorvi {

namespace {

constexpr std::size_t kLeastLanes = 3;
/// The height is the same up to so many, so that nothing moves when a recording needs one more.
constexpr std::size_t kSteadyLanes = 5;
constexpr int kFocusWidth = 2;

// In heights of letters.
constexpr qreal kRoomOfStep = 0.35;
constexpr qreal kLongestMillisecond = 0.12;

} // namespace

StepsTimeline::StepsTimeline(QWidget* parent)
    : QAbstractScrollArea(parent), m_delayText([](std::int32_t delay) { return QString::number(delay); }) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setMouseTracking(true);
    layOut();
}

void StepsTimeline::setContent(TimelineContent content) {
    if (content == m_content)
        return;
    const bool sameSteps = content.timeline == m_content.timeline;
    const bool sameCount = content.timeline.steps() == m_content.timeline.steps();
    m_content = std::move(content);
    if (!sameSteps) {
        m_drag.reset();
        m_edge.reset();
    }
    layOut();
    if (!sameCount)
        forgetAccessibleParts(*this);
    else if (hasFocus())
        tellOfPart(*this, currentStep(), QAccessible::NameChanged);
}

void StepsTimeline::setSelectedSteps(std::vector<int> steps, int current) {
    if (steps == m_selected && current == m_current)
        return;
    const bool moves = current != m_current;
    m_selected = std::move(steps);
    m_current = current;
    showCurrentStep();
    viewport()->update();
    if (moves && hasFocus())
        tellOfPart(*this, currentStep(), QAccessible::Focus);
}

void StepsTimeline::setEditable(bool editable) {
    if (std::exchange(m_editable, editable) == editable)
        return;
    setFocusPolicy(editable ? Qt::StrongFocus : Qt::NoFocus);
    m_drag.reset();
    m_edge.reset();
    viewport()->unsetCursor();
    viewport()->update();
}

void StepsTimeline::setDelayText(std::function<QString(std::int32_t)> text) {
    m_delayText = std::move(text);
    viewport()->update();
}

void StepsTimeline::setEmptyText(const QString& text) {
    m_emptyText = text;
    viewport()->update();
}

void StepsTimeline::setMenu(QMenu* menu) {
    m_menu = menu;
}

// The play head

std::optional<qreal> StepsTimeline::playHead() const {
    return m_played ? std::optional(m_geometry.xOf(shownScale().placeOfTime(double(m_played->count()))))
                    : std::nullopt;
}

void StepsTimeline::updatePlayHead() {
    if (m_played)
        viewport()->update(
            rectangleOfPlayHead(m_geometry, shownScale().placeOfTime(double(m_played->count())))
                .toAlignedRect());
}

// Only the two strips are drawn again: it moves with every frame.
void StepsTimeline::setPlayedTime(std::optional<std::chrono::milliseconds> time) {
    if (time == m_played)
        return;
    updatePlayHead();
    m_played = time;
    updatePlayHead();
}

// Where things are

qreal StepsTimeline::letters() const {
    return qreal(fontMetrics().height());
}

QSize StepsTimeline::sizeHint() const {
    return {int(20 * letters()), usualHeight()};
}

// The list below has the rest of the room.
int StepsTimeline::usualHeight() const {
    const std::size_t lanes = qMax(kSteadyLanes, m_content.timeline.lanes.size());
    const int good = int(TimelineGeometry::goodHeight(lanes, letters())) + 2 * frameWidth();
    return qMax(minimumSizeHint().height(), qMin(good, metrics::mostTimeline));
}

QSize StepsTimeline::minimumSizeHint() const {
    return {
        int(10 * letters()), int(TimelineGeometry::leastHeight(kLeastLanes, letters())) + 2 * frameWidth()};
}

void StepsTimeline::layOut() {
    const std::size_t lanes = m_content.timeline.lanes.size();
    int widest = 0;
    for (const QString& name : std::as_const(m_content.laneNames))
        widest = qMax(widest, fontMetrics().horizontalAdvance(name));
    const auto place = [&] {
        m_geometry = TimelineGeometry(viewport()->size(), lanes, {letters(), qreal(widest)},
            layoutDirection() == Qt::RightToLeft, verticalScrollBar()->value());
    };
    place();
    verticalScrollBar()->setPageStep(qMax(1, int(m_geometry.drawing().height())));
    verticalScrollBar()->setSingleStep(qMax(1, int(m_geometry.laneHeight())));
    verticalScrollBar()->setRange(0, qCeil(m_geometry.hidden()));
    place(); // the bar may have come or gone
    m_scale = TimelineScale(m_content.timeline.delays, m_geometry.width(),
        {.room = kRoomOfStep * letters(), .longestMillisecond = kLongestMillisecond * letters()});
    setMaximumHeight(usualHeight());
    viewport()->update();
}

void StepsTimeline::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    m_drag.reset();
    layOut();
    showCurrentStep();
}

void StepsTimeline::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    const QEvent::Type type = event->type();
    if (type == QEvent::EnabledChange && !isEnabled())
        endDrag(false);
    if (type == QEvent::FontChange || type == QEvent::StyleChange || type == QEvent::LayoutDirectionChange) {
        m_drag.reset();
        updateGeometry();
        layOut();
    }
}

void StepsTimeline::scrollContentsBy(int /*dx*/, int /*dy*/) {
    layOut();
}

void StepsTimeline::showCurrentStep() {
    if (currentStep() < 0)
        return;
    const QRectF lane = m_geometry.lane(m_content.timeline.laneOfStep[std::size_t(currentStep())]);
    const qreal scrolled = verticalScrollBar()->value();
    if (lane.top() < 0)
        verticalScrollBar()->setValue(qFloor(scrolled + lane.top()));
    else if (const qreal below = lane.bottom() - m_geometry.drawing().height(); below > 0)
        verticalScrollBar()->setValue(qCeil(scrolled + below));
}

TimelineScene StepsTimeline::scene() const {
    const std::optional<std::size_t> edge = m_drag && m_drag->hasMoved() ? m_drag->edge() : m_edge;
    const auto played =
        m_played ? std::optional<qreal>(shownScale().placeOfTime(double(m_played->count()))) : std::nullopt;
    return {.timeline = m_content.timeline,
        .scale = shownScale(),
        .geometry = m_geometry,
        .laneNames = m_content.laneNames,
        .delayText = m_delayText,
        .selected = m_selected,
        .edge = edge,
        .played = played,
        .palette = palette(),
        .metrics = QFontMetricsF(font())};
}

QPoint StepsTimeline::edgeOf(int step) const {
    const auto index = std::size_t(qBound(0, step, stepCount()));
    const qreal x = m_geometry.xOf(shownScale().placeOf(index));
    const qreal y = step < stepCount() ? m_geometry.lane(m_content.timeline.laneOfStep[index]).center().y()
                                       : m_geometry.foot().center().y();
    return QPointF(x, y).toPoint();
}

QRect StepsTimeline::barOf(int step) const {
    if (step < 0 || step >= stepCount())
        return {};
    return rectangleOfBar(scene(), m_content.timeline.barOfStep(std::size_t(step))).toAlignedRect();
}

void StepsTimeline::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(viewport());
    if (stepCount() == 0) {
        painter.setPen(mutedTextColour(palette()));
        painter.drawText(viewport()->rect().adjusted(int(letters()), 0, -int(letters()), 0),
            int(Qt::AlignCenter) | int(Qt::TextWordWrap), m_emptyText);
    } else {
        drawTimeline(painter, scene());
    }
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(markColour(palette()), kFocusWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        const int inset = kFocusWidth / 2;
        painter.drawRect(viewport()->rect().adjusted(inset, inset, -inset, -inset));
    }
    if (const auto delay = draggedDelay())
        drawValue(painter, scene(), m_delayText(*delay), m_drag->pointer(), viewport()->rect());
}

} // namespace quorvi
