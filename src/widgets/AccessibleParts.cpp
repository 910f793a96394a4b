#include "widgets/AccessibleParts.h"

#include <algorithm>

namespace quorvi {

AccessibleParts::AccessibleParts(QWidget* widget) : QAccessibleWidget(widget, QAccessible::List) {}

AccessibleParts::~AccessibleParts() {
    forgetChildren();
}

void AccessibleParts::forgetChildren() {
    for (const QAccessible::Id id : m_children)
        if (id != 0)
            QAccessible::deleteAccessibleInterface(id);
    m_children.clear();
}

QAccessibleInterface* AccessibleParts::child(int index) const {
    if (index < 0 || index >= childCount())
        return nullptr;
    m_children.resize(std::size_t(childCount()), 0);
    QAccessible::Id& id = m_children[std::size_t(index)];
    if (id == 0) // it belongs to the toolkit's list of all of them from here on
        id = QAccessible::registerAccessibleInterface(makeChild(index));
    return QAccessible::accessibleInterface(id);
}

int AccessibleParts::indexOfChild(const QAccessibleInterface* child) const {
    const QAccessible::Id id = QAccessible::uniqueId(const_cast<QAccessibleInterface*>(child));
    const auto found = std::ranges::find(m_children, id);
    return found == m_children.end() ? -1 : int(found - m_children.begin());
}

AccessiblePart::AccessiblePart(QWidget& whole) : m_whole(&whole) {}

QWindow* AccessiblePart::window() const {
    return m_whole ? m_whole->window()->windowHandle() : nullptr;
}

QAccessibleInterface* AccessiblePart::parent() const {
    return QAccessible::queryAccessibleInterface(m_whole);
}

AccessibleListPart::AccessibleListPart(QWidget& whole, int index) : AccessiblePart(whole), m_index(index) {}

void* AccessibleListPart::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

void tellOfPart(QWidget& whole, int index, QAccessible::Event what) {
    QAccessibleInterface* const told =
        QAccessible::isActive() ? QAccessible::queryAccessibleInterface(&whole) : nullptr;
    if (QAccessibleInterface* const part = told ? told->child(index) : nullptr) {
        QAccessibleEvent event(part, what);
        QAccessible::updateAccessibility(&event);
    }
}

void forgetAccessibleParts(QWidget& whole) {
    if (!QAccessible::isActive())
        return;
    if (auto* told = dynamic_cast<AccessibleParts*>(QAccessible::queryAccessibleInterface(&whole)))
        told->forgetChildren();
}

} // namespace quorvi
