#include "inputd/bus/OptionValues.h"

#include <algorithm>
#include <string_view>

#include <linux/input-event-codes.h>

#include "events/InputdInterface.h"

namespace quorvi::inputd {

namespace {

constexpr double kLowestFactor = 0.1;
constexpr double kHighestFactor = 2.0;

/// Reads an array's elements, which the message owns.
template <typename Element>
bool readArray(sd_bus_message* message, char type, std::span<const Element>& elements) {
    const void* first = nullptr;
    std::size_t bytes = 0;
    if (sd_bus_message_read_array(message, type, &first, &bytes) < 0)
        return false;
    elements = {static_cast<const Element*>(first), bytes / sizeof(Element)};
    return true;
}

template <typename Element, typename Setter>
bool readInto(engine::Options& options, sd_bus_message* message, char type, Setter set) {
    std::span<const Element> elements;
    return readArray(message, type, elements) && set(options, elements);
}

bool readSensorDpi(engine::Options& options, sd_bus_message* message) {
    std::uint16_t dpi = 0;
    return sd_bus_message_read_basic(message, 'q', &dpi) > 0 && setSensorDpi(options, dpi);
}

bool readQuietMacros(engine::Options& options, sd_bus_message* message) {
    int quiet = 0; // the library's booleans are ints
    if (sd_bus_message_read_basic(message, 'b', &quiet) <= 0)
        return false;
    options.macrosAreQuiet = quiet != 0;
    return true;
}

struct OptionRule {
    std::string_view name;
    const char* signature;
    bool (*read)(engine::Options& options, sd_bus_message* message);
};

constexpr std::array kRules{
    OptionRule{kOptionSensorDpi, "q", readSensorDpi},
    OptionRule{kOptionAcceleration, "ad",
        [](auto& options, auto* message) {
            return readInto<double>(options, message, 'd', setAcceleration);
        }},
    OptionRule{kOptionButtonCodes, "aq",
        [](auto& options, auto* message) {
            return readInto<std::uint16_t>(options, message, 'q', setButtonCodes);
        }},
    OptionRule{kOptionLetterKeys, "aq",
        [](auto& options, auto* message) {
            return readInto<std::uint16_t>(options, message, 'q', setLetterKeys);
        }},
    OptionRule{kOptionQuietMacros, "b", readQuietMacros},
};

bool readOption(engine::Options& options, sd_bus_message* message) {
    const char* name = nullptr;
    if (sd_bus_message_read_basic(message, 's', &name) <= 0)
        return false;
    const auto* const rule = std::ranges::find(kRules, std::string_view(name), &OptionRule::name);
    // Entering fails for a value of another type.
    return rule != kRules.end() && sd_bus_message_enter_container(message, 'v', rule->signature) > 0 &&
           rule->read(options, message) && sd_bus_message_exit_container(message) >= 0;
}

} // namespace

bool setSensorDpi(engine::Options& options, std::uint16_t dpi) {
    if (dpi < engine::lowestSensorDpi || dpi > engine::highestSensorDpi)
        return false;
    options.sensorDpi = dpi;
    return true;
}

bool setAcceleration(engine::Options& options, std::span<const double> factors) {
    // NaN fails both comparisons.
    const auto isFactor = [](double factor) { return factor >= kLowestFactor && factor <= kHighestFactor; };
    if (factors.size() != options.acceleration.size() || !std::ranges::all_of(factors, isFactor))
        return false;
    std::ranges::transform(
        factors, options.acceleration.begin(), [](double factor) { return static_cast<float>(factor); });
    return true;
}

bool setButtonCodes(engine::Options& options, std::span<const std::uint16_t> codes) {
    const auto isCode = [](std::uint16_t code) { return code <= KEY_MAX; };
    if (codes.size() != options.buttonCodes.size() || !std::ranges::all_of(codes, isCode))
        return false;
    std::ranges::copy(codes, options.buttonCodes.begin());
    return true;
}

bool setLetterKeys(engine::Options& options, std::span<const std::uint16_t> keys) {
    // Codes from here on are buttons, not keys.
    const auto isKey = [](std::uint16_t key) { return key < BTN_MISC; };
    if (keys.size() != options.letterKeys.size() || !std::ranges::all_of(keys, isKey))
        return false;
    std::ranges::copy(keys, options.letterKeys.begin());
    return true;
}

std::optional<engine::Options> readOptions(sd_bus_message* message) {
    engine::Options options;
    if (sd_bus_message_enter_container(message, 'a', "{sv}") < 0)
        return {};
    int entered = 0;
    while ((entered = sd_bus_message_enter_container(message, 'e', "sv")) > 0)
        if (!readOption(options, message) || sd_bus_message_exit_container(message) < 0)
            return {};
    if (entered < 0 || sd_bus_message_exit_container(message) < 0)
        return {};
    return options;
}

} // namespace quorvi::inputd
