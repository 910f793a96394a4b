#include "support/VirtualDisplay.h"

#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include <unistd.h>

#include "layouts/XcbXkb.h"

namespace quorvi::test {

namespace {

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};
struct Free {
    void operator()(void* reply) const { std::free(reply); }
};

using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

/// The locked group of the core keyboard.
int lockedGroup(xcb_connection_t* connection) {
    const auto cookie = xcb_xkb_get_state(connection, XCB_XKB_ID_USE_CORE_KBD);
    const std::unique_ptr<xcb_xkb_get_state_reply_t, Free> state(
        xcb_xkb_get_state_reply(connection, cookie, nullptr));
    return state ? int{state->lockedGroup} : -1;
}

Connection connectTo(const std::string& display) {
    Connection connection(xcb_connect(display.c_str(), nullptr));
    const auto cookie = xcb_xkb_use_extension(connection.get(), 1, 0);
    const std::unique_ptr<xcb_xkb_use_extension_reply_t, Free> reply(
        xcb_xkb_use_extension_reply(connection.get(), cookie, nullptr));
    return connection;
}

} // namespace

bool isInstalled(const std::string& program) {
    std::istringstream path(std::getenv("PATH"));
    for (std::string folder; std::getline(path, folder, ':');)
        if (access((folder + "/" + program).c_str(), X_OK) == 0)
            return true;
    return false;
}

VirtualDisplay::VirtualDisplay(const std::vector<std::string>& arguments) {
    std::vector<std::string> command{
        "Xvfb", "-displayfd", "1", "-noreset", "-nolisten", "tcp", "-screen", "0", "640x480x24"};
    command.insert(command.end(), arguments.begin(), arguments.end());
    m_server = std::make_unique<ChildProcess>(command);
    const auto number = m_server->readLine();
    if (!number)
        throw std::runtime_error("Xvfb does not start: " + m_server->readError());
    m_name = ":" + *number;
}

bool VirtualDisplay::setLayout(const std::string& layout, const std::string& variant) const {
    return runProgram({"setxkbmap", "-display", m_name, "-rules", "evdev", "-model", "pc105", "-layout",
                          layout, "-variant", variant, "-option", ""})
               .exitCode == 0;
}

bool VirtualDisplay::xdotool(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), "xdotool");
    return runProgram(std::move(arguments), {"DISPLAY=" + m_name}).exitCode == 0;
}

int VirtualDisplay::lockGroup(std::uint8_t group) const {
    const Connection connection = connectTo(m_name);
    xcb_xkb_latch_lock_state(connection.get(), XCB_XKB_ID_USE_CORE_KBD, 0, 0, 1, group, 0, 0, 0);
    const int locked = lockedGroup(connection.get());
    settle();
    return locked;
}

void VirtualDisplay::settle() const {
    // A server writes to all its clients before it accepts a new one.
    lockedGroup(connectTo(m_name).get());
}

} // namespace quorvi::test
