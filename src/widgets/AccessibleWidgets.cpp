#include "widgets/AccessibleWidgets.h"

#include "widgets/AccessibleMenuButton.h"
#include "widgets/AccessibleSlider.h"
#include "widgets/AccessibleTable.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MenuButton.h"

namespace quorvi {

namespace {

// Asked for the object's class and then for those that it is made from. The toolkit owns what comes back.
QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
    if (className == QLatin1String(KyvarQuorviTableView::staticMetaObject.className()))
        return std::make_unique<AccessibleTable>(qobject_cast<KyvarQuorviTableView*>(object)).release();
    if (className == QLatin1String(KyvarQuorviSlider::staticMetaObject.className()))
        return std::make_unique<AccessibleSlider>(qobject_cast<KyvarQuorviSlider*>(object)).release();
    if (className == QLatin1String(MenuButton::staticMetaObject.className()))
        return std::make_unique<AccessibleMenuButton>(qobject_cast<MenuButton*>(object)).release();
    return nullptr;
}

struct Installed {
    Installed() { QAccessible::installFactory(makeAccessible); }
    ~Installed() { QAccessible::removeFactory(makeAccessible); }
    Installed(const Installed&) = delete;
    Installed& operator=(const Installed&) = delete;
};

} // namespace

std::shared_ptr<void> accessibleWidgets() {
    static std::weak_ptr<Installed> installed;
    auto holder = installed.lock();
    if (!holder)
        installed = holder = std::make_shared<Installed>();
    return holder;
}

} // namespace quorvi
