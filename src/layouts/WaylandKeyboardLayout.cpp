#include "layouts/WaylandKeyboardLayout.h"

#include "layouts/WaylandConnection.h"
#include "layouts/WaylandKeyboards.h"

namespace quorvi {

namespace {

/// The longest wait for a hanging compositor.
constexpr std::chrono::milliseconds kPatience{250};

/// From the registry to the seats, from the seats to their keyboards, from the keyboards to the keymaps.
constexpr int kRoundtripsToKeymap = 3;

class BorrowedWaylandKeyboard final : public LiveKeyboardLayout {
  public:
    explicit BorrowedWaylandKeyboard(wl_display& display) : m_keyboards(display, [this] { changed(); }) {}

  protected:
    [[nodiscard]] KeyboardLayoutRef read() override { return m_keyboards.layout(); }

  private:
    WaylandKeyboards m_keyboards;
};

class OwnWaylandKeyboard final : public LiveKeyboardLayout {
  public:
    explicit OwnWaylandKeyboard(WaylandDisplay display)
        : m_display(std::move(display)), m_keyboards(*m_display, [this] { changed(); }) {}

    /// Waits for the first keymap; returns false if there is none.
    [[nodiscard]] bool waitForKeymap() {
        const Deadline deadline = std::chrono::steady_clock::now() + kPatience;
        for (int i = 0; i < kRoundtripsToKeymap && !m_keyboards.haveKeymap(); ++i)
            if (!waylandRoundtrip(*m_display, deadline))
                return false;
        return m_keyboards.haveKeymap();
    }

    [[nodiscard]] int fd() const override {
        return wl_display_get_error(m_display.get()) == 0 ? wl_display_get_fd(m_display.get()) : -1;
    }

    void process() override {
        while (readWaylandEvents(*m_display, std::chrono::steady_clock::now())) {
        }
        wl_display_flush(m_display.get()); // requests made by event handlers
    }

  protected:
    [[nodiscard]] KeyboardLayoutRef read() override { return m_keyboards.layout(); }

  private:
    WaylandDisplay m_display;
    WaylandKeyboards m_keyboards;
};

} // namespace

std::unique_ptr<LiveKeyboardLayout> connectToWaylandKeyboard() {
    WaylandDisplay display(wl_display_connect(nullptr));
    if (!display)
        return nullptr;
    auto keyboard = std::make_unique<OwnWaylandKeyboard>(std::move(display));
    return keyboard->waitForKeymap() ? std::move(keyboard) : nullptr;
}

std::unique_ptr<LiveKeyboardLayout> borrowWaylandKeyboard(wl_display& display) {
    return std::make_unique<BorrowedWaylandKeyboard>(display);
}

} // namespace quorvi
