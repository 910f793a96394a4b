// The keyboards of a Wayland compositor, seats and keyboards that come and go included.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "keyboard/KeyboardLayout.h"
#include "layouts/WaylandConnection.h"
#include "layouts/XkbHandles.h"

namespace quorvi {

class WaylandKeyboards {
  public:
    /// Asks for the keyboards. The function is called with every change of the layout. The connection must
    /// outlive this object.
    WaylandKeyboards(wl_display& display, std::function<void()> changed);
    ~WaylandKeyboards();
    WaylandKeyboards(const WaylandKeyboards&) = delete;
    WaylandKeyboards& operator=(const WaylandKeyboards&) = delete;

    [[nodiscard]] bool haveKeymap() const { return m_keymap != nullptr; }

    /// The layout of the keyboard that was typed on last, as far as the compositor tells; it stays when that
    /// keyboard goes. Null before the first keymap.
    [[nodiscard]] KeyboardLayoutRef layout() const;

  private:
    struct Seat {
        WaylandKeyboards* owner = nullptr;
        std::uint32_t name = 0; ///< the registry's number of it
        WaylandSeat seat;
        WaylandKeyboard keyboard; ///< null while the seat has none
        XkbKeymap keymap;         ///< null before the first
        std::uint32_t group = 0;
    };

    static const wl_registry_listener registryListener;
    static const wl_seat_listener seatListener;
    static const wl_keyboard_listener keyboardListener;

    void addSeat(wl_registry* registry, std::uint32_t name, std::uint32_t version);
    void removeSeat(std::uint32_t name);
    void setCapabilities(Seat& seat, std::uint32_t capabilities);
    void setKeymap(Seat& seat, XkbKeymap keymap);
    void setGroup(Seat& seat, std::uint32_t group);
    /// Takes over what the seat has.
    void use(const Seat& seat);
    /// Lets another seat be the current one; the layout stays until then.
    void forget(const Seat& seat);

    std::function<void()> m_changed;
    std::vector<std::unique_ptr<Seat>> m_seats; ///< each in a place of its own, which its events point to
    const Seat* m_current = nullptr;            ///< whose layout it is; null when that seat is gone
    XkbKeymap m_keymap;
    std::uint32_t m_group = 0;
    WaylandRegistry m_registry;
};

} // namespace quorvi
