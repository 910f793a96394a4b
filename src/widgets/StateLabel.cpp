#include "widgets/StateLabel.h"

#include <QPainter>

#include "widgets/ThemeColours.h"

namespace quorvi {

StateLabel::StateLabel(QWidget* parent) : QLabel(parent) {
    setForegroundRole(QPalette::HighlightedText);
    setAttribute(Qt::WA_TransparentForMouseEvents); // what it stands on is still pointed at
}

void StateLabel::paintEvent(QPaintEvent* event) {
    if (!text().isEmpty())
        QPainter(this).fillRect(rect(), markGroundColour(palette()));
    QLabel::paintEvent(event);
}

} // namespace quorvi
