#include "helper/display/ScreenDisplay.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace quorvi {

using namespace std::chrono_literals;

namespace {

constexpr char kNotifications[] = "org.freedesktop.Notifications";
constexpr char kNotificationsPath[] = "/org/freedesktop/Notifications";
constexpr char kIcon[] = "input-mouse";

/// A running desktop answers within milliseconds; starting a notification server takes longer.
constexpr std::chrono::milliseconds kDesktopPatience = 2s;
/// Older changes are not shown.
constexpr std::chrono::milliseconds kFresh = 1s;
constexpr std::int32_t kShownFor = 1500; // milliseconds

/// Whether the error means that no such service exists.
bool isAbsence(std::string_view error) {
    constexpr auto absences =
        std::to_array<std::string_view>({SD_BUS_ERROR_SERVICE_UNKNOWN, SD_BUS_ERROR_NAME_HAS_NO_OWNER,
            SD_BUS_ERROR_UNKNOWN_METHOD, SD_BUS_ERROR_UNKNOWN_OBJECT, SD_BUS_ERROR_UNKNOWN_INTERFACE});
    return std::ranges::find(absences, error) != absences.end();
}

void neverStart(const events::MessageRef& call) {
    if (call)
        sd_bus_message_set_auto_start(call.get(), 0);
}

} // namespace

void ScreenDisplay::show(const std::string& text) {
    if (m_isShowing) {
        m_next = text;
        m_nextCame = Clock::now();
        return;
    }
    m_isShowing = true;
    m_text = text;
    askWhetherInhibited();
}

/// Servers without the property answer with various errors; one that does not answer would not show the text
/// either.
void ScreenDisplay::askWhetherInhibited() {
    const auto call = m_calls.newCall(kNotifications, kNotificationsPath, "org.freedesktop.DBus.Properties",
        "Get", "ss", kNotifications, "Inhibited");
    neverStart(call);
    const bool sent =
        m_calls.call(call, kDesktopPatience, [this](sd_bus_message* reply, std::string_view error) {
            int inhibited = 0;
            const bool isKnown = error.empty() && sd_bus_message_read(reply, "v", "b", &inhibited) > 0;
            if ((isKnown && inhibited != 0) || error == SD_BUS_ERROR_NO_REPLY ||
                error == SD_BUS_ERROR_TIMEOUT)
                return done();
            showByKde();
        });
    if (!sent)
        done();
}

void ScreenDisplay::showByKde() {
    const auto call = m_calls.newCall("org.kde.plasmashell", "/org/kde/osdService", "org.kde.osdService",
        "showText", "ss", kIcon, m_text.c_str());
    neverStart(call);
    const bool sent = m_calls.call(call, kDesktopPatience,
        [this](sd_bus_message*, std::string_view error) { isAbsence(error) ? notify() : done(); });
    if (!sent)
        done();
}

/// Calls the server that shows the notification by its unique name: another server may have given the same
/// number to another program's.
void ScreenDisplay::notify() {
    const auto call = m_calls.newCall(m_server.empty() ? kNotifications : m_server.c_str(),
        kNotificationsPath, kNotifications, "Notify", "susssasa{sv}i", "Kyvar Quorvi", m_notification, kIcon,
        m_text.c_str(), "", 0, 2, "transient", "b", 1, "urgency", "y", 0, kShownFor);
    const bool sent =
        m_calls.call(call, kDesktopPatience, [this](sd_bus_message* reply, std::string_view error) {
            if (!m_server.empty() && isAbsence(error)) {
                m_server.clear();
                m_notification = 0;
                return notify();
            }
            const char* server = sd_bus_message_get_sender(reply);
            std::uint32_t id = 0;
            if (error.empty() && server && sd_bus_message_read_basic(reply, 'u', &id) > 0) {
                m_server = server;
                m_notification = id;
            }
            done();
        });
    if (!sent)
        done();
}

void ScreenDisplay::done() {
    m_isShowing = false;
    const auto next = std::exchange(m_next, {});
    if (next && Clock::now() - m_nextCame <= kFresh)
        show(*next);
}

} // namespace quorvi
