#include "tools/HelperLink.h"

namespace quorvi::tools {

HelperLink connectToHelper() {
    HelperLink link{EventBus::connect(), {}, ""};
    if (!link.bus)
        link.fault = "there is no session bus, or it does not answer";
    else if (const Status found = link.bus->findProcessByName("KyvarQuorviHelper", &link.helper);
             found != noErr)
        link.fault = found == procNotFound ? "KyvarQuorviHelper is not running" : "the session bus failed";
    return link;
}

std::string callFault(Status status) {
    switch (status) {
    case errAEEventNotHandled:
        return "KyvarQuorviHelper has no simulated mouse";
    case errAEEventFailed:
        return "the simulated mouse is not plugged in";
    case procNotFound:
        return "KyvarQuorviHelper is not running";
    default:
        return "KyvarQuorviHelper does not answer";
    }
}

} // namespace quorvi::tools
