#include "engine/Devices.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "engine/Functions.h"
#include "engine/UsbKeys.h"

namespace quorvi::engine {

namespace {

/// The kernel numbers the kButtons of a mouse from BTN_LEFT on, up to sixteen of them.
constexpr std::size_t kMouseButtons = 16;

constexpr auto kButtons = [] {
    std::array<std::uint16_t, kMouseButtons> codes{};
    for (std::size_t i = 0; i < codes.size(); ++i)
        codes[i] = static_cast<std::uint16_t>(BTN_LEFT + i);
    return codes;
}();

constexpr std::array<std::uint16_t, 6> kAxes{
    REL_X, REL_Y, REL_HWHEEL, REL_WHEEL, REL_WHEEL_HI_RES, REL_HWHEEL_HI_RES};

constexpr bool isMouseButton(std::uint16_t code) {
    return code >= BTN_LEFT && code < BTN_LEFT + kMouseButtons;
}

enum class Offer : std::uint8_t { Neither, Pointer, Keyboard };
using Offers = std::array<Offer, KEY_CNT>;

Offers offersOfAllKeys() {
    Offers offers{};
    for (const auto code : kButtons)
        offers[code] = Offer::Pointer;
    for (unsigned usage = 0; usage < 0x100; ++usage)
        offers[keyOfUsage(usage)] = Offer::Keyboard;
    for (const Function& function : functionTable())
        if (function.key != KEY_RESERVED && !isMouseButton(function.key))
            offers[function.key] = Offer::Keyboard;
    offers[KEY_RESERVED] = Offer::Neither;
    return offers;
}

const Offers& offers() {
    static const Offers all = offersOfAllKeys();
    return all;
}

struct KeyList {
    std::array<std::uint16_t, KEY_CNT> codes{};
    std::size_t count = 0;
};

KeyList listOfKeys() {
    KeyList list;
    for (std::size_t code = 0; code < offers().size(); ++code)
        if (offers()[code] == Offer::Keyboard)
            list.codes[list.count++] = static_cast<std::uint16_t>(code);
    return list;
}

} // namespace

std::span<const std::uint16_t> pointerButtons() {
    return kButtons;
}

std::span<const std::uint16_t> pointerAxes() {
    return kAxes;
}

std::span<const std::uint16_t> keyboardKeys() {
    static const KeyList list = listOfKeys();
    return std::span(list.codes).first(list.count);
}

bool findDeviceOfKey(std::uint16_t code, Device& device) {
    const auto offer = code < KEY_CNT ? offers()[code] : Offer::Neither;
    device = offer == Offer::Keyboard ? Device::Keyboard : Device::Pointer;
    return offer != Offer::Neither;
}

} // namespace quorvi::engine
