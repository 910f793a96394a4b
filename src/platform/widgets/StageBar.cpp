#include "platform/widgets/StageBar.h"

#include <QPainter>
#include <QPainterPath>

namespace quorvi {

namespace {

constexpr int textPadding = 7;
constexpr qreal cornerRadius = 4.0;

} // namespace

StageBar::StageBar(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void StageBar::setStages(const QStringList& stages, int current) {
    m_stages = stages;
    m_current = current >= 0 && current < stages.size() ? current : -1;
    setAccessibleDescription(stages.join(QLatin1String(", ")));
    update();
}

QSize StageBar::sizeHint() const {
    return {360, fontMetrics().height() + 2 * textPadding};
}

QSize StageBar::minimumSizeHint() const {
    return {160, sizeHint().height()};
}

void StageBar::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath outline;
    outline.addRoundedRect(frame, cornerRadius, cornerRadius);
    painter.fillPath(outline, palette().color(QPalette::Base));

    const qreal fieldWidth = m_stages.isEmpty() ? 0.0 : frame.width() / qreal(m_stages.size());
    for (int i = 0; i < m_stages.size(); ++i) {
        const QRectF field(frame.left() + i * fieldWidth, frame.top(), fieldWidth, frame.height());
        if (i == m_current) {
            QPainterPath box;
            box.addRect(field);
            painter.fillPath(outline.intersected(box), palette().color(QPalette::Highlight));
        } else if (i > 0 && i - 1 != m_current) {
            painter.setPen(palette().color(QPalette::Mid));
            painter.drawLine(field.topLeft(), field.bottomLeft());
        }
        painter.setPen(palette().color(i == m_current ? QPalette::HighlightedText : QPalette::Text));
        const QRectF textArea = field.adjusted(textPadding, 0, -textPadding, 0);
        painter.drawText(textArea, Qt::AlignCenter,
            fontMetrics().elidedText(m_stages.at(i), Qt::ElideRight, int(textArea.width())));
    }
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawPath(outline);
}

} // namespace quorvi
