#include "helper/front/Session.h"

#include <cstdlib>

namespace quorvi::front {

namespace {

std::string variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

} // namespace

Session Session::ofThisProcess() {
    Session session;
    session.x11Display = variable("DISPLAY");
    // An absolute path replaces the folder, as in the Wayland library.
    if (const std::string socket = variable("WAYLAND_DISPLAY"); !socket.empty())
        session.waylandSocket = std::filesystem::path(variable("XDG_RUNTIME_DIR")) / socket;
    session.isWayland = !session.waylandSocket.empty() || variable("XDG_SESSION_TYPE") == "wayland";
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    session.resources = program.parent_path().parent_path() / "Resources";
    const std::string desktops = variable("XDG_CURRENT_DESKTOP");
    session.desktop = desktops.substr(0, desktops.find(':'));
    return session;
}

} // namespace quorvi::front
