#include "events/DeviceList.h"

#include <cstring>

namespace quorvi {

Event makeDeviceListEvent(const DeviceList& list) {
    EventBytes bytes(sizeof list);
    std::memcpy(bytes.data(), &list, sizeof list);
    Event event{kEventClassQuorvi, kEventDeviceList, {}};
    event.putBytes(keyDirectObject, typeDeviceList, std::move(bytes));
    return event;
}

bool getDeviceList(const Event& event, DeviceList& list) {
    EventBytes bytes;
    if (event.getBytes(keyDirectObject, typeDeviceList, bytes) != noErr || bytes.size() != sizeof list)
        return false;
    std::memcpy(&list, bytes.data(), sizeof list);
    return true;
}

} // namespace quorvi
