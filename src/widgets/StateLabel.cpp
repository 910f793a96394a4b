#include "widgets/StateLabel.h"

#include <QPainter>
#include <QStyle>

#include <utility>

#include "widgets/Metrics.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

StateLabel::StateLabel(QWidget* parent) : QLabel(parent) {
    setForegroundRole(QPalette::HighlightedText);
    setAttribute(Qt::WA_TransparentForMouseEvents); // the pointer reaches what is below
}

void StateLabel::setWarning(bool warns) {
    if (std::exchange(m_warns, warns) != warns)
        update();
}

void StateLabel::paintEvent(QPaintEvent* event) {
    if (m_warns && !text().isEmpty())
        return paintWarning();
    if (!text().isEmpty())
        paintGround(markGroundColour(palette()));
    QLabel::paintEvent(event);
}

/// Nothing of what it covers is seen at its corners.
void StateLabel::paintGround(const QColor& colour) {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(rect(), metrics::corner, metrics::corner);
}

void StateLabel::paintWarning() {
    paintGround(warningGroundColour());
    QPainter painter(this);
    QPalette colours = palette();
    colours.setColor(foregroundRole(), warningTextColour());
    const auto place = QStyle::visualAlignment(layoutDirection(), alignment());
    style()->drawItemText(&painter, contentsRect(), int(place) | (wordWrap() ? Qt::TextWordWrap : 0), colours,
        isEnabled(), text(), foregroundRole());
}

} // namespace quorvi
