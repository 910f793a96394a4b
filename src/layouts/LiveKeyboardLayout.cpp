#include "layouts/LiveKeyboardLayout.h"

#include <cstdlib>
#include <string_view>

#include "layouts/WaylandKeyboardLayout.h"
#include "layouts/X11KeyboardLayout.h"
#include "layouts/XkbKeyboardLayout.h"

namespace quorvi {

namespace {

class ConfiguredKeyboardLayout final : public LiveKeyboardLayout {
  protected:
    [[nodiscard]] KeyboardLayoutRef read() override { return makeDefaultKeyboardLayout(); }
};

std::string_view valueOf(const char* variable) {
    const char* value = std::getenv(variable);
    return value != nullptr ? value : "";
}

/// A relative name without its folder would fail with a message on standard error.
bool namesCompositor() {
    const std::string_view name = valueOf("WAYLAND_DISPLAY");
    return name.starts_with('/') || (!name.empty() && !valueOf("XDG_RUNTIME_DIR").empty());
}

} // namespace

KeyboardLayoutRef LiveKeyboardLayout::layout() {
    if (m_isCurrent)
        return m_layout;
    m_isCurrent = true; // before reading, because the next change may arrive during it
    if (KeyboardLayoutRef fresh = read())
        m_layout = std::move(fresh);
    else if (!m_layout)
        m_layout = makeDefaultKeyboardLayout();
    return m_layout;
}

void LiveKeyboardLayout::changed() {
    m_isCurrent = false;
    if (m_onChange)
        m_onChange();
}

std::unique_ptr<LiveKeyboardLayout> configuredKeyboardLayout() {
    return std::make_unique<ConfiguredKeyboardLayout>();
}

std::unique_ptr<LiveKeyboardLayout> keyboardLayoutOfEnvironment() {
    std::unique_ptr<LiveKeyboardLayout> live;
    if (namesCompositor())
        live = connectToWaylandKeyboard();
    if (!live && !valueOf("DISPLAY").empty())
        live = connectToX11Keyboard();
    return live ? std::move(live) : configuredKeyboardLayout();
}

} // namespace quorvi
