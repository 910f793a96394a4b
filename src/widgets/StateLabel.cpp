#include "widgets/StateLabel.h"

#include <QPainter>
#include <QStyle>

#include <utility>

#include "widgets/ThemeColours.h"

namespace quorvi {

StateLabel::StateLabel(QWidget* parent) : QLabel(parent) {
    setForegroundRole(QPalette::HighlightedText);
    setAttribute(Qt::WA_TransparentForMouseEvents); // the pointer reaches the label below
}

void StateLabel::setWarning(bool warns) {
    if (std::exchange(m_warns, warns) != warns)
        update();
}

void StateLabel::paintEvent(QPaintEvent* event) {
    if (m_warns && !text().isEmpty())
        return paintWarning();
    if (!text().isEmpty())
        QPainter(this).fillRect(rect(), markGroundColour(palette()));
    QLabel::paintEvent(event);
}

void StateLabel::paintWarning() {
    QPainter painter(this);
    painter.fillRect(rect(), warningGroundColour());
    QPalette colours = palette();
    colours.setColor(foregroundRole(), warningTextColour());
    const auto place = QStyle::visualAlignment(layoutDirection(), alignment());
    style()->drawItemText(&painter, contentsRect(), int(place) | (wordWrap() ? Qt::TextWordWrap : 0), colours,
        isEnabled(), text(), foregroundRole());
}

} // namespace quorvi
