#include <cinttypes>
#include <cstdio>

#include "events/SimulatedMouse.h"
#include "model/Limits.h"
#include "tools/HelperLink.h"
#include "tools/Input.h"
#include "tools/Verbs.h"

namespace quorvi::tools {

namespace {

using InputCall = Status (*)(const EventBus&, const ProcessSerialNumber&, std::uint8_t);

Outcome callWithInput(InputCall call, const std::string& argument) {
    const auto input = numberIn(argument);
    if (!input)
        return misused(argument + " is not a 32-bit number, decimal or 0x");
    if (*input < 1 || *input > limits::buttons)
        return refused(argument + " is not an input; inputs are 1 to 9");
    return callHelper([&](const EventBus& bus, const ProcessSerialNumber& helper) {
        return call(bus, helper, static_cast<std::uint8_t>(*input));
    });
}

void printFrame(std::span<const EmittedEvent> frame) {
    for (const EmittedEvent& event : frame)
        std::printf(
            "%" PRIu64 "\t%u\t%u\t%d\n", event.time, unsigned{event.type}, unsigned{event.code}, event.value);
    std::fflush(stdout);
}

} // namespace

Outcome press(const Arguments& arguments) {
    return callWithInput(pressSimulatedMouse, arguments[0]);
}

Outcome release(const Arguments& arguments) {
    return callWithInput(releaseSimulatedMouse, arguments[0]);
}

Outcome watch(const Arguments&) {
    const HelperLink link = connectToHelper();
    if (!link.fault.empty())
        return refused(link.fault);
    bool isThere = true;
    link.bus->onProcessGone([&](const ProcessSerialNumber&) { isThere = false; });
    link.bus->watchProcess(link.helper);
    const auto listener = SimulatedMouseListener::listen(*link.bus, link.helper, printFrame);
    if (!listener)
        return refused("the session bus failed");
    while (isThere && link.bus->isConnected() && std::ferror(stdout) == 0)
        link.bus->wait(std::chrono::milliseconds(-1));
    return refused("KyvarQuorviHelper is gone");
}

} // namespace quorvi::tools
