// A Wayland compositor's keyboards, including seats and keyboards that are added and removed.
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
    /// Requests the keyboards. The function is called at every change of the layout. The connection must
    /// outlive this object.
    WaylandKeyboards(wl_display& display, std::function<void()> changed);
    ~WaylandKeyboards();
    WaylandKeyboards(const WaylandKeyboards&) = delete;
    WaylandKeyboards& operator=(const WaylandKeyboards&) = delete;

    [[nodiscard]] bool haveKeymap() const { return m_keymap != nullptr; }

    /// The layout of the last used keyboard, as far as the compositor reports it; it stays if that keyboard
    /// is removed. Null before the first keymap.
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
    /// Uses the seat's layout.
    void use(const Seat& seat);
    /// Forgets the seat; the layout stays until another seat becomes current.
    void forget(const Seat& seat);

    std::function<void()> m_changed;
    std::vector<std::unique_ptr<Seat>> m_seats; ///< separately allocated, because events point to them
    const Seat* m_current = nullptr;            ///< the layout's seat; null if it is gone
    XkbKeymap m_keymap;
    std::uint32_t m_group = 0;
    WaylandRegistry m_registry;
};

} // namespace quorvi
