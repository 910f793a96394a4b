#include "widgets/AccessibleWidgets.h"

#include <QAccessibleWidget>

#include "widgets/AccessibleMenuButton.h"
#include "widgets/AccessibleSlider.h"
#include "widgets/AccessibleStages.h"
#include "widgets/AccessibleTable.h"
#include "widgets/AccessibleTimeline.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MenuButton.h"
#include "widgets/Section.h"
#include "widgets/StageBar.h"
#include "widgets/StepsTimeline.h"

namespace quorvi {

namespace {

class AccessibleSection : public QAccessibleWidget {
  public:
    explicit AccessibleSection(Section* section)
        : QAccessibleWidget(section, QAccessible::Grouping, section->title()) {}
};

// Called with the object's class and then with its base classes. The toolkit owns the result.
QAccessibleInterface* makeAccessible(const QString& className, QObject* object) {
    if (className == QLatin1String(KyvarQuorviTableView::staticMetaObject.className()))
        return std::make_unique<AccessibleTable>(qobject_cast<KyvarQuorviTableView*>(object)).release();
    if (className == QLatin1String(KyvarQuorviSlider::staticMetaObject.className()))
        return std::make_unique<AccessibleSlider>(qobject_cast<KyvarQuorviSlider*>(object)).release();
    if (className == QLatin1String(MenuButton::staticMetaObject.className()))
        return std::make_unique<AccessibleMenuButton>(qobject_cast<MenuButton*>(object)).release();
    if (className == QLatin1String(Section::staticMetaObject.className()))
        return std::make_unique<AccessibleSection>(qobject_cast<Section*>(object)).release();
    if (className == QLatin1String(StepsTimeline::staticMetaObject.className()))
        return std::make_unique<AccessibleTimeline>(qobject_cast<StepsTimeline*>(object)).release();
    if (className == QLatin1String(StageBar::staticMetaObject.className()))
        return std::make_unique<AccessibleStages>(qobject_cast<StageBar*>(object)).release();
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
