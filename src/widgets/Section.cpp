#include "widgets/Section.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

#include <algorithm>

#include "widgets/Metrics.h"

namespace quorvi {

Section::Section(QWidget* parent) : QWidget(parent) {
    keepRoom();
}

void Section::setTitle(const QString& title) {
    m_title = title;
    updateGeometry();
    update();
}

void Section::setHeaded(bool headed) {
    m_headed = headed;
    keepRoom();
    update();
}

void Section::setHeadingActive(bool active) {
    m_headingActive = active;
    update();
}

QFont Section::headingFont() const {
    QFont heading = font();
    heading.setBold(true);
    return heading;
}

QSize Section::withHeading(const QSize& size) const {
    const int heading = m_headed ? QFontMetrics(headingFont()).horizontalAdvance(m_title) : 0;
    return {std::max(size.width(), heading), size.height()};
}

QSize Section::minimumSizeHint() const {
    return withHeading(QWidget::minimumSizeHint());
}

QSize Section::sizeHint() const {
    return withHeading(QWidget::sizeHint());
}

void Section::keepRoom() {
    const int heading = QFontMetrics(headingFont()).height() + metrics::rowGap;
    setContentsMargins(0, m_headed ? heading : 0, 0, 0);
}

void Section::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange)
        keepRoom();
    QWidget::changeEvent(event);
}

void Section::paintEvent(QPaintEvent* /*event*/) {
    if (!m_headed)
        return;
    QPainter painter(this);
    painter.setFont(headingFont());
    const QRect place(0, 0, width(), painter.fontMetrics().height());
    const int alignment = int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter));
    QPalette colours = palette();
    if (!m_headingActive)
        colours.setCurrentColorGroup(QPalette::Disabled);
    const bool isActive = isEnabled() && m_headingActive;
    style()->drawItemText(&painter, place, alignment, colours, isActive, m_title, QPalette::WindowText);
}

} // namespace quorvi
