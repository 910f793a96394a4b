#include "widgets/TabView.h"

#include <QEvent>
#include <QPainter>
#include <QStackedWidget>

#include <algorithm>

#include "widgets/FlatTabBar.h"
#include "widgets/ThemeColours.h"

namespace quorvi {

namespace {

constexpr int kLine = 1; // below the tabs

} // namespace

TabView::TabView(QWidget* parent)
    : QTabWidget(parent), m_bar(new FlatTabBar), m_pages(findChild<QStackedWidget*>()) {
    setTabBar(m_bar);
    setDocumentMode(true);
}

void TabView::setSymbol(int tab, Symbol symbol) {
    m_bar->setSymbol(tab, symbol);
}

QSize TabView::around(const QSize& pages, const QSize& tabs) const {
    return {std::max(pages.width(), tabs.width()), pages.height() + tabs.height() + kLine};
}

QSize TabView::sizeHint() const {
    return around(m_pages->sizeHint(), m_bar->sizeHint());
}

QSize TabView::minimumSizeHint() const {
    return around(m_pages->minimumSizeHint(), m_bar->minimumSizeHint());
}

// Each of these leaves out what the inherited class would do, which is to place all by the style.
bool TabView::event(QEvent* event) {
    if (event->type() != QEvent::LayoutRequest)
        return QTabWidget::event(event);
    place();
    updateGeometry();             // a page may need more than before
    return QWidget::event(event); // NOLINT(bugprone-parent-virtual-call): as said above
}

void TabView::resizeEvent(QResizeEvent* /*event*/) {
    place();
}

void TabView::showEvent(QShowEvent* /*event*/) {
    place();
}

void TabView::changeEvent(QEvent* event) {
    QTabWidget::changeEvent(event);
    place();
}

void TabView::place() {
    m_bar->fitInto(width());
    const QSize bar = m_bar->sizeHint();
    const int wide = std::min(bar.width(), width());
    m_bar->setGeometry((width() - wide) / 2, 0, wide, bar.height());
    m_pages->setGeometry(rect().adjusted(0, bar.height() + kLine, 0, 0));
}

void TabView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(0, m_bar->geometry().bottom() + 1, width(), kLine, lightLineColour(palette()));
}

} // namespace quorvi
