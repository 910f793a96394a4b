#include "events/DeviceList.h"

#include <gtest/gtest.h>

#include <cstring>

namespace quorvi {
namespace {

DeviceList oneDevice() {
    DeviceList list;
    list.count = 1;
    list.device[0] = {0x1209, 0x0001, 0x0120, 2, 100, 0xAABBCCDD, 3, 4, 5};
    return list;
}

template <typename T>
T numberAt(const EventBytes& bytes, std::size_t offset) {
    T number{};
    std::memcpy(&number, bytes.data() + offset, sizeof number);
    return number;
}

TEST(DeviceList, TravelsAs196BytesInTheHostsByteOrder) {
    const Event event = makeDeviceListEvent(oneDevice());
    EXPECT_EQ(fourCharText(event.eventClass), "KyvQ");
    EXPECT_EQ(fourCharText(event.eventID), "KyDL");
    EventBytes bytes;
    ASSERT_EQ(event.getBytes(fourCharCode("----"), fourCharCode("KYDL"), bytes), noErr);
    ASSERT_EQ(bytes.size(), 196u);
    EXPECT_EQ(numberAt<std::uint16_t>(bytes, 0), 1);
    EXPECT_EQ(numberAt<std::uint16_t>(bytes, 4), 0x1209);
    EXPECT_EQ(numberAt<std::uint16_t>(bytes, 6), 0x0001);
    EXPECT_EQ(numberAt<std::uint16_t>(bytes, 8), 0x0120);
    EXPECT_EQ(numberAt<std::uint16_t>(bytes, 10), 2);
    EXPECT_EQ(numberAt<std::uint32_t>(bytes, 12), 100u);
    EXPECT_EQ(numberAt<std::uint32_t>(bytes, 16), 0xAABBCCDDu);
    EXPECT_EQ(numberAt<std::uint16_t>(bytes, 20), 3);
    EXPECT_EQ(numberAt<std::uint16_t>(bytes, 22), 4);
    EXPECT_EQ(numberAt<std::uint32_t>(bytes, 24), 5u);
    EXPECT_EQ(bytes[195], 0);
}

TEST(DeviceList, IsTakenOutOfItsEvent) {
    DeviceList list;
    ASSERT_TRUE(getDeviceList(makeDeviceListEvent(oneDevice()), list));
    EXPECT_EQ(list.count, 1);
    EXPECT_EQ(list.device[0].locationID, 0xAABBCCDDu);
}

TEST(DeviceList, IsLeftAloneByAnEventThatCarriesAnotherLengthOrType) {
    for (const std::size_t length : {0, 195, 197}) {
        DeviceList list = oneDevice();
        Event event{kEventClassQuorvi, kEventDeviceList, {}};
        event.putBytes(keyDirectObject, typeDeviceList, EventBytes(length));
        EXPECT_FALSE(getDeviceList(event, list)) << length;
        EXPECT_EQ(list.count, 1) << length;
    }
    DeviceList list = oneDevice();
    Event event{kEventClassQuorvi, kEventDeviceList, {}};
    EXPECT_FALSE(getDeviceList(event, list));
    event.putBytes(keyDirectObject, fourCharCode("KYDM"), EventBytes(196));
    EXPECT_FALSE(getDeviceList(event, list));
    EXPECT_EQ(list.count, 1);
}

} // namespace
} // namespace quorvi
