#include "widgets/Announcement.h"

#include <QAccessible>
#include <QWidget>

namespace quorvi {

void announce(QWidget& from, const QString& text) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(&from, text);
#else
    from.setAccessibleDescription(text);
    QAccessibleEvent event(&from, QAccessible::Alert);
#endif
    QAccessible::updateAccessibility(&event);
}

} // namespace quorvi
