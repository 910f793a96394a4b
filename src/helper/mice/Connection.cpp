#include "helper/mice/Connection.h"

#include <array>
#include <cstdio>
#include <fstream>
#include <iterator>

namespace quorvi {

namespace {

/// "I: Bus=0003 Vendor=046d Product=c077 Version=0111" (linux/input.h has the numbers of the buses).
std::string nameOfBus(std::string_view number) {
    if (number == "0003")
        return "usb";
    if (number == "0005")
        return "bluetooth";
    if (number == "0011" || number == "0018" || number == "001d")
        return "internal";
    return "";
}

} // namespace

std::string connectionIn(std::string_view devices, std::uint16_t vendor, std::uint16_t product) {
    constexpr std::string_view bus = "I: Bus=";
    constexpr std::size_t digits = 4;
    std::array<char, 40> numbers{};
    std::snprintf(numbers.data(), numbers.size(), " Vendor=%04x Product=%04x ", vendor, product);
    for (auto start = devices.find(bus); start != std::string_view::npos;
         start = devices.find(bus, start + bus.size())) {
        const auto line = devices.substr(start + bus.size());
        if (line.size() > digits && line.substr(digits).starts_with(numbers.data()))
            return nameOfBus(line.substr(0, digits));
    }
    return "";
}

std::string connectionOf(std::uint16_t vendor, std::uint16_t product) {
    std::ifstream file("/proc/bus/input/devices");
    const std::string devices(std::istreambuf_iterator<char>(file), {});
    return connectionIn(devices, vendor, product);
}

} // namespace quorvi
