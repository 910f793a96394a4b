#include "widgets/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace quorvi {

QSize ElidedLabel::sizeHint() const {
    constexpr int letters = 10;
    const QFontMetrics font = fontMetrics();
    return {std::min(font.horizontalAdvance(text()), letters * font.averageCharWidth()), font.height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    // The dots come before the text's own beginning, whatever the window's direction is.
    painter.setLayoutDirection(text().isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    style()->drawItemText(&painter, rect(),
        int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter)), palette(),
        isEnabled(), fontMetrics().elidedText(text(), Qt::ElideLeft, width()), foregroundRole());
}

} // namespace quorvi
