#include "widgets/TabView.h"

#include "platform/PausedLayout.h"

namespace quorvi {

TabView::TabView(QWidget* parent) : QTabWidget(parent) {}

int TabView::addTab(QWidget* page, const QString& title) {
    const PausedLayout paused(*page);
    return QTabWidget::addTab(page, title);
}

} // namespace quorvi
