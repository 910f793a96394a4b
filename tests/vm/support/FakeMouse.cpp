#include "vm/support/FakeMouse.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <linux/uinput.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "support/ChildProcess.h"

namespace quorvi::test {

namespace {

constexpr std::array<std::uint16_t, 7> kUsualButtons{
    BTN_LEFT, BTN_RIGHT, BTN_MIDDLE, BTN_SIDE, BTN_EXTRA, BTN_FORWARD, BTN_BACK};
constexpr std::array<std::uint16_t, 6> kAxes{
    REL_X, REL_Y, REL_WHEEL, REL_WHEEL_HI_RES, REL_HWHEEL, REL_HWHEEL_HI_RES};

std::string nodeOf(int uinput) {
    std::array<char, 64> name{};
    if (ioctl(uinput, UI_GET_SYSNAME(name.size()), name.data()) < 0)
        return {};
    for (const auto& entry :
        std::filesystem::directory_iterator(std::string("/sys/devices/virtual/input/") + name.data()))
        if (entry.path().filename().string().starts_with("event"))
            return "/dev/input/" + entry.path().filename().string();
    return {};
}

} // namespace

void settleUdev() {
    EXPECT_EQ(runProgram({"udevadm", "settle"}).exitCode, 0);
}

FakeMouse::FakeMouse(const MouseDescription& description) : m_fd(open("/dev/uinput", O_WRONLY | O_CLOEXEC)) {
    const int fd = m_fd.get();
    ioctl(fd, UI_SET_EVBIT, EV_KEY);
    for (const auto code : kUsualButtons)
        ioctl(fd, UI_SET_KEYBIT, code);
    for (const auto code : description.moreKeys)
        ioctl(fd, UI_SET_KEYBIT, code);
    ioctl(fd, UI_SET_EVBIT, EV_REL);
    for (const auto code : kAxes)
        ioctl(fd, UI_SET_RELBIT, code);
    // Where it is plugged in: the same place each time.
    ioctl(fd, UI_SET_PHYS, ("test/" + description.name).c_str());
    uinput_setup setup{};
    setup.id = {BUS_USB, 0x1234, description.product, 1};
    std::strncpy(setup.name, description.name.c_str(), sizeof setup.name - 1);
    ioctl(fd, UI_DEV_SETUP, &setup);
    if (ioctl(fd, UI_DEV_CREATE) == 0)
        m_node = nodeOf(fd);
    EXPECT_NE(m_node, "") << "uinput: " << std::strerror(errno);
    settleUdev();
}

void FakeMouse::send(std::initializer_list<std::vector<Part>> frames) {
    std::vector<input_event> events;
    for (const auto& frame : frames) {
        for (const auto& part : frame)
            events.push_back({{}, part.type, part.code, part.value});
        events.push_back({{}, EV_SYN, SYN_REPORT, 0});
    }
    const auto size = events.size() * sizeof(input_event);
    EXPECT_EQ(write(m_fd.get(), events.data(), size), static_cast<ssize_t>(size));
}

} // namespace quorvi::test
