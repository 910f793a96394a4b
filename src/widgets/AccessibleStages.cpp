#include "widgets/AccessibleStages.h"

#include <memory>

#include "widgets/StageBar.h"

namespace quorvi {

AccessibleStages::AccessibleStages(StageBar* bar) : AccessibleParts(bar) {}

StageBar& AccessibleStages::bar() const {
    return static_cast<StageBar&>(*widget());
}

int AccessibleStages::childCount() const {
    return int(bar().stages().size());
}

QAccessibleInterface* AccessibleStages::makeChild(int index) const {
    return std::make_unique<AccessibleStage>(bar(), index).release();
}

QAccessibleInterface* AccessibleStages::childAt(int x, int y) const {
    return child(bar().stageAt(bar().mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface* AccessibleStages::focusChild() const {
    QAccessibleInterface* const focused = bar().hasFocus() ? child(bar().focusedStage()) : nullptr;
    return focused ? focused : QAccessibleWidget::focusChild();
}

AccessibleStage::AccessibleStage(StageBar& bar, int stage) : AccessibleListPart(bar, stage) {}

StageBar& AccessibleStage::bar() const {
    return static_cast<StageBar&>(*whole());
}

bool AccessibleStage::isValid() const {
    return whole() && index() < bar().stages().size();
}

QString AccessibleStage::text(QAccessible::Text kind) const {
    if (!isValid())
        return {};
    if (kind == QAccessible::Description)
        return bar().toolTip();
    return kind == QAccessible::Name ? bar().stages().at(index()).spoken : QString();
}

QRect AccessibleStage::rect() const {
    if (!isValid())
        return {};
    const QRect cell = bar().cellOf(index());
    return {bar().mapToGlobal(cell.topLeft()), cell.size()};
}

QAccessible::State AccessibleStage::state() const {
    QAccessible::State state;
    if (!isValid())
        return state;
    state.invisible = !bar().isVisible();
    state.disabled = !bar().isEnabled();
    state.focusable = !state.disabled;
    state.focused = bar().hasFocus() && bar().focusedStage() == index();
    state.checkable = true;
    state.checked = bar().currentStage() == index();
    return state;
}

QStringList AccessibleStage::actionNames() const {
    return isValid() ? QStringList{pressAction()} : QStringList();
}

void AccessibleStage::doAction(const QString& action) {
    // Later, as the toolkit's buttons do: who presses waits for the answer, and what opens may stay open.
    if (isValid() && action == pressAction())
        QMetaObject::invokeMethod(
            &bar(), [&bar = bar(), stage = index()] { bar.chooseStage(stage); }, Qt::QueuedConnection);
}

} // namespace quorvi
