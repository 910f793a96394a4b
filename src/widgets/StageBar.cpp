#include "widgets/StageBar.h"

#include <QPainter>
#include <QPainterPath>

#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr int kTextPadding = 7;
constexpr int kLevelHeight = 4;
constexpr int kLevelGap = 2;
constexpr qreal kCornerRadius = 4.0;

} // namespace

StageBar::StageBar(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void StageBar::setStages(const QList<StageField>& stages, int current) {
    m_stages = stages;
    m_current = current >= 0 && current < stages.size() ? current : -1;
    updateGeometry();
    update();
}

QStringList StageBar::texts() const {
    QStringList texts;
    for (const StageField& stage : m_stages)
        texts << stage.text;
    return texts;
}

qreal StageBar::levelOf(int resolution) const {
    int highest = 1;
    for (const StageField& stage : m_stages)
        highest = qMax(highest, qMax(stage.x, stage.y));
    return qBound(0.0, qreal(resolution) / highest, 1.0);
}

QSize StageBar::sizeHint() const {
    return {360, fontMetrics().height() + 2 * kTextPadding + 2 * kLevelHeight + kLevelGap};
}

QSize StageBar::minimumSizeHint() const {
    int widest = 0;
    for (const StageField& stage : m_stages)
        widest = qMax(widest, fontMetrics().horizontalAdvance(stage.text));
    const int wanted = int(m_stages.size()) * (widest + 2 * kTextPadding + 1);
    return {qMax(160, wanted), sizeHint().height()};
}

void StageBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath outline;
    outline.addRoundedRect(frame, kCornerRadius, kCornerRadius);
    painter.fillPath(outline, palette().color(QPalette::Base));

    const qreal width = m_stages.isEmpty() ? 0.0 : frame.width() / qreal(m_stages.size());
    painter.save();
    painter.setClipPath(outline);
    for (int i = 0; i < m_stages.size(); ++i)
        paintStage(painter,
            QRectF(frame.left() + (mirrored() ? int(m_stages.size()) - 1 - i : i) * width, frame.top(), width,
                frame.height()),
            i);
    painter.restore();
    painter.setPen(outlineColour(palette()));
    painter.drawPath(outline);
}

void StageBar::paintStage(QPainter& painter, const QRectF& field, int index) const {
    const StageField& stage = m_stages.at(index);
    const bool current = index == m_current && isEnabled();
    if (index == m_current) {
        painter.fillRect(field, current ? markGroundColour(palette()) : disabledMarkColour(palette()));
    } else if (index > 0 && index - 1 != m_current) {
        painter.setPen(outlineColour(palette()));
        const qreal start = mirrored() ? field.right() : field.left();
        painter.drawLine(QPointF(start, field.top()), QPointF(start, field.bottom()));
    }
    const QRectF inner = field.adjusted(kTextPadding, 0, -kTextPadding, 0);
    painter.setPen(palette().color(current ? QPalette::HighlightedText : QPalette::Text));
    painter.drawText(inner.adjusted(0, kTextPadding - 2, 0, 0), Qt::AlignHCenter | Qt::AlignTop,
        fontMetrics().elidedText(stage.text, Qt::ElideRight, int(inner.width())));

    const QColor level = current ? palette().color(QPalette::HighlightedText) : mutedTextColour(palette());
    QRectF line(inner.left(), inner.bottom() - kTextPadding, inner.width(), kLevelHeight);
    const auto paintLevel = [&](int resolution) {
        line.setWidth(qMax(1.0, inner.width() * levelOf(resolution)));
        mirrored() ? line.moveRight(inner.right()) : line.moveLeft(inner.left());
        painter.fillRect(line, level);
    };
    if (stage.x == stage.y) {
        line.moveTop(line.top() - kLevelHeight / 2.0);
        paintLevel(stage.x);
        return;
    }
    for (const int resolution : {stage.y, stage.x}) {
        paintLevel(resolution);
        line.moveTop(line.top() - kLevelHeight - kLevelGap);
    }
}

bool StageBar::mirrored() const {
    return layoutDirection() == Qt::RightToLeft;
}

} // namespace quorvi
