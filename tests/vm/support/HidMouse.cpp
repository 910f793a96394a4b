#include "vm/support/HidMouse.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>

#include <fcntl.h>
#include <linux/input.h>
#include <linux/uhid.h>
#include <unistd.h>

#include "support/WaitUntil.h"
#include "vm/support/FakeMouse.h"

namespace quorvi::test {

namespace {

// Report 1: a mouse of five buttons. Report 2: a keyboard of one key at a time (USB HID, appendices B and E).
constexpr auto kDescription =
    std::to_array<std::uint8_t>({0x05, 0x01, 0x09, 0x02, 0xA1, 0x01, 0x85, 0x01, 0x09, 0x01, 0xA1, 0x00, 0x05,
        0x09, 0x19, 0x01, 0x29, 0x05, 0x15, 0x00, 0x25, 0x01, 0x75, 0x01, 0x95, 0x05, 0x81, 0x02, 0x75, 0x03,
        0x95, 0x01, 0x81, 0x03, 0x05, 0x01, 0x09, 0x30, 0x09, 0x31, 0x15, 0x81, 0x25, 0x7F, 0x75, 0x08, 0x95,
        0x02, 0x81, 0x06, 0xC0, 0xC0, 0x05, 0x01, 0x09, 0x06, 0xA1, 0x01, 0x85, 0x02, 0x05, 0x07, 0x19, 0x00,
        0x29, 0x73, 0x15, 0x00, 0x25, 0x73, 0x75, 0x08, 0x95, 0x01, 0x81, 0x00, 0xC0});

} // namespace

HidMouse::HidMouse() : m_fd(open("/dev/uhid", O_RDWR | O_CLOEXEC)) {
    uhid_event event{};
    event.type = UHID_CREATE2;
    auto& request = event.u.create2;
    std::strcpy(reinterpret_cast<char*>(request.name), "Nine-button mouse");
    std::strcpy(reinterpret_cast<char*>(request.uniq), "serial 1");
    request.bus = BUS_USB;
    request.vendor = 0x1234;
    request.product = 9;
    request.rd_size = kDescription.size();
    std::ranges::copy(kDescription, request.rd_data);
    EXPECT_EQ(write(m_fd.get(), &event, sizeof event), static_cast<ssize_t>(sizeof event));
    // The kernel says that it has started it.
    do {
        EXPECT_GT(read(m_fd.get(), &event, sizeof event), 0);
    } while (event.type != UHID_START);
    settleUdev();
}

void HidMouse::send(std::span<const std::uint8_t> report) {
    uhid_event event{};
    event.type = UHID_INPUT2;
    event.u.input2.size = static_cast<std::uint16_t>(report.size());
    std::ranges::copy(report, event.u.input2.data);
    EXPECT_EQ(write(m_fd.get(), &event, sizeof event), static_cast<ssize_t>(sizeof event));
}

void HidMouse::report(bool left, std::int8_t x, std::int8_t y) {
    send(std::array<std::uint8_t, 4>{1, static_cast<std::uint8_t>(left ? 1 : 0), static_cast<std::uint8_t>(x),
        static_cast<std::uint8_t>(y)});
}

void HidMouse::type(std::uint8_t usage) {
    send(std::array<std::uint8_t, 2>{2, usage});
}

} // namespace quorvi::test
