#include "widgets/SignedLabel.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

#include "widgets/Metrics.h"
#include "widgets/SymbolIcon.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

SignedLabel::SignedLabel(QWidget* parent) : WrappedLabel(parent) {
    keepRoom();
}

void SignedLabel::keepRoom() {
    constexpr int room = metrics::iconSize + metrics::fieldGap;
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    setContentsMargins(mirrored ? 0 : room, 0, mirrored ? room : 0, 0);
}

void SignedLabel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LayoutDirectionChange)
        keepRoom();
    WrappedLabel::changeEvent(event);
}

void SignedLabel::paintEvent(QPaintEvent* event) {
    WrappedLabel::paintEvent(event);
    QPainter painter(this);
    const int lines = heightForWidth(width());
    const int top = (height() - lines) / 2 + (fontMetrics().height() - metrics::iconSize) / 2;
    const QRect sign(0, top, metrics::iconSize, metrics::iconSize);
    paintSymbol(
        painter, Symbol::Play, QStyle::visualRect(layoutDirection(), rect(), sign), markColour(palette()));
}

} // namespace quorvi
