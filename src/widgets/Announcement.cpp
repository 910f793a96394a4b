#include "widgets/Announcement.h"

#include <QAccessible>
#include <QTimer>
#include <QWidget>

#include <chrono>

namespace quorvi {

namespace {

/// For a screen reader to receive the alert and query the text.
[[maybe_unused]] constexpr std::chrono::seconds kTimeToAsk{2};

} // namespace

void announce(QWidget& from, const QString& text) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent event(&from, text);
#else
    const QString usual = from.accessibleDescription();
    from.setAccessibleDescription(text);
    QTimer::singleShot(kTimeToAsk, &from, [&from, text, usual] {
        if (from.accessibleDescription() == text)
            from.setAccessibleDescription(usual);
    });
    QAccessibleEvent event(&from, QAccessible::Alert);
#endif
    QAccessible::updateAccessibility(&event);
}

} // namespace quorvi
