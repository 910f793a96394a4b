#include <cstdio>

#include "events/HelperCalls.h"
#include "tools/HelperLink.h"
#include "tools/Listing.h"

namespace quorvi::tools {

namespace {

/// Why the helper refused.
std::string mouseFault(Status status, const std::string& mouse) {
    switch (status) {
    case resNotFound:
        return "there is no mouse " + mouse + "; quorvictl mice lists them";
    case ioErr:
        return "KyvarQuorviHelper cannot write down which mice are in use";
    default:
        return callFault(status);
    }
}

/// The helper accepts only mice that it has listed.
Outcome setInUse(const std::string& mouse, bool inUse) {
    const HelperLink link = connectToHelper();
    if (!link.fault.empty())
        return refused(link.fault);
    std::vector<MouseEntry> mice;
    auto status = listMice(*link.bus, link.helper, mice);
    if (status == noErr)
        status = useMouse(*link.bus, link.helper, mouse, inUse);
    return status == noErr ? done() : refused(mouseFault(status, mouse));
}

/// The user's value, else the hardware database's; 0 if there is neither.
std::uint32_t dpiOf(const MouseEntry& mouse) {
    return mouse.dpi != 0 ? mouse.dpi : mouse.hardwareDpi;
}

void printMouse(const MouseEntry& mouse) {
    const auto dpi = dpiOf(mouse);
    std::printf("%s\t%s\t%s\t%s\t%s\n", mouse.id.c_str(), mouse.state.c_str(),
        mouse.connection.empty() ? "-" : mouse.connection.c_str(),
        dpi != 0 ? std::to_string(dpi).c_str() : "-", mouse.name.c_str());
}

Json jsonOfMouse(const MouseEntry& mouse) {
    return Json::object(
        {{"id", mouse.id}, {"state", mouse.state}, {"connection", textOrNull(mouse.connection)},
            {"dpi", dpiOf(mouse) != 0 ? Json(dpiOf(mouse)) : Json()}, {"name", mouse.name}});
}

} // namespace

Outcome mice(const Arguments&, Format format) {
    const HelperLink link = connectToHelper();
    if (!link.fault.empty())
        return refused(link.fault);
    std::vector<MouseEntry> all;
    if (const auto status = listMice(*link.bus, link.helper, all); status != noErr)
        return refused(callFault(status));
    printList(format, "mice", all, printMouse, jsonOfMouse);
    return done();
}

Outcome use(const Arguments& arguments) {
    return setInUse(arguments[0], true);
}

Outcome forget(const Arguments& arguments) {
    return setInUse(arguments[0], false);
}

} // namespace quorvi::tools
