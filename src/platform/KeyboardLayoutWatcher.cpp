#include "platform/KeyboardLayoutWatcher.h"

#include <QGuiApplication>

#include "layouts/WaylandKeyboardLayout.h"
#include "layouts/X11KeyboardLayout.h"
#include "platform/WaylandObjects.h"

namespace quorvi {

std::unique_ptr<LiveKeyboardLayout> keyboardLayoutOfQtPlatform() {
    std::unique_ptr<LiveKeyboardLayout> layout;
    if (wl_display* display = waylandDisplay())
        layout = borrowWaylandKeyboard(*display);
    else if (QGuiApplication::platformName() == QLatin1String("xcb"))
        layout = connectToX11Keyboard();
    return layout ? std::move(layout) : configuredKeyboardLayout();
}

KeyboardLayoutWatcher::KeyboardLayoutWatcher(std::unique_ptr<LiveKeyboardLayout> layout)
    : m_layout(std::move(layout)) {
    m_gathered.setSingleShot(true);
    connect(&m_gathered, &QTimer::timeout, this, &KeyboardLayoutWatcher::layoutChanged);
    m_layout->onChange([this] { m_gathered.start(0); });
    if (m_layout->fd() >= 0) {
        m_readable = std::make_unique<QSocketNotifier>(m_layout->fd(), QSocketNotifier::Read);
        connect(m_readable.get(), &QSocketNotifier::activated, this, [this] { process(); });
    }
    SetKeyboardLayoutSources(
        {.currentInputSource = [current = std::weak_ptr(m_layout)]() -> std::optional<InputSource> {
             if (const auto live = current.lock())
                 return InputSource{live->layout()};
             return std::nullopt;
         },
            .asciiCapableInputSource = nullptr,
            .managedLayout = nullptr});
}

KeyboardLayoutWatcher::~KeyboardLayoutWatcher() = default;

void KeyboardLayoutWatcher::process() {
    m_layout->process();
    if (m_layout->fd() < 0)
        m_readable->setEnabled(false); // a lost connection stays readable
}

} // namespace quorvi
