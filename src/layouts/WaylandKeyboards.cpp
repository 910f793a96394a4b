#include "layouts/WaylandKeyboards.h"

#include <algorithm>
#include <string_view>

#include <unistd.h>

#include "layouts/WaylandKeymap.h"
#include "layouts/XkbKeyboardLayout.h"

namespace quorvi {

namespace {

/// The newest seat version with all events handled here. Later ones add nothing for layouts.
constexpr std::uint32_t kKnownSeatVersion = 5;

} // namespace

// Events without effect on the layout still need an entry.
const wl_registry_listener WaylandKeyboards::registryListener{
    .global =
        [](void* data, wl_registry* registry, std::uint32_t name, const char* interface,
            std::uint32_t version) {
            if (std::string_view(interface) == wl_seat_interface.name)
                static_cast<WaylandKeyboards*>(data)->addSeat(registry, name, version);
        },
    .global_remove = [](void* data, wl_registry*,
                         std::uint32_t name) { static_cast<WaylandKeyboards*>(data)->removeSeat(name); },
};

const wl_seat_listener WaylandKeyboards::seatListener{
    .capabilities =
        [](void* data, wl_seat*, std::uint32_t capabilities) {
            Seat& seat = *static_cast<Seat*>(data);
            seat.owner->setCapabilities(seat, capabilities);
        },
    .name = [](void*, wl_seat*, const char*) {},
};

const wl_keyboard_listener WaylandKeyboards::keyboardListener{
    .keymap =
        [](void* data, wl_keyboard*, std::uint32_t format, std::int32_t fd, std::uint32_t size) {
            Seat& seat = *static_cast<Seat*>(data);
            if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1)
                seat.owner->setKeymap(seat, keymapInFile(fd, size));
            close(fd);
        },
    .enter = [](void*, wl_keyboard*, std::uint32_t, wl_surface*, wl_array*) {},
    .leave = [](void*, wl_keyboard*, std::uint32_t, wl_surface*) {},
    .key = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
    .modifiers =
        [](void* data, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t,
            std::uint32_t group) {
            Seat& seat = *static_cast<Seat*>(data);
            seat.owner->setGroup(seat, group);
        },
    .repeat_info = [](void*, wl_keyboard*, std::int32_t, std::int32_t) {},
};

WaylandKeyboards::WaylandKeyboards(wl_display& display, std::function<void()> changed)
    : m_changed(std::move(changed)), m_registry(wl_display_get_registry(&display)) {
    if (m_registry)
        wl_registry_add_listener(m_registry.get(), &registryListener, this);
}

WaylandKeyboards::~WaylandKeyboards() = default;

KeyboardLayoutRef WaylandKeyboards::layout() const {
    return makeKeyboardLayout(m_keymap.get(), m_group);
}

void WaylandKeyboards::addSeat(wl_registry* registry, std::uint32_t name, std::uint32_t version) {
    auto seat = std::make_unique<Seat>();
    seat->owner = this;
    seat->name = name;
    seat->seat.reset(static_cast<wl_seat*>(
        wl_registry_bind(registry, name, &wl_seat_interface, std::min(version, kKnownSeatVersion))));
    if (!seat->seat)
        return;
    wl_seat_add_listener(seat->seat.get(), &seatListener, seat.get());
    m_seats.push_back(std::move(seat));
}

void WaylandKeyboards::removeSeat(std::uint32_t name) {
    const auto seat =
        std::find_if(m_seats.begin(), m_seats.end(), [name](const auto& each) { return each->name == name; });
    if (seat == m_seats.end())
        return;
    forget(**seat);
    m_seats.erase(seat);
}

void WaylandKeyboards::setCapabilities(Seat& seat, std::uint32_t capabilities) {
    const bool hasKeyboard = (capabilities & WL_SEAT_CAPABILITY_KEYBOARD) != 0;
    if (hasKeyboard == (seat.keyboard != nullptr))
        return;
    if (!hasKeyboard) {
        forget(seat);
        seat.keyboard.reset();
        seat.keymap.reset();
        return;
    }
    seat.keyboard.reset(wl_seat_get_keyboard(seat.seat.get()));
    if (seat.keyboard)
        wl_keyboard_add_listener(seat.keyboard.get(), &keyboardListener, &seat);
}

void WaylandKeyboards::setKeymap(Seat& seat, XkbKeymap keymap) {
    if (!keymap)
        return;
    seat.keymap = std::move(keymap);
    seat.group = 0;
    if (!m_current || m_current == &seat)
        use(seat);
}

void WaylandKeyboards::setGroup(Seat& seat, std::uint32_t group) {
    const bool changes = m_current != &seat || seat.group != group;
    seat.group = group;
    // The compositor sends modifiers only for the seat in use.
    if (changes && seat.keymap)
        use(seat);
}

void WaylandKeyboards::forget(const Seat& seat) {
    if (m_current == &seat)
        m_current = nullptr;
}

void WaylandKeyboards::use(const Seat& seat) {
    m_current = &seat;
    m_keymap.reset(xkb_keymap_ref(seat.keymap.get()));
    m_group = seat.group;
    m_changed();
}

} // namespace quorvi
