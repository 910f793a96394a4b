#include "widgets/TimelineDrawing.h"

#include <QPolygonF>
#include <QVector>

#include <algorithm>

#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr qreal kGuide = 0.15; ///< the share of the text's colour in the field's

// In heights of letters.
constexpr qreal kBarHeight = 1.05;
constexpr qreal kCap = 0.35;   ///< the marked end of a bar
constexpr qreal kBeyond = 1.0; ///< how far a key that stays down reaches behind the end
constexpr qreal kSlant = 0.3;  ///< of a break mark
constexpr qreal kTick = 0.2;   ///< of the axis
constexpr qreal kFromPointer = 0.8;
constexpr qreal kPadding = 0.3;

constexpr qreal kRounding = 3;
constexpr qreal kEdgeWidth = 3;
constexpr qreal kAxisWidth = 3; ///< where the delay of a selected step is
constexpr qreal kHeadHalf = 4;  ///< of the triangle on the play head

class Drawing {
  public:
    Drawing(QPainter& painter, const TimelineScene& scene)
        : m_painter(painter), m_scene(scene), m_geometry(scene.geometry), m_letters(scene.metrics.height()) {}

    void all() {
        lanes();
        guides();
        m_painter.save();
        m_painter.setClipRect(m_geometry.drawing());
        for (std::size_t bar = 0; bar < m_scene.timeline.bars.size(); ++bar)
            this->bar(bar);
        m_painter.restore();
        foot();
        edge();
        playHead();
    }

  private:
    [[nodiscard]] QColor colour(QPalette::ColorRole role) const { return m_scene.palette.color(role); }
    [[nodiscard]] bool isSelected(std::size_t step) const {
        return std::ranges::find(m_scene.selected, int(step)) != m_scene.selected.end();
    }

    void lanes() {
        const Qt::Alignment side = m_geometry.isMirrored() ? Qt::AlignRight : Qt::AlignLeft;
        m_painter.save();
        m_painter.setClipRect(m_geometry.lanes());
        for (std::size_t lane = 0; lane < m_scene.timeline.lanes.size(); ++lane) {
            if (lane % 2 == 1)
                m_painter.fillRect(m_geometry.lane(lane), colour(QPalette::AlternateBase));
            const QRectF name = m_geometry.name(lane);
            m_painter.setPen(colour(QPalette::Text));
            m_painter.drawText(name, int(side | Qt::AlignVCenter | Qt::AlignAbsolute | Qt::TextSingleLine),
                m_scene.metrics.elidedText(m_scene.laneNames.value(int(lane)), Qt::ElideRight, name.width()));
        }
        m_painter.restore();
    }

    /// From each step down to its place on the axis.
    void guides() {
        const QColor faint = mixed(kGuide, colour(QPalette::Text), colour(QPalette::Base));
        const qreal bottom = m_geometry.foot().top();
        for (std::size_t step = 0; step < m_scene.timeline.steps(); ++step) {
            const bool selected = isSelected(step);
            m_painter.setPen(QPen(selected ? markColour(m_scene.palette) : faint, 1));
            const qreal x = m_geometry.xOf(m_scene.scale.placeOf(step));
            const qreal top = m_geometry.lane(m_scene.timeline.laneOfStep[step]).center().y();
            m_painter.drawLine(QPointF(x, selected ? 0 : qMin(top, bottom)), QPointF(x, bottom));
        }
    }

    void bar(std::size_t index) {
        const TimelineBar& bar = m_scene.timeline.bars[index];
        const QRectF rectangle = rectangleOfBar(m_scene, index);
        const bool whole = bar.kind == BarKind::held || bar.kind == BarKind::pressedAgain;
        m_painter.setPen(QPen(markColour(m_scene.palette), 1, whole ? Qt::SolidLine : Qt::DashLine));
        m_painter.setBrush(whole ? tintColour(m_scene.palette) : colour(QPalette::Base));
        m_painter.drawRoundedRect(rectangle, kRounding, kRounding);
        if (!whole) {
            m_painter.setBrush(QBrush(markColour(m_scene.palette), Qt::BDiagPattern));
            m_painter.drawRoundedRect(rectangle, kRounding, kRounding);
        }
        const bool onMark = markSelection(bar, rectangle);
        breaks(bar, rectangle);
        if (bar.button > 0 && rectangle.width() > m_scene.metrics.averageCharWidth() + 2) {
            m_painter.setPen(colour(onMark ? QPalette::HighlightedText : QPalette::Text));
            m_painter.drawText(rectangle, Qt::AlignCenter, QString::number(bar.button));
        }
    }

    /// Fills the ends of the bar whose steps are selected. Whether that is all of it.
    bool markSelection(const TimelineBar& bar, const QRectF& rectangle) {
        const bool begin = isSelected(bar.first);
        const bool end = bar.kind == BarKind::held && bar.last && isSelected(*bar.last);
        const bool all = begin && (end || bar.kind != BarKind::held);
        if (!begin && !end)
            return false;
        m_painter.setBrush(markGroundColour(m_scene.palette));
        QRectF marked = rectangle;
        if (!all) {
            marked.setWidth(qMin(rectangle.width() / 2, kCap * m_letters));
            if (begin == m_geometry.isMirrored())
                marked.moveRight(rectangle.right());
        }
        m_painter.drawRoundedRect(marked, kRounding, kRounding);
        return all;
    }

    /// Where a bar goes across a delay that is drawn shorter than it is.
    void breaks(const TimelineBar& bar, const QRectF& rectangle) {
        const std::size_t end =
            bar.kind == BarKind::staysDown ? m_scene.timeline.steps() : bar.last.value_or(0);
        for (std::size_t step = bar.first; step < end; ++step)
            if (isDrawnShorter(m_scene.scale.delayOf(step)))
                breakMark(middleOfGap(step), rectangle.adjusted(0, -1, 0, 1));
    }

    [[nodiscard]] qreal middleOfGap(std::size_t step) const {
        return m_geometry.xOf((m_scene.scale.placeOf(step) + m_scene.scale.placeOf(step + 1)) / 2);
    }

    /// Two slanted strokes with nothing between them.
    void breakMark(qreal x, const QRectF& across) {
        const qreal slant = kSlant * m_letters / 2;
        const qreal half = qMax(1.5, slant / 2);
        const QPointF down(-2 * slant, across.height());
        const QPointF left(x - half + slant, across.top());
        const QPointF right(x + half + slant, across.top());
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(colour(QPalette::Base));
        m_painter.drawPolygon(QPolygonF(QVector<QPointF>{left, right, right + down, left + down}));
        m_painter.setPen(QPen(colour(QPalette::Text), 1));
        m_painter.drawLine(left, left + down);
        m_painter.drawLine(right, right + down);
    }

    void foot() {
        const QRectF foot = m_geometry.foot();
        const qreal axis = foot.top() + kTick * m_letters;
        const qreal tick = kTick * m_letters;
        m_painter.setPen(QPen(outlineColour(m_scene.palette), 1));
        m_painter.drawLine(
            QPointF(m_geometry.xOf(0), axis), QPointF(m_geometry.xOf(m_scene.scale.end()), axis));
        for (std::size_t step = 0; step < m_scene.timeline.steps(); ++step) {
            const qreal x = m_geometry.xOf(m_scene.scale.placeOf(step));
            m_painter.drawLine(QPointF(x, axis - tick), QPointF(x, axis + tick));
        }
        for (std::size_t step = 0; step < m_scene.timeline.steps(); ++step)
            gap(step, axis);
    }

    void gap(std::size_t step, qreal axis) {
        const std::int32_t delay = m_scene.scale.delayOf(step);
        const qreal from = m_geometry.xOf(m_scene.scale.placeOf(step));
        const qreal to = m_geometry.xOf(m_scene.scale.placeOf(step + 1));
        if (isSelected(step)) {
            m_painter.setPen(QPen(markColour(m_scene.palette), kAxisWidth));
            m_painter.drawLine(QPointF(from, axis), QPointF(to, axis));
        }
        if (delay == 0)
            return;
        if (isDrawnShorter(delay))
            breakMark((from + to) / 2, QRectF(0, axis - kTick * m_letters, 0, 2 * kTick * m_letters));
        const QRectF foot = m_geometry.foot();
        const QRectF room(qMin(from, to) + 2, axis + 1, qAbs(to - from) - 4, foot.bottom() - axis - 1);
        for (const QString& text : {m_scene.delayText(delay), QString::number(delay)}) {
            if (m_scene.metrics.horizontalAdvance(text) > room.width())
                continue;
            m_painter.setPen(isSelected(step) ? colour(QPalette::Text) : mutedTextColour(m_scene.palette));
            m_painter.drawText(room, Qt::AlignCenter, text);
            return;
        }
    }

    void edge() {
        if (!m_scene.edge)
            return;
        const qreal x = m_geometry.xOf(m_scene.scale.placeOf(*m_scene.edge));
        m_painter.setPen(QPen(markColour(m_scene.palette), kEdgeWidth, Qt::SolidLine, Qt::RoundCap));
        m_painter.drawLine(QPointF(x, 1 + kEdgeWidth / 2), QPointF(x, m_geometry.foot().top()));
    }

    void playHead() {
        if (!m_scene.played)
            return;
        const qreal x = m_geometry.xOf(*m_scene.played);
        const QColor text = colour(QPalette::Text);
        m_painter.setPen(QPen(text, 2));
        m_painter.drawLine(QPointF(x, 0), QPointF(x, m_geometry.foot().top()));
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(text);
        m_painter.drawPolygon(
            QPolygonF(QVector<QPointF>{{x - kHeadHalf, 0}, {x + kHeadHalf, 0}, {x, 1.5 * kHeadHalf}}));
    }

    QPainter& m_painter;
    const TimelineScene& m_scene;
    const TimelineGeometry& m_geometry;
    qreal m_letters;
};

} // namespace

QRectF rectangleOfBar(const TimelineScene& scene, std::size_t index) {
    const TimelineBar& bar = scene.timeline.bars.at(index);
    const TimelineScale& scale = scene.scale;
    const qreal letters = scene.metrics.height();
    const qreal from = scale.placeOf(bar.first);
    qreal to = bar.last ? scale.placeOf(*bar.last) : from + kCap * letters;
    if (bar.kind == BarKind::staysDown)
        to = scale.end() + kBeyond * letters;
    else if (bar.kind == BarKind::pressedAgain)
        to -= 1;
    const QRectF lane = scene.geometry.lane(bar.lane);
    const qreal height = qMin(kBarHeight * letters, lane.height() - 2);
    return scene.geometry.between(
        from, qMax(from + 2, to), QRectF(0, lane.center().y() - height / 2, 0, height));
}

void drawTimeline(QPainter& painter, const TimelineScene& scene) {
    painter.setRenderHint(QPainter::Antialiasing);
    Drawing(painter, scene).all();
}

QRectF rectangleOfPlayHead(const TimelineGeometry& geometry, qreal place) {
    const qreal x = geometry.xOf(place);
    return {x - kHeadHalf - 1, 0, 2 * kHeadHalf + 2, geometry.foot().bottom()};
}

void drawValue(QPainter& painter, const TimelineScene& scene, const QString& value, const QPointF& pointer,
    const QRectF& view) {
    const qreal letters = scene.metrics.height();
    const qreal padding = kPadding * letters;
    QRectF box(0, 0, scene.metrics.horizontalAdvance(value) + 2 * padding, letters + padding);
    const qreal beside = kFromPointer * letters;
    box.moveTopLeft(
        QPointF(scene.geometry.isMirrored() ? pointer.x() - beside - box.width() : pointer.x() + beside,
            pointer.y() - box.height() - padding));
    box.moveLeft(qBound(1.0, box.left(), qMax(1.0, view.width() - box.width() - 1)));
    box.moveTop(qBound(1.0, box.top(), qMax(1.0, view.height() - box.height() - 1)));
    painter.setPen(QPen(scene.palette.color(QPalette::ToolTipText), 1));
    painter.setBrush(scene.palette.color(QPalette::ToolTipBase));
    painter.drawRoundedRect(box, kRounding, kRounding);
    painter.drawText(box, Qt::AlignCenter, value);
}

} // namespace quorvi
