#include "platform/widgets/TabView.h"

#include <QStackedWidget>

#include "platform/PausedLayout.h"

namespace quorvi {

TabView::TabView(QWidget* parent) : QTabWidget(parent) {
    // Without a layout around it the stack of pages takes the size that they want when it is first shown, and
    // asks each of them. It gets its size from here all the same.
    findChild<QStackedWidget*>()->setAttribute(Qt::WA_Resized);
}

int TabView::addTab(QWidget* page, const QString& title) {
    const PausedLayout paused(*page);
    return QTabWidget::addTab(page, title);
}

} // namespace quorvi
