#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <span>
#include <string>

#include <unistd.h>

#include "events/DeviceList.h"
#include "events/SimulatedMouse.h"
#include "tools/HelperLink.h"
#include "tools/Listing.h"

namespace quorvi::tools {

namespace {

constexpr std::chrono::seconds kListTimeout{1};

/// Requests the list like a panel that is shown for a moment.
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

std::string releaseOf(const DeviceEntry& device) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%x.%02x", device.releaseNum >> 8, device.releaseNum & 0xFFu);
    return text.data();
}

void printDevice(const DeviceEntry& device) {
    std::printf("%u: vendor 0x%04x, product 0x%04x, release %s, interface %u, power %u mA, location "
                "0x%08x\n",
        unsigned{device.deviceIndex}, unsigned{device.vendorID}, unsigned{device.productID},
        releaseOf(device).c_str(), unsigned{device.interfaceNum}, device.busPower, device.locationID);
}

Json jsonOfDevice(const DeviceEntry& device) {
    return Json::object({{"index", device.deviceIndex}, {"vendor", device.vendorID},
        {"product", device.productID}, {"release", releaseOf(device)}, {"interface", device.interfaceNum},
        {"power", device.busPower}, {"location", device.locationID}});
}

} // namespace

Outcome devices(const Arguments&, Format format) {
    const HelperLink link = connectToHelper();
    if (!link.fault.empty())
        return refused(link.fault);
    const auto list = askForDevices(*link.bus, link.helper);
    if (!list)
        return refused(callFault(errAETimeout));
    const auto count = std::min<std::size_t>(list->device.size(), list->count);
    printList(format, "devices", std::span(list->device).first(count), printDevice, jsonOfDevice);
    return done();
}

Outcome attach(const Arguments&) {
    return callHelper(attachSimulatedMouse);
}

Outcome detach(const Arguments&) {
    return callHelper(detachSimulatedMouse);
}

} // namespace quorvi::tools
