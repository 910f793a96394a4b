#include "widgets/FocusRing.h"

#include <QPainter>

#include "widgets/Metrics.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

FocusRing::FocusRing(QWidget& parent) : QWidget(&parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    fit();
}

// Only the ring is this widget's, so that what is scrolled below need not be drawn twice.
void FocusRing::fit() {
    setGeometry(parentWidget()->rect());
    constexpr int width = metrics::focusFrame;
    setMask(QRegion(rect()) - QRegion(rect().adjusted(width, width, -width, -width)));
}

void FocusRing::paintEvent(QPaintEvent* /*event*/) {
    QPalette colours = parentWidget()->palette();
    colours.setCurrentColorGroup(QPalette::Active);
    QPainter(this).fillRect(rect(), markColour(colours));
}

} // namespace quorvi
