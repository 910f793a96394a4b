#include "support/ScreenReader.h"

#include <csignal>
#include <stdexcept>

#include <systemd/sd-bus.h>

#include "support/WaitUntil.h"

namespace quorvi::test {

namespace {

constexpr char kLauncher[] = "/usr/libexec/at-spi-bus-launcher";
constexpr char kRegistry[] = "org.a11y.atspi.Registry";

std::shared_ptr<sd_bus> closing(sd_bus* bus) {
    return {bus, [](sd_bus* b) { sd_bus_flush_close_unref(b); }};
}

/// The address of the accessibility bus; empty while there is none.
std::string accessibilityBusAddress() {
    sd_bus* session = nullptr;
    if (sd_bus_open_user(&session) < 0)
        return {};
    const auto owned = closing(session);
    sd_bus_message* reply = nullptr;
    const char* address = nullptr;
    std::string result;
    if (sd_bus_call_method(session, "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", nullptr,
            &reply, "") >= 0 &&
        sd_bus_message_read(reply, "s", &address) > 0)
        result = address;
    sd_bus_message_unref(reply);
    return result;
}

} // namespace

ScreenReader::ScreenReader() {
    // It makes itself the display's and takes that back when it is asked to end. Without a display its
    // registry ends at once, again and again, and some programs are never heard of.
    m_launcher = std::make_unique<ChildProcess>(std::vector<std::string>{kLauncher, "--launch-immediately"},
        std::vector<std::string>{"XDG_RUNTIME_DIR=" + m_runtime.path().native()});
    std::string address;
    if (!waitUntil([&] {
            address = accessibilityBusAddress();
            return !address.empty() || !m_launcher->isRunning();
        }) ||
        address.empty())
        throw std::runtime_error("the accessibility bus does not start: " + m_launcher->readError());
    sd_bus* bus = nullptr;
    sd_bus_new(&bus);
    m_bus = closing(bus);
    sd_bus_set_address(bus, address.c_str());
    sd_bus_set_bus_client(bus, 1);
    if (sd_bus_start(bus) < 0)
        throw std::runtime_error("the accessibility bus cannot be reached");
    listen();
}

ScreenReader::~ScreenReader() {
    m_bus.reset();
    m_launcher->signal(SIGTERM); // it takes the bus down
    static_cast<void>(m_launcher->wait());
}

int ScreenReader::noteFocus(sd_bus_message* message, void* focus, void* /*error*/) {
    const char* state = nullptr;
    int on = 0;
    if (sd_bus_message_read(message, "si", &state, &on) > 0 && std::string(state) == "focused" && on != 0)
        *static_cast<Focus*>(focus) = {sd_bus_message_get_sender(message), sd_bus_message_get_path(message)};
    return 0;
}

void ScreenReader::listen() {
    const auto note = [](sd_bus_message* message, void* focus, sd_bus_error* error) {
        return noteFocus(message, focus, error);
    };
    // Programs send only signals that were requested from the registry.
    if (sd_bus_add_match(m_bus.get(), nullptr,
            "type='signal',interface='org.a11y.atspi.Event.Object',member='StateChanged'", note,
            &m_focus) < 0 ||
        sd_bus_call_method(m_bus.get(), kRegistry, "/org/a11y/atspi/registry", kRegistry, "RegisterEvent",
            nullptr, nullptr, "s", "object:state-changed:focused") < 0)
        throw std::runtime_error("the accessibility bus has no registry");
}

std::vector<Accessible> ScreenReader::windows() const {
    std::vector<Accessible> result;
    for (const Accessible& program :
        Accessible(m_bus, kRegistry, "/org/a11y/atspi/accessible/root").children())
        for (const Accessible& window : program.children())
            if (window.is(AccessibleState::visible))
                result.push_back(window);
    return result;
}

Accessible ScreenReader::window(const std::string& title) const {
    Accessible found;
    static_cast<void>(waitUntil([&] {
        for (const Accessible& window : windows())
            if (window.name() == title)
                found = window;
        return !found.isNull();
    }));
    return found;
}

Accessible ScreenReader::focus() {
    while (sd_bus_process(m_bus.get(), nullptr) > 0) {
    }
    Accessible told(m_bus, m_focus.program, m_focus.path);
    if (!told.role().empty())
        return told;
    Accessible innermost;
    for (const Accessible& window : windows())
        for (const Accessible& thing : everythingIn(window))
            // A cell also reports the focus that only its table can have.
            if (thing.is(AccessibleState::focused) && controlOf(thing).is(AccessibleState::focused))
                innermost = thing;
    return innermost;
}

} // namespace quorvi::test
