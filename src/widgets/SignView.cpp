#include "widgets/SignView.h"

#include <QPainter>

#include "widgets/Metrics.h"

namespace quorvi {

SignView::SignView(QWidget* parent) : QWidget(parent) {
    setExtent(metrics::iconSize);
}

void SignView::setSymbol(Symbol symbol) {
    m_symbol = symbol;
    update();
}

void SignView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    paintSymbol(painter, m_symbol, rect(), palette().color(QPalette::WindowText));
}

} // namespace quorvi
