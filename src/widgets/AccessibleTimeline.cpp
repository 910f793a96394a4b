#include "widgets/AccessibleTimeline.h"

#include <algorithm>
#include <memory>

#include "widgets/StepsTimeline.h"

namespace quorvi {

AccessibleTimeline::AccessibleTimeline(StepsTimeline* timeline) : AccessibleParts(timeline) {}

StepsTimeline& AccessibleTimeline::timeline() const {
    return static_cast<StepsTimeline&>(*widget());
}

int AccessibleTimeline::childCount() const {
    return timeline().stepCount();
}

QAccessibleInterface* AccessibleTimeline::makeChild(int index) const {
    return std::make_unique<AccessibleStep>(timeline(), index).release();
}

QAccessibleInterface* AccessibleTimeline::childAt(int x, int y) const {
    return child(timeline().stepAt(timeline().viewport()->mapFromGlobal(QPoint(x, y))));
}

QAccessibleInterface* AccessibleTimeline::focusChild() const {
    QAccessibleInterface* const current = timeline().hasFocus() ? child(timeline().currentStep()) : nullptr;
    return current ? current : QAccessibleWidget::focusChild();
}

// A step

AccessibleStep::AccessibleStep(StepsTimeline& timeline, int step) : AccessibleListPart(timeline, step) {}

StepsTimeline& AccessibleStep::timeline() const {
    return static_cast<StepsTimeline&>(*whole());
}

bool AccessibleStep::isValid() const {
    return whole() && index() < timeline().stepCount();
}

QString AccessibleStep::text(QAccessible::Text kind) const {
    return isValid() && kind == QAccessible::Name ? timeline().content().stepsInWords.value(index())
                                                  : QString();
}

QRect AccessibleStep::rect() const {
    if (!isValid())
        return {};
    const QRect bar = timeline().barOf(index());
    return {timeline().viewport()->mapToGlobal(bar.topLeft()), bar.size()};
}

QAccessible::State AccessibleStep::state() const {
    QAccessible::State state;
    if (!isValid())
        return state;
    const std::vector<int>& selected = timeline().selectedSteps();
    const bool inView = timeline().viewport()->rect().intersects(timeline().barOf(index()));
    state.invisible = !timeline().isVisible() || !inView;
    state.disabled = !timeline().isEnabled() || !timeline().isEditable();
    state.selectable = state.focusable = !state.disabled;
    state.selected = std::ranges::find(selected, index()) != selected.end();
    state.focused = timeline().hasFocus() && timeline().currentStep() == index();
    return state;
}

QStringList AccessibleStep::actionNames() const {
    return isValid() ? QStringList{pressAction(), increaseAction(), decreaseAction()} : QStringList();
}

void AccessibleStep::doAction(const QString& action) {
    if (!isValid() || state().disabled)
        return;
    if (action == pressAction())
        timeline().chooseStep(index());
    else if (action == increaseAction() || action == decreaseAction())
        timeline().stepDelay(index(), action == increaseAction());
}

QStringList AccessibleStep::keyBindingsForAction(const QString& action) const {
    if (action == increaseAction())
        return {QStringLiteral("+")};
    return action == decreaseAction() ? QStringList{QStringLiteral("-")} : QStringList();
}

} // namespace quorvi
