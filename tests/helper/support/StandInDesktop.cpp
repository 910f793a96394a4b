#include "helper/support/StandInDesktop.h"

#include <stdexcept>

#include <poll.h>

namespace quorvi::test {

namespace {

constexpr char kNotifications[] = "org.freedesktop.Notifications";
constexpr std::uint32_t kNotification = 42;

void require(int result) {
    if (result < 0)
        throw std::runtime_error("the desktop cannot be played");
}

} // namespace

const sd_bus_vtable StandInDesktop::plain[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Notify", "susssasa{sv}i", "u", notify, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

const sd_bus_vtable StandInDesktop::withInhibited[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Notify", "susssasa{sv}i", "u", notify, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY("Inhibited", "b", giveInhibited, 0, 0),
    SD_BUS_VTABLE_END,
};

const sd_bus_vtable StandInDesktop::kde[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("showText", "ss", "", showText, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

StandInDesktop::StandInDesktop(const Parts& parts) : m_inhibited(parts.inhibited.value_or(false)) {
    sd_bus* bus = nullptr;
    require(sd_bus_open_user(&bus));
    m_bus.reset(bus);
    if (parts.hasNotifications) {
        require(sd_bus_add_object_vtable(bus, nullptr, "/org/freedesktop/Notifications", kNotifications,
            parts.inhibited ? withInhibited : plain, this));
        require(sd_bus_request_name(bus, kNotifications, 0));
    }
    if (parts.hasKde) {
        require(
            sd_bus_add_object_vtable(bus, nullptr, "/org/kde/osdService", "org.kde.osdService", kde, this));
        require(sd_bus_request_name(bus, "org.kde.plasmashell", 0));
    }
    m_thread = std::thread([this] { run(); });
}

StandInDesktop::~StandInDesktop() {
    m_ends = true;
    m_thread.join();
}

void StandInDesktop::run() {
    pollfd bus{sd_bus_get_fd(m_bus.get()), POLLIN, 0};
    while (!m_ends) {
        while (!isDead && sd_bus_process(m_bus.get(), nullptr) > 0)
            ;
        poll(&bus, isDead ? 0 : 1, 2); // milliseconds
    }
}

int StandInDesktop::notify(sd_bus_message* call, void* self, sd_bus_error* /*error*/) {
    const char* application = nullptr;
    std::uint32_t replaces = 0;
    const char* icon = nullptr;
    const char* summary = nullptr;
    const char* body = nullptr;
    if (sd_bus_message_read(call, "susss", &application, &replaces, &icon, &summary, &body) > 0)
        static_cast<StandInDesktop*>(self)->note(
            "notified " + std::to_string(replaces) + " " + summary + body);
    int isTransient = 0;
    const char* hint = nullptr;
    if (sd_bus_message_skip(call, "as") < 0 || sd_bus_message_enter_container(call, 'a', "{sv}") < 0 ||
        sd_bus_message_enter_container(call, 'e', "sv") <= 0 || sd_bus_message_read(call, "s", &hint) <= 0 ||
        std::string(hint) != "transient" || sd_bus_message_read(call, "v", "b", &isTransient) <= 0 ||
        isTransient == 0)
        static_cast<StandInDesktop*>(self)->note("and is to stay in the history");
    return sd_bus_reply_method_return(call, "u", kNotification);
}

int StandInDesktop::showText(sd_bus_message* call, void* self, sd_bus_error* /*error*/) {
    const char* icon = nullptr;
    const char* text = nullptr;
    if (sd_bus_message_read(call, "ss", &icon, &text) > 0)
        static_cast<StandInDesktop*>(self)->note(std::string("KDE ") + text);
    return sd_bus_reply_method_return(call, "");
}

int StandInDesktop::giveInhibited(
    sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* self, sd_bus_error*) {
    return sd_bus_message_append(
        reply, "b", static_cast<int>(static_cast<const StandInDesktop*>(self)->m_inhibited));
}

void StandInDesktop::note(const std::string& text) {
    const std::lock_guard lock(m_mutex);
    m_shown.push_back(text);
}

std::vector<std::string> StandInDesktop::shown() const {
    const std::lock_guard lock(m_mutex);
    return m_shown;
}

} // namespace quorvi::test
