#include <cstdio>
#include <optional>

#include <unistd.h>

#include "events/DeviceList.h"
#include "events/SimulatedMouse.h"
#include "tools/HelperLink.h"
#include "tools/Verbs.h"

namespace quorvi::tools {

namespace {

constexpr std::chrono::seconds kListTimeout{1};

/// Asks for the list as a panel does that is shown for a moment.
std::optional<DeviceList> askForDevices(EventBus& bus, const ProcessSerialNumber& helper) {
    std::optional<DeviceList> answer;
    bus.installHandler(kEventClassQuorvi, kEventDeviceList,
        [&](const Event& event, const ProcessSerialNumber& sender, Event&) {
            DeviceList list;
            if (sender == helper && getDeviceList(event, list))
                answer = list;
            return noErr;
        });
    if (bus.ownName("quorvictl-" + std::to_string(getpid())) != NameResult::owned ||
        bus.send(helper, makeCommand(kMessagePaneShown, 1)) != noErr)
        return std::nullopt;
    const auto end = std::chrono::steady_clock::now() + kListTimeout;
    while (!answer && bus.isConnected() && std::chrono::steady_clock::now() < end)
        bus.wait(std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now()));
    (void)bus.send(helper, makeCommand(kMessagePaneShown, 0));
    bus.removeHandler(kEventClassQuorvi, kEventDeviceList);
    return answer;
}

void print(const DeviceEntry& device) {
    std::printf("%u: vendor 0x%04x, product 0x%04x, release %x.%02x, interface %u, power %u mA, location "
                "0x%08x\n",
        unsigned{device.deviceIndex}, unsigned{device.vendorID}, unsigned{device.productID},
        device.releaseNum >> 8, device.releaseNum & 0xFFu, unsigned{device.interfaceNum}, device.busPower,
        device.locationID);
}

} // namespace

Outcome devices(const Arguments&) {
    const HelperLink link = connectToHelper();
    if (!link.fault.empty())
        return refused(link.fault);
    const auto list = askForDevices(*link.bus, link.helper);
    if (!list)
        return refused(callFault(errAETimeout));
    for (std::size_t i = 0; i < list->device.size() && i < list->count; ++i)
        print(list->device[i]);
    return done();
}

Outcome attach(const Arguments&) {
    return callHelper(attachSimulatedMouse);
}

Outcome detach(const Arguments&) {
    return callHelper(detachSimulatedMouse);
}

} // namespace quorvi::tools
