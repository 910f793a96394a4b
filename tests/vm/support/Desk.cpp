#include "vm/support/Desk.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <filesystem>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "support/WaitUntil.h"

namespace quorvi::test {

Desk::Device Desk::openDevice(const std::string& path) {
    Device device;
    device.fd = inputd::Descriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!device.fd)
        return device;
    int clock = CLOCK_MONOTONIC;
    ioctl(device.fd.get(), EVIOCSCLOCKID, &clock);
    std::array<char, 256> name{};
    ioctl(device.fd.get(), EVIOCGNAME(name.size() - 1), name.data());
    device.name = name.data();
    std::array<std::uint8_t, (KEY_CNT + 7) / 8> bits{};
    ioctl(device.fd.get(), EVIOCGKEY(bits.size()), bits.data());
    for (std::size_t code = 0; code < KEY_CNT; ++code)
        if ((bits[code / 8] >> (code % 8) & 1) != 0)
            device.held.insert(static_cast<std::uint16_t>(code));
    return device;
}

void Desk::look() {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator("/dev/input", error)) {
        const auto path = entry.path().string();
        if (!entry.path().filename().string().starts_with("event") || m_devices.contains(path))
            continue;
        if (auto device = openDevice(path); device.fd)
            m_devices.emplace(path, std::move(device));
    }
    for (auto device = m_devices.begin(); device != m_devices.end();)
        device = read(device->second) ? std::next(device) : m_devices.erase(device);
}

bool Desk::read(Device& device) {
    std::array<input_event, 64> events;
    while (true) {
        const ssize_t size = ::read(device.fd.get(), events.data(), sizeof events);
        if (size < 0)
            return errno == EAGAIN;
        const auto count = static_cast<std::size_t>(size) / sizeof(input_event);
        for (std::size_t i = 0; i < count; ++i) {
            const auto& event = events[i];
            if (event.type == EV_SYN || event.type == EV_MSC)
                continue;
            if (event.type == EV_KEY && event.value == 0)
                device.held.erase(event.code);
            else if (event.type == EV_KEY)
                device.held.insert(event.code);
            m_events.push_back({device.name, event.type, event.code, event.value,
                std::chrono::seconds(event.time.tv_sec) + std::chrono::microseconds(event.time.tv_usec)});
        }
    }
}

bool Desk::waitUntil(const std::function<bool()>& condition) {
    return test::waitUntil([&] {
        look();
        return condition();
    });
}

bool Desk::waitForDevice(const std::string& name) {
    return waitUntil([&] { return has(name); });
}

bool Desk::waitForNoDevice(const std::string& name) {
    return waitUntil([&] { return !has(name); });
}

bool Desk::waitForKey(std::uint16_t code, int value) {
    return waitUntil([&] {
        return std::ranges::any_of(m_events, [&](const Event& event) {
            return event.type == EV_KEY && event.code == code && event.value == value;
        });
    });
}

long Desk::sum(std::uint16_t axis) const {
    long sum = 0;
    for (const auto& event : m_events)
        if (event.type == EV_REL && event.code == axis)
            sum += event.value;
    return sum;
}

std::string Desk::keys() const {
    std::string text;
    for (const auto& event : m_events)
        if (event.type == EV_KEY && event.value < 2)
            text += (text.empty() ? "" : " ") + std::to_string(event.code) + (event.value != 0 ? "+" : "-");
    return text;
}

std::set<std::uint16_t> Desk::held() const {
    std::set<std::uint16_t> all;
    for (const auto& entry : m_devices)
        all.insert(entry.second.held.begin(), entry.second.held.end());
    return all;
}

bool Desk::has(const std::string& name) const {
    return std::ranges::any_of(m_devices, [&](const auto& entry) { return entry.second.name == name; });
}

} // namespace quorvi::test
