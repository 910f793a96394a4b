#include "helper/Helper.h"

#include <utility>

#include "events/EventBusPrivate.h"

namespace quorvi {

namespace {

constexpr char kHelperName[] = "KyvarQuorviHelper";
constexpr char kPanelName[] = "KyvarQuorviPane";

} // namespace

Helper::Helper(EventBus& bus, EventLoop& loop, const SettingsFiles& files, std::filesystem::path chosenMice)
    : m_bus(bus), m_settings(files), m_layout(loop), m_mice(loop, std::move(chosenMice), *this),
      m_bundle(files.bundle()), m_display(bus.connection().bus.get()) {
    m_bus.installHandler(kEventClassQuorvi, kEventCommand,
        [this](const Event& event, const ProcessSerialNumber& sender, Event& reply) {
            return handleCommand(event, sender, reply);
        });
    m_bus.onProcessGone([this](const ProcessSerialNumber& psn) { forget(psn); });
    m_object = SimulatedMouseObject::offer(m_bus, *this);
    m_controls = HelperObject::offer(m_bus, *this);
    m_mouse.onFrame([this](std::span<const input_event> frame) {
        if (m_object)
            m_object->tellEmitted(frame);
    });
    m_mouse.onRunning([this] {
        if (m_object)
            m_object->tellRunning();
        if (isDemonstration())
            runningChanged();
    });
    m_layout.onKeys([this](const engine::LetterKeys& keys) {
        for (auto* backend : m_backends)
            backend->setLetterKeys(keys);
    });
    loop.watch(m_mouse.timerFd(), [this] { m_mouse.wake(); });
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
    // Behind the questions to the bus, which it answers when everybody has been told of the name's new owner:
    // who saved before that is read here, and who saves later sends its message to this process.
    reloadSettings();
    m_mice.start();
    return result;
}

/// A panel that launched the helper told it too early that it is shown. The helper looks for panels only once
/// it can be found itself, and a panel does the same, so that one of the two always finds the other. Of
/// several panels one owns the name and the others wait for it.
void Helper::greetShownPanels() {
    for (const auto& panel : m_bus.processesInLine(kPanelName))
        addPanel(panel);
}

/// Replies are for those who ask for one: the number of devices, whether the settings were taken over,
/// whether a macro is being recorded. What it does not know it ignores.
Status Helper::handleCommand(const Event& event, const ProcessSerialNumber& sender, Event& reply) {
    FourCharCode message = 0;
    std::int32_t parameter = 0;
    if (event.getMagnitude(keyDirectObject, message) != noErr ||
        event.getInteger(kKeyCommandParameter, parameter) != noErr)
        return noErr;
    switch (message) {
    case kMessagePaneShown:
        parameter != 0 ? addPanel(sender) : removePanel(sender);
        reply.putInteger(keyDirectObject, deviceList().count);
        break;
    case kMessageSettingsSaved:
        reply.putInteger(keyDirectObject, reloadSettings() ? 1 : 0);
        break;
    case kMessageRecording:
        setRecording(parameter != 0);
        // A command typed on the bus comes from a process that is gone at once: that says nothing.
        setRecorder(m_recording && m_panels.count(sender) > 0 ? std::optional(sender) : std::nullopt);
        reply.putInteger(keyDirectObject, m_recording ? 1 : 0);
        break;
    default:
        break;
    }
    return noErr;
}

void Helper::attach() {
    setAttached(true);
}

void Helper::detach() {
    setAttached(false);
}

void Helper::setAttached(bool attached) {
    m_attached = attached;
    if (!attached)
        m_mouse.releaseAll();
    m_mouse.setPluggedIn(attached);
    sendDeviceList();
}

void Helper::setRecording(bool recording) {
    m_recording = recording;
    for (auto* backend : m_backends)
        backend->setMacrosAreQuiet(recording);
}

bool Helper::reloadSettings() {
    const bool hadNone = m_settings.record().empty();
    const auto before = m_settings.settings();
    const bool reloaded = m_settings.reload();
    if (!reloaded && (!hadNone || m_settings.record().empty()))
        return false;
    if (m_profilesRead)
        m_profilesRead();
    expectSaved(before);
    giveRecord();
    return reloaded;
}

void Helper::giveRecord() {
    for (auto* backend : m_backends)
        backend->setRecord(m_settings.record(), m_settings.acceleration());
}

void Helper::followProfile(std::optional<std::size_t> profile) {
    if (profile != m_settings.followed() && m_settings.follow(profile))
        giveRecord();
    tellFrontReason(); // which was given first, and holds from now on
}

void Helper::addPanel(const ProcessSerialNumber& panel) {
    m_panels.insert(panel);
    m_bus.watchProcess(panel);
    m_mice.setShown(true);
    (void)m_bus.send(panel, makeDeviceListEvent(deviceList()));
}

void Helper::removePanel(const ProcessSerialNumber& panel) {
    m_panels.erase(panel);
    m_mice.setShown(!m_panels.empty());
    unwatchUnlessNeeded(panel);
}

void Helper::setRecorder(std::optional<ProcessSerialNumber> recorder) {
    const auto before = std::exchange(m_recorder, recorder);
    if (before)
        unwatchUnlessNeeded(*before);
    if (m_recorder)
        m_bus.watchProcess(*m_recorder);
}

/// A process that was killed has said neither that it is hidden nor that its recording is over.
void Helper::forget(const ProcessSerialNumber& gone) {
    m_panels.erase(gone);
    m_mice.setShown(!m_panels.empty());
    endSetUp(gone);
    if (m_recorder != gone)
        return;
    m_recorder.reset();
    setRecording(false);
}

void Helper::unwatchUnlessNeeded(const ProcessSerialNumber& process) {
    if (m_panels.count(process) == 0 && m_recorder != process && m_setter != process)
        m_bus.unwatchProcess(process);
}

} // namespace quorvi
