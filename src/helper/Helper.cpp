#include "helper/Helper.h"

#include <utility>

namespace quorvi {

namespace {

constexpr char kHelperName[] = "KyvarQuorviHelper";
constexpr char kPanelName[] = "KyvarQuorviPane";

} // namespace

Helper::Helper(EventBus& bus, EventLoop& loop, const SettingsFiles& files, std::filesystem::path chosenMice)
    : m_bus(bus), m_settings(files), m_clients(bus),
      m_announcements(bus, m_settings, m_mice, m_clients, files.bundle()),
      m_mice(loop, std::move(chosenMice), m_announcements),
      m_simulatedControls(bus, m_settings, m_mice, m_announcements),
      m_controls(bus, m_mice, m_clients, m_announcements) {
    m_bus.installHandler(kEventClassQuorvi, kEventCommand,
        [this](const Event& event, const ProcessSerialNumber& sender, Event& reply) {
            return handleCommand(event, sender, reply);
        });
    m_bus.onProcessGone([this](const ProcessSerialNumber& psn) { forget(psn); });
}

Helper::~Helper() {
    m_bus.onProcessGone(nullptr);
    m_bus.removeHandler(kEventClassQuorvi, kEventCommand);
}

NameResult Helper::start() {
    const NameResult result = m_bus.ownName(kHelperName, NameMode::onlyIfFree);
    if (result != NameResult::owned)
        return result;
    greetShownPanels();
    // Read after querying the bus: by its reply every process knows the name's new owner. Earlier saves are
    // read here, and later ones send their message to this process.
    reloadSettings();
    m_mice.real().start();
    return result;
}

/// A panel that launched the helper sent its message too early. The helper looks for panels only once it can
/// be found itself, and a panel does the same, so one of them always finds the other. If there are several
/// panels, one owns the name and the others queue for it.
void Helper::greetShownPanels() {
    for (const auto& panel : m_bus.processesInLine(kPanelName))
        addPanel(panel);
}

/// Replies, for senders that want one, with the number of devices, whether the settings were accepted, or
/// whether a macro is being recorded. Ignores unknown commands.
Status Helper::handleCommand(const Event& event, const ProcessSerialNumber& sender, Event& reply) {
    FourCharCode message = 0;
    std::int32_t parameter = 0;
    if (event.getMagnitude(keyDirectObject, message) != noErr ||
        event.getInteger(kKeyCommandParameter, parameter) != noErr)
        return noErr;
    switch (message) {
    case kMessagePaneShown:
        parameter != 0 ? addPanel(sender) : removePanel(sender);
        reply.putInteger(keyDirectObject, m_mice.deviceList().count);
        break;
    case kMessageSettingsSaved:
        reply.putInteger(keyDirectObject, reloadSettings() ? 1 : 0);
        break;
    case kMessageRecording:
        setRecording(parameter != 0, sender);
        reply.putInteger(keyDirectObject, parameter != 0 ? 1 : 0);
        break;
    default:
        break;
    }
    return noErr;
}

void Helper::setRecording(bool recording, const ProcessSerialNumber& sender) {
    m_mice.setMacrosAreQuiet(recording);
    // A command typed in a terminal comes from a process that ends at once; its end means nothing.
    const bool isPanel = m_clients.panels().count(sender) > 0;
    m_clients.setRecorder(recording && isPanel ? std::optional(sender) : std::nullopt);
}

bool Helper::reloadSettings() {
    const bool hadNone = m_settings.record().empty();
    const auto before = m_settings.settings();
    const bool reloaded = m_settings.reload();
    if (!reloaded && (!hadNone || m_settings.record().empty()))
        return false;
    if (m_profilesRead)
        m_profilesRead();
    m_announcements.expectSaved(before);
    giveRecord();
    return reloaded;
}

void Helper::giveRecord() {
    m_mice.setRecord(m_settings.record(), m_settings.acceleration());
}

void Helper::followProfile(std::optional<std::size_t> profile, std::string reason) {
    m_announcements.setFrontReason(std::move(reason));
    if (profile != m_settings.followed() && m_settings.follow(profile))
        giveRecord();
    m_announcements.tellFrontReason(); // which is valid from now on
}

void Helper::addPanel(const ProcessSerialNumber& panel) {
    m_clients.addPanel(panel);
    m_mice.real().setShown(true);
    (void)m_bus.send(panel, makeDeviceListEvent(m_mice.deviceList()));
}

void Helper::removePanel(const ProcessSerialNumber& panel) {
    m_clients.removePanel(panel);
    m_mice.real().setShown(!m_clients.panels().empty());
}

/// A killed process has reported neither its hiding nor the end of its recording.
void Helper::forget(const ProcessSerialNumber& gone) {
    removePanel(gone);
    m_controls.endSetUp(gone);
    if (m_clients.recorder() != gone)
        return;
    m_clients.setRecorder({});
    m_mice.setMacrosAreQuiet(false);
}

} // namespace quorvi
