// Messages to the helper, and lists of devices from it.

#include "session/HelperLink.h"

#include <utility>

#include "document/Document.h"
#include "live/LiveHelper.h"
#include "platform/EventBusNotifier.h"
#include "session/HelperName.h"

namespace quorvi {

namespace {

constexpr const char* kPaneProcessName = "KyvarQuorviPane";

} // namespace

HelperLink::HelperLink(Panel panel) : m_panel(std::move(panel)), m_view(&m_panel.view) {
    if (m_panel.bus)
        m_notifier = std::make_unique<EventBusNotifier>(*m_panel.bus);
    m_live = makeLive();
}

HelperLink::~HelperLink() {
    if (!m_panel.bus)
        return;
    m_panel.bus->onProcessesChanged(nullptr);
    m_panel.bus->removeHandler(kEventClassQuorvi, kEventDeviceList);
}

Status HelperLink::findProcess(const std::string& processName, ProcessSerialNumber* psn) const {
    return m_panel.bus ? m_panel.bus->findProcessByName(processName, psn) : procNotFound;
}

Status HelperLink::sendMessage(FourCharCode message, std::int32_t param) {
    return sendControl(kHelperName, message, param, nullptr);
}

Status HelperLink::sendControl(
    const std::string& processName, FourCharCode message, std::int32_t param, std::int32_t* result) {
    ProcessSerialNumber process;
    if (const Status status = findProcess(processName, &process); status != noErr)
        return status;
    Event reply;
    const Status status = m_panel.bus->send(
        process, makeCommand(message, param), result ? SendMode::waitReply : SendMode::noReply, &reply);
    return status == noErr && result ? reply.getInteger(keyDirectObject, *result) : status;
}

void HelperLink::startListening() {
    if (!m_panel.bus)
        return;
    // Own the name first: a helper that starts now looks for it after taking its own, so one of the two
    // always finds the other.
    (void)m_panel.bus->ownName(kPaneProcessName);
    m_panel.bus->installHandler(kEventClassQuorvi, kEventDeviceList,
        [this](const Event& event, const ProcessSerialNumber&, Event&) { return receiveDeviceList(event); });
}

void HelperLink::stopListening() {
    if (!m_panel.bus)
        return;
    m_panel.bus->removeHandler(kEventClassQuorvi, kEventDeviceList);
    // startListening installs no handler for single values yet; if it ever does, this removes it.
    m_panel.bus->removeHandler(kEventClassQuorvi, kEventValue);
    (void)m_panel.bus->releaseName(kPaneProcessName);
}

Status HelperLink::receiveDeviceList(const Event& event) {
    if (!getDeviceList(event, m_deviceList))
        return noErr;
    m_panel.context.document.setHasDevice(m_deviceList.count != 0);
    m_listHasCome = true;
    // Lists that arrive before this one is taken need no second signal: it would only re-read the same file
    // and show the same, last, list.
    if (!std::exchange(m_listWaits, true))
        emit listCame();
    return noErr;
}

// A hidden panel has released its settings.
bool HelperLink::takeList() {
    return std::exchange(m_listWaits, false) && m_isOpen;
}

} // namespace quorvi
