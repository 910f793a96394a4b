#include "host/Session.h"

#include <QTest>

#include <algorithm>
#include <charconv>
#include <csignal>
#include <fstream>

#include "events/DeviceList.h"
#include "events/ProcessName.h"
#include "events/SimulatedMouse.h"
#include "model/ConfigMapping.h"
#include "support/EventMonitor.h"
#include "support/WindowTools.h"

namespace quorvi::test {

namespace fs = std::filesystem;

namespace {

constexpr char kHelperName[] = "KyvarQuorviHelper";

void require(Status status) {
    if (status != noErr)
        qFatal("the helper does not do as it is told: %d", int(status));
}

pid_t processId(const fs::path& folder) {
    const std::string name = folder.filename();
    pid_t id = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), id);
    return error == std::errc() && *end == '\0' ? id : 0;
}

} // namespace

Session::Session(Storage storage) : home(storage) {}

Session::~Session() {
    m_bus.reset();
    m_privateBus.reset();
    // A helper of our own is our child, which stays until it is waited for.
    if (!QTest::qWaitFor(
            [this] { return helpers().empty() && (!m_helper || !m_helper->isRunning()); }, kWindowPatienceMs))
        qFatal("the helper stays when the bus has gone");
}

void Session::startHelper() {
    m_helper = std::make_unique<ChildProcess>(std::vector<std::string>{QUORVI_HELPER});
    if (!QTest::qWaitFor([this] { return runs(kHelperName); }, kWindowPatienceMs))
        qFatal("the helper does not start");
}

void Session::activateHelper() {
    std::ofstream(m_services / "com.kyvar.KyvarQuorviHelper.service")
        << "[D-BUS Service]\nName=com.kyvar.KyvarQuorviHelper\nExec=/usr/bin/env HOME=" << home.path()
        << " " QUORVI_HELPER "\n";
    for (const std::string call : {"ReloadConfig", "StartServiceByName"}) {
        std::vector<std::string> command{"dbus-send", "--session", "--print-reply",
            "--dest=org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus." + call};
        if (call == "StartServiceByName")
            command.insert(command.end(), {"string:com.kyvar.KyvarQuorviHelper", "uint32:0"});
        if (const auto result = runProgram(command); result.exitCode != 0)
            qFatal("the bus does not start the helper: %s", result.error.c_str());
    }
}

void Session::killHelper() {
    const std::vector<pid_t> killed = helpers();
    ProcessSerialNumber before;
    const bool wasKnown = m_bus->findProcessByName(kHelperName, &before) == noErr;
    for (const pid_t id : killed)
        ::kill(id, SIGKILL);
    // The panel may start another one before anybody has looked.
    const auto hasGone = [&] {
        ProcessSerialNumber now;
        const bool isKnown = m_bus->findProcessByName(kHelperName, &now) == noErr;
        const std::vector<pid_t> running = helpers();
        return !(wasKnown && isKnown && now == before) &&
               std::ranges::find_first_of(running, killed) == running.end();
    };
    if (!QTest::qWaitFor(hasGone, kWindowPatienceMs))
        qFatal("the helper cannot be killed");
}

std::vector<pid_t> Session::helpers() const {
    const std::string ours = "DBUS_SESSION_BUS_ADDRESS=" + m_address;
    std::vector<pid_t> result;
    std::error_code error;
    for (const auto& process : fs::directory_iterator("/proc", error)) {
        const pid_t id = processId(process.path());
        if (id != 0 && fs::read_symlink(process.path() / "exe", error).filename() == kHelperName &&
            UserHome::contentOf(process.path() / "environ").find(ours) != std::string::npos)
            result.push_back(id);
    }
    return result;
}

bool Session::runs(const std::string& processName) const {
    return m_bus->findProcessByName(processName, nullptr) == noErr;
}

ProcessSerialNumber Session::process(const std::string& processName) const {
    ProcessSerialNumber psn;
    if (const Status status = m_bus->findProcessByName(processName, &psn); status != noErr)
        qFatal("%s is not to be found: %d", processName.c_str(), int(status));
    return psn;
}

ProcessSerialNumber Session::helper() const {
    return process(kHelperName);
}

void Session::attach() const {
    require(attachSimulatedMouse(*m_bus, helper()));
}

void Session::detach() const {
    require(detachSimulatedMouse(*m_bus, helper()));
}

bool Session::isAttached() const {
    bool attached = false;
    require(getSimulatedMouseAttached(*m_bus, helper(), attached));
    return attached;
}

std::vector<std::uint8_t> Session::record() const {
    EventBytes bytes;
    if (runs(kHelperName))
        require(getSimulatedMouseRecord(*m_bus, helper(), bytes));
    return bytes;
}

int Session::recordByte(int offset) const {
    const auto bytes = record();
    return offset < int(bytes.size()) ? bytes[std::size_t(offset)] : -1;
}

QString Session::recordAgainstFile() const {
    ConfigRecord expected{};
    if (!KyvarConfigDictToStruct(home.savedSettings(), &expected))
        qFatal("the settings file is no record");
    const auto* first = reinterpret_cast<const std::uint8_t*>(&expected);
    return changes({first, first + sizeof expected}, record());
}

int Session::panelsToldOfDetaching() const {
    // The helper tells its panels in the order in which they came to the bus, so the last one is this
    // witness.
    const auto witness = EventBus::connect();
    Event reply;
    require(
        witness->send(helper(), makeCommand(kMessagePaneShown, 1), SendMode::waitReply, &reply, kPatience));
    EventMonitor monitor(m_address);
    detach();
    auto told = monitor.destinationsUntil(events::uniqueName(witness->processSerialNumber()));
    std::erase(told, events::uniqueName(helper())); // what panels tell the helper meanwhile
    return int(told.size()) - 1;
}

std::unique_ptr<ChildProcess> Session::startSettings(
    const std::vector<std::string>& arguments, const std::vector<std::string>& environment) const {
    std::vector<std::string> command{QUORVI_SETTINGS};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return std::make_unique<ChildProcess>(command, environment);
}

std::vector<std::string> withoutSessionBus(const QTemporaryDir& emptyFolder) {
    const std::string folder = emptyFolder.path().toStdString();
    return {"DBUS_SESSION_BUS_ADDRESS=unix:path=" + folder + "/nowhere", "XDG_RUNTIME_DIR=" + folder};
}

QString changes(const std::vector<std::uint8_t>& before, const std::vector<std::uint8_t>& after) {
    if (before.size() != after.size())
        return QStringLiteral("size");
    QStringList result;
    for (std::size_t i = 0; i < before.size(); ++i)
        if (before[i] != after[i])
            result << QStringLiteral("%1: %2 -> %3").arg(i).arg(before[i]).arg(after[i]);
    return result.join(QStringLiteral(", "));
}

} // namespace quorvi::test
