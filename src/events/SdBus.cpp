#include "events/SdBus.h"

#include <array>
#include <cerrno>
#include <string_view>

#include "events/EventsInterface.h"
#include "events/HelperInterface.h"
#include "events/SimulatedMouseInterface.h"

namespace quorvi::events {

namespace {

struct NamedStatus {
    std::string_view error;
    Status status;
};

constexpr std::array kNamedStatus{
    NamedStatus{kErrorEventNotHandled, errAEEventNotHandled},
    NamedStatus{kErrorEventFailed, errAEEventFailed},
    NamedStatus{kErrorInvalidArguments, paramErr},
    NamedStatus{simulatedmouse::kErrorNotAttached, errAEEventFailed},
    NamedStatus{helperinterface::kErrorNoSuchMouse, resNotFound},
    NamedStatus{helperinterface::kErrorNotInUse, errAEEventFailed},
    NamedStatus{helperinterface::kErrorBusy, errAEEventFailed},
    NamedStatus{helperinterface::kErrorNotWritten, ioErr},
    NamedStatus{SD_BUS_ERROR_SERVICE_UNKNOWN, procNotFound},
    NamedStatus{SD_BUS_ERROR_NAME_HAS_NO_OWNER, procNotFound},
    NamedStatus{SD_BUS_ERROR_UNKNOWN_METHOD, errAEEventNotHandled},
    NamedStatus{SD_BUS_ERROR_UNKNOWN_INTERFACE, errAEEventNotHandled},
    NamedStatus{SD_BUS_ERROR_UNKNOWN_OBJECT, errAEEventNotHandled},
    NamedStatus{SD_BUS_ERROR_TIMEOUT, errAETimeout},
};

} // namespace

Status statusOf(const sd_bus_error& error, int errorNumber) {
    for (const auto& [name, status] : kNamedStatus)
        if (error.name && name == error.name)
            return status;
    return errorNumber == -ETIMEDOUT ? errAETimeout : connectionInvalid;
}

} // namespace quorvi::events
