#include "support/Compositors.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "support/WaitUntil.h"

namespace quorvi::test {

namespace {

constexpr uid_t kNobody = 65534;

bool accepts(const std::string& socketPath) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    socketPath.copy(address.sun_path, sizeof address.sun_path - 1);
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const bool connected = connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(fd);
    return connected;
}

void giveAway(const std::filesystem::path& path) {
    if (chown(path.c_str(), kNobody, kNobody) != 0)
        throw std::runtime_error("the runtime folder cannot be given away");
}

} // namespace

std::vector<std::string> Compositor::environment() const {
    return {"XDG_RUNTIME_DIR=" + m_folder.path().native(), "WAYLAND_DISPLAY=" + m_socket};
}

void Compositor::start(const std::vector<std::string>& command, const std::vector<std::string>& environment) {
    m_process = std::make_unique<ChildProcess>(command, environment);
    if (!waitUntil([&] { return accepts(m_folder.path(m_socket)) || !m_process->isRunning(); }) ||
        !m_process->isRunning())
        throw std::runtime_error(command.back() + " does not start: " + m_process->readError());
}

void Compositor::startAsUser(std::vector<std::string> command, const std::vector<std::string>& environment) {
    if (getuid() == 0) {
        const std::string id = std::to_string(kNobody);
        command.insert(command.begin(),
            {"setpriv", "--reuid", id, "--regid", id, "--clear-groups", "--pdeathsig", "KILL", "--"});
        giveAway(folder().path());
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder().path()))
            giveAway(entry.path());
    }
    start(command, environment);
}

Sway::Sway(const std::string& display) : Compositor("wayland-1") {
    const std::string configuration = folder().write("config", "xwayland disable\n");
    startAsUser({"sway", "--config", configuration}, // it refuses to work for root
        {"XDG_RUNTIME_DIR=" + folder().path().native(), "HOME=" + folder().path().native(),
            "SWAYSOCK=" + folder().path("control"), "WLR_LIBINPUT_NO_DEVICES=1", "WLR_RENDERER=pixman",
            "WLR_BACKENDS=" + std::string(display.empty() ? "headless" : "x11"), "DISPLAY=" + display});
    // Clients can connect before it has its keyboard and takes in commands.
    if (!waitUntil([this] { return command("nop"); }))
        throw std::runtime_error("sway takes no commands: " + process().readError());
}

bool Sway::command(const std::string& text) const {
    return runProgram({"swaymsg", "--socket", folder().path("control"), "--quiet", text}).exitCode == 0;
}

bool Sway::setLayout(const std::string& layout, const std::string& variant) const {
    // Before it takes in the last command, it writes to all its clients.
    return command("input type:keyboard xkb_variant \"\"") &&
           command("input type:keyboard xkb_layout \"" + layout + "\"") &&
           (variant.empty() || command("input type:keyboard xkb_variant \"" + variant + "\"")) &&
           command("nop");
}

Labwc::Labwc() : Compositor("wayland-0") {
    const std::string runtime = folder().path().native();
    startAsUser({"labwc"},
        {"XDG_RUNTIME_DIR=" + runtime, "HOME=" + runtime, "XDG_CONFIG_HOME", "WLR_BACKENDS=headless",
            "WLR_LIBINPUT_NO_DEVICES=1", "WLR_RENDERER=pixman", "DISPLAY", "WAYLAND_DISPLAY"});
}

KWin::KWin(const std::string& bus) : Compositor("kwin-0") {
    const std::string runtime = folder().path().native();
    const std::string noBus = "unix:path=" + folder().path("no-bus");
    startAsUser({"kwin_wayland", "--virtual", "--width", "1280", "--height", "800", "--no-lockscreen",
                    "--no-global-shortcuts", "--no-kactivities", "--socket", socket()},
        {"XDG_RUNTIME_DIR=" + runtime, "HOME=" + runtime,
            "DBUS_SESSION_BUS_ADDRESS=" + (bus.empty() ? noBus : bus), "DBUS_SYSTEM_BUS_ADDRESS=" + noBus,
            "KWIN_COMPOSE=Q", "QT_QUICK_BACKEND=software", "KWIN_WAYLAND_NO_PERMISSION_CHECKS=1", "DISPLAY",
            "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"});
}

GnomeShell::GnomeShell(const std::string& bus, const std::string& extensions)
    : Compositor("gnome-0"), m_system(std::make_unique<PrivateBus>()) {
    namespace fs = std::filesystem;
    setenv("DBUS_SESSION_BUS_ADDRESS", bus.c_str(), 1); // which the other bus has taken
    const auto settings = folder() / "config/glib-2.0/settings";
    const auto ownExtensions = folder() / "data/gnome-shell/extensions";
    fs::create_directories(settings);
    fs::create_directories(ownExtensions);
    fs::copy(extensions, ownExtensions, fs::copy_options::recursive);
    std::ofstream(settings / "keyfile")
        << "[org/gnome/shell]\ndisable-user-extensions=true\nwelcome-dialog-last-shown-version='9999'\n";
    const std::string runtime = folder().path().native();
    startAsUser({"gnome-shell", "--headless", "--no-x11", "--virtual-monitor", "1280x800", "--unsafe-mode",
                    "--wayland-display", socket()},
        {"XDG_RUNTIME_DIR=" + runtime, "HOME=" + runtime, "XDG_CONFIG_HOME=" + runtime + "/config",
            "XDG_DATA_HOME=" + runtime + "/data", "XDG_SESSION_TYPE=wayland", "GSETTINGS_BACKEND=keyfile",
            "DBUS_SESSION_BUS_ADDRESS=" + bus, "DBUS_SYSTEM_BUS_ADDRESS=" + m_system->address(),
            "LIBGL_ALWAYS_SOFTWARE=1", "DISPLAY", "WAYLAND_DISPLAY"});
    const auto overviewIsHidden = [&] {
        return runProgram({"busctl", "--address=" + bus, "call", "org.gnome.Shell", "/org/gnome/Shell",
                              "org.gnome.Shell", "Eval", "s", "Main.overview.hide(); Main.overview.visible"})
                   .output == "bs true \"false\"\n";
    };
    if (!waitUntil(overviewIsHidden))
        throw std::runtime_error("gnome-shell does not come up: " + process().readError());
}

Weston::Weston(const std::string& display) : Compositor("weston") {
    std::vector<std::string> command{"weston", "--no-config", "--socket=weston", "--idle-time=0",
        "--log=" + folder().path("log"), "--width=320", "--height=240"};
    if (display.empty())
        command.emplace_back("--backend=headless-backend.so");
    else
        command.insert(command.end(), {"--backend=x11-backend.so", "--use-pixman"});
    start(command, {"XDG_RUNTIME_DIR=" + folder().path().native(), "DISPLAY=" + display});
}

} // namespace quorvi::test
