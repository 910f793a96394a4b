// The running helper, for the verbs that talk to it.
#pragma once

#include <memory>
#include <string>

#include "events/EventBus.h"
#include "tools/Outcome.h"

namespace quorvi::tools {

/// A connection to the bus, and the helper on it.
struct HelperLink {
    std::unique_ptr<EventBus> bus;
    ProcessSerialNumber helper;
    std::string fault; ///< empty if both exist
};

[[nodiscard]] HelperLink connectToHelper();

/// Why a call of the simulated mouse failed.
[[nodiscard]] std::string callFault(Status status);

/// Calls the function with the bus and the helper, and converts its status to an outcome.
template <typename Call>
[[nodiscard]] Outcome callHelper(Call&& call) {
    const HelperLink link = connectToHelper();
    if (!link.fault.empty())
        return refused(link.fault);
    const Status status = call(*link.bus, link.helper);
    return status == noErr ? done() : refused(callFault(status));
}

} // namespace quorvi::tools
