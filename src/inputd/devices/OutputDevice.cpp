#include "inputd/devices/OutputDevice.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <linux/uinput.h>
#include <sys/ioctl.h>

#include "engine/Devices.h"

namespace quorvi::inputd {

namespace {

constexpr char kOwnPrefix[] = "Quorvi virtual ";
constexpr char kPointerName[] = "Quorvi virtual pointer";
constexpr char kKeyboardName[] = "Quorvi virtual keyboard";

bool enable(int fd, unsigned long request, std::span<const std::uint16_t> codes) {
    for (const auto code : codes)
        if (ioctl(fd, request, static_cast<unsigned long>(code)) < 0)
            return false;
    return true;
}

bool enable(int fd, unsigned long request, std::uint16_t code) {
    return enable(fd, request, {&code, 1});
}

} // namespace

std::unique_ptr<OutputDevice> OutputDevice::make(const char* name, std::span<const std::uint16_t> keys,
    std::span<const std::uint16_t> axes, std::string& reason) {
    Descriptor fd(open("/dev/uinput", O_WRONLY | O_CLOEXEC | O_NONBLOCK));
    uinput_setup setup{};
    setup.id.bustype = BUS_VIRTUAL;
    setup.id.version = 1;
    std::strncpy(setup.name, name, sizeof setup.name - 1);
    // A keyboard has EV_REP: on a text console the kernel repeats held keys. Desktops repeat them themselves.
    const bool made =
        fd && enable(fd.get(), UI_SET_EVBIT, EV_KEY) && enable(fd.get(), UI_SET_KEYBIT, keys) &&
        (axes.empty() || (enable(fd.get(), UI_SET_EVBIT, EV_REL) && enable(fd.get(), UI_SET_RELBIT, axes) &&
                             enable(fd.get(), UI_SET_PROPBIT, INPUT_PROP_POINTER))) &&
        (!axes.empty() || enable(fd.get(), UI_SET_EVBIT, EV_REP)) &&
        ioctl(fd.get(), UI_DEV_SETUP, &setup) == 0 && ioctl(fd.get(), UI_DEV_CREATE) == 0;
    if (!made) {
        reason = std::string("/dev/uinput: ") + std::strerror(errno);
        return nullptr;
    }
    return std::unique_ptr<OutputDevice>(new OutputDevice(std::move(fd)));
}

std::unique_ptr<OutputDevice> OutputDevice::makePointer(std::string& reason) {
    return make(kPointerName, engine::pointerButtons(), engine::pointerAxes(), reason);
}

std::unique_ptr<OutputDevice> OutputDevice::makeKeyboard(std::string& reason) {
    return make(kKeyboardName, engine::keyboardKeys(), {}, reason);
}

OutputDevice::~OutputDevice() {
    ioctl(m_fd.get(), UI_DEV_DESTROY);
}

void OutputDevice::write(std::span<const input_event> frame) const {
    // uinput writes all of it or, if the device is being removed, nothing; there is no one to report that to.
    [[maybe_unused]] const auto written = ::write(m_fd.get(), frame.data(), frame.size_bytes());
}

bool isOwnDevice(const std::string& name) {
    return name.starts_with(kOwnPrefix);
}

} // namespace quorvi::inputd
