#include "helper/front/GnomeSource.h"

#include <array>
#include <charconv>
#include <utility>

namespace quorvi::front {

namespace {

constexpr char kShellPath[] = "/org/gnome/Shell";
constexpr char kExtensionsInterface[] = "org.gnome.Shell.Extensions";
constexpr char kPropertiesInterface[] = "org.freedesktop.DBus.Properties";
constexpr char kUserExtensions[] = "UserExtensionsEnabled";
constexpr char kShellVersion[] = "ShellVersion";

constexpr int kFirstOfModules = 45; ///< the first Shell that loads extensions as modules
constexpr char kUuid[] = "quorvi-front@kyvar.com";
constexpr char kUuidBefore[] = "quorvi-front-43@kyvar.com";

/// Visits the members of a dictionary of variants; returns false if it is not one.
template <typename Take>
bool eachMember(sd_bus_message* message, Take&& take) {
    if (sd_bus_message_enter_container(message, 'a', "{sv}") <= 0)
        return false;
    while (sd_bus_message_enter_container(message, 'e', "sv") > 0) {
        const char* key = nullptr;
        if (sd_bus_message_read(message, "s", &key) <= 0 || !take(std::string_view(key)) ||
            sd_bus_message_exit_container(message) < 0)
            return false;
    }
    return sd_bus_message_exit_container(message) >= 0;
}

/// Names of the Shell's ExtensionState; missing values are transitions.
std::string nameOfState(double state) {
    constexpr std::array<std::pair<int, const char*>, 5> names{
        {{1, "enabled"}, {2, "disabled"}, {3, "error"}, {4, "error"}, {6, "disabled"}}};
    for (const auto& [number, name] : names)
        if (static_cast<int>(state) == number)
            return name;
    return "missing";
}

} // namespace

GnomeSource::GnomeSource(const EventBus& bus, DesktopReports& reports)
    : m_bus(bus), m_call(bus), m_enabling(bus), m_shell(bus, "org.gnome.Shell", [this] { watchShell(); }) {
    reports.listenTo(m_shell, [this](const FrontWindow& window) { report(window); });
}

void GnomeSource::watchShell() {
    m_call.giveUp();
    m_enabling.giveUp();
    m_stateMatch.reset();
    m_shellMatch.reset();
    if (m_shell.owner().empty())
        return setExtension("");
    const std::string ofShell = "type='signal',path='/org/gnome/Shell',sender='" + m_shell.owner() + "',";
    auto* bus = m_bus.connection().bus.get();
    m_stateMatch = events::matchSignal(bus,
        (ofShell + "interface='org.gnome.Shell.Extensions',member='ExtensionStateChanged'").c_str(),
        receiveChange, this);
    m_shellMatch = events::matchSignal(bus,
        (ofShell + "interface='org.freedesktop.DBus.Properties',arg0='org.gnome.Shell.Extensions'").c_str(),
        receiveChange, this);
    look();
}

/// Re-reads the state at any extension's change; they change only when a user changes them.
int GnomeSource::receiveChange(sd_bus_message*, void* self, sd_bus_error*) {
    static_cast<GnomeSource*>(self)->look();
    return 0;
}

void GnomeSource::look() {
    m_call.giveUp();
    m_call.make(
        m_shell.owner(), kShellPath, kPropertiesInterface, "GetAll",
        [this](sd_bus_message* answer) { takeShell(answer); }, "s", kExtensionsInterface);
}

void GnomeSource::takeShell(sd_bus_message* answer) {
    std::string version;
    int extensionsAreOn = 0;
    const bool read = answer && eachMember(answer, [&](std::string_view key) {
        const char* text = nullptr;
        if (key == kShellVersion && sd_bus_message_read(answer, "v", "s", &text) > 0)
            return version = text, true;
        if (key == kUserExtensions)
            return sd_bus_message_read(answer, "v", "b", &extensionsAreOn) > 0;
        return sd_bus_message_skip(answer, "v") > 0;
    });
    if (!read)
        return setExtension("");
    int number = 0;
    std::from_chars(version.data(), version.data() + version.size(), number);
    m_uuid = number < kFirstOfModules ? kUuidBefore : kUuid;
    m_extensionsAreOff = extensionsAreOn == 0;
    m_call.make(
        m_shell.owner(), kShellPath, kExtensionsInterface, "GetExtensionInfo",
        [this](sd_bus_message* info) { takeExtension(info); }, "s", m_uuid.c_str());
}

/// The Shell returns an empty answer for an unknown extension.
void GnomeSource::takeExtension(sd_bus_message* answer) {
    double state = 0;
    const bool read = answer && eachMember(answer, [&](std::string_view key) {
        return key == "state" ? sd_bus_message_read(answer, "v", "d", &state) > 0
                              : sd_bus_message_skip(answer, "v") > 0;
    });
    const std::string name = read ? nameOfState(state) : "error";
    setExtension(name == "disabled" && m_extensionsAreOff ? "off" : name);
}

void GnomeSource::setExtension(std::string state) {
    if (state == m_extension)
        return;
    m_extension = std::move(state);
    changed();
}

void GnomeSource::enableExtension() {
    if (m_uuid.empty() || m_shell.owner().empty())
        return;
    m_enabling.giveUp();
    const auto enable = [this](sd_bus_message*) {
        m_enabling.make(
            m_shell.owner(), kShellPath, kExtensionsInterface, "EnableExtension",
            [this](sd_bus_message*) { look(); }, "s", m_uuid.c_str());
    };
    if (!m_extensionsAreOff)
        return enable(nullptr);
    m_enabling.make(m_shell.owner(), kShellPath, kPropertiesInterface, "Set", enable, "ssv",
        kExtensionsInterface, kUserExtensions, "b", 1);
}

} // namespace quorvi::front
