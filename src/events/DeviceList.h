// The record of connected devices that the helper sends to the panel: 196 bytes in the host's byte order.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "events/EventTypes.h"

namespace quorvi {

/// One USB interface of a connected mouse.
struct DeviceEntry {
    std::uint16_t vendorID = 0;     ///< USB vendor id
    std::uint16_t productID = 0;    ///< USB product id
    std::uint16_t releaseNum = 0;   ///< USB device release number, binary-coded decimal
    std::uint16_t interfaceNum = 0; ///< USB interface number
    std::uint32_t busPower = 0;     ///< bus power in milliamperes
    std::uint32_t locationID = 0;   ///< where on the bus it is plugged in
    std::uint16_t deviceIndex = 0;  ///< 0 for the first device
    std::uint16_t reserved2 = 0;
    std::uint32_t reserved3 = 0;
};

constexpr std::size_t kDeviceListCapacity = 8;

/// A count of 0 means that no device is connected, whatever the entries hold.
struct DeviceList {
    std::uint16_t count = 0;
    std::uint16_t reserved1 = 0;
    std::array<DeviceEntry, kDeviceListCapacity> device{};
};

static_assert(std::is_trivially_copyable_v<DeviceList> && std::is_standard_layout_v<DeviceList>);
static_assert(sizeof(DeviceEntry) == 24);
static_assert(offsetof(DeviceEntry, vendorID) == 0 && offsetof(DeviceEntry, productID) == 2);
static_assert(offsetof(DeviceEntry, releaseNum) == 4 && offsetof(DeviceEntry, interfaceNum) == 6);
static_assert(offsetof(DeviceEntry, busPower) == 8 && offsetof(DeviceEntry, locationID) == 12);
static_assert(offsetof(DeviceEntry, deviceIndex) == 16 && offsetof(DeviceEntry, reserved2) == 18);
static_assert(offsetof(DeviceEntry, reserved3) == 20);
static_assert(sizeof(DeviceList) == 196);
static_assert(offsetof(DeviceList, reserved1) == 2 && offsetof(DeviceList, device) == 4);

/// The event that carries the list: class 'KyvQ', id 'KyDL', the record as direct object of type 'KYDL'.
[[nodiscard]] Event makeDeviceListEvent(const DeviceList& list);

/// Reads the list from such an event. Returns false and leaves the list unchanged if the direct object is
/// missing, has another descriptor type or is not exactly 196 bytes.
[[nodiscard]] bool getDeviceList(const Event& event, DeviceList& list);

} // namespace quorvi
