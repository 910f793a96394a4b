#include "widgets/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

namespace quorvi {

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    // The dots come before the text's own beginning, whatever the window's direction is.
    painter.setLayoutDirection(text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    style()->drawItemText(&painter, rect(),
        int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter)), palette(),
        isEnabled(), fontMetrics().elidedText(text(), Qt::ElideLeft, width()), foregroundRole());
}

} // namespace quorvi
