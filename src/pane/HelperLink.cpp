// The link to the helper application: commands out, the device list in.

#include <QMetaObject>

#include <utility>

#include "pane/HelperName.h"
#include "pane/KyvarQuorviPane.h"

namespace quorvi {

namespace {

constexpr const char* kPaneProcessName = "KyvarQuorviPane";

} // namespace

Status KyvarQuorviPane::findProcessByName(const std::string& processName, ProcessSerialNumber* psn) const {
    return fServices.bus ? fServices.bus->findProcessByName(processName, psn) : procNotFound;
}

Status KyvarQuorviPane::sendMessageToHelper(FourCharCode message, std::int32_t param) {
    return sendControlToKext(kHelperName, message, param, nullptr);
}

Status KyvarQuorviPane::sendControlToKext(
    const std::string& processName, FourCharCode message, std::int32_t param, std::int32_t* result) {
    ProcessSerialNumber process;
    if (const Status status = findProcessByName(processName, &process); status != noErr)
        return status;
    Event reply;
    const Status status = fServices.bus->send(
        process, makeCommand(message, param), result ? SendMode::waitReply : SendMode::noReply, &reply);
    return status == noErr && result ? reply.getInteger(keyDirectObject, *result) : status;
}

void KyvarQuorviPane::installDeviceListHandler() {
    if (!fServices.bus)
        return;
    // The name comes first: a helper that starts at this moment looks for it after taking its own, so that
    // one of the two always finds the other.
    (void)fServices.bus->ownName(kPaneProcessName);
    fServices.bus->installHandler(kEventClassQuorvi, kEventDeviceList,
        [this](const Event& event, const ProcessSerialNumber&, Event&) { return receiveDeviceList(event); });
    fReceiveListUPP = true;
}

void KyvarQuorviPane::removeEventHandlers() {
    if (!fServices.bus)
        return;
    if (std::exchange(fReceiveListUPP, false))
        fServices.bus->removeHandler(kEventClassQuorvi, kEventDeviceList);
    // No handler for single values is installed as yet; one that didSelect comes to install is taken back
    // here.
    if (std::exchange(fReceiveValueUPP, false))
        fServices.bus->removeHandler(kEventClassQuorvi, kEventValue);
    (void)fServices.bus->releaseName(kPaneProcessName);
}

Status KyvarQuorviPane::receiveDeviceList(const Event& event) {
    if (!getDeviceList(event, fDeviceList))
        return noErr;
    fDocument.setHasDevice(fDeviceList.count != 0);
    fListHasCome = true;
    // Lists that come before the call runs share it: it would read the same file again and show the same, the
    // last, list.
    if (!std::exchange(fSyncScheduled, true)) {
        // After the handler has answered, and also while a sheet is up; but no more when the pane was hidden
        // in between, because a hidden pane has let its settings go.
        QMetaObject::invokeMethod(
            this,
            [this] {
                fSyncScheduled = false;
                if (fReceiveListUPP)
                    syncUIWithDeviceConfig();
            },
            Qt::QueuedConnection);
    }
    return noErr;
}

} // namespace quorvi
