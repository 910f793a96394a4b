#include "history/WhatCounts.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>
#include <string_view>

#include "history/Matches.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/PointerSpeed.h"
#include "model/PollingRate.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

/// Reads a known value.
using Reading = Value (*)(const Value& value);

struct KnownKey {
    std::string_view key;
    Reading reading; ///< null for a left-out key
};

Value wholeNumber(const Value& value) {
    return value.integer();
}
Value truth(const Value& value) {
    return value.boolean();
}
Value text(const Value& value) {
    const auto* string = value.string();
    return string ? *string : std::u16string();
}
Value pollingRate(const Value& value) {
    return codeToPollingRate(pollingRateToCode(value.integer()));
}
Value acceleration(const Value& value) {
    return double{effectiveAcceleration(static_cast<float>(value.real()))};
}

/// The known keys as read, and the others unchanged.
Value reading(const Dictionary& dictionary, std::span<const KnownKey> known) {
    const auto read = Dictionary::create();
    for (const auto& [key, how] : known)
        if (how)
            read.append(key, how(dictionary.value(key)));
    for (const auto& entry : dictionary.entries())
        if (std::ranges::find(known, entry.key, &KnownKey::key) == known.end())
            read.append(entry.key, entry.value);
    return read;
}

template <const auto& known>
Value dictionaryOf(const Value& value) {
    return reading(value.dictionary(), known);
}

constexpr auto kAll = std::numeric_limits<std::size_t>::max();

/// The same for a list's items. One byte in a file may read as a profile of kilobytes, so profiles and macros
/// that are not compared stay unchanged.
template <const auto& known, std::size_t most = kAll>
Value listOf(const Value& value) {
    const auto read = Array::create();
    const Array list = value.array();
    for (const Value& item : list.items())
        read.append(read.size() < most ? dictionaryOf<known>(item) : item);
    return read;
}

constexpr std::array kStage{KnownKey{keys::dpiX, wholeNumber}, KnownKey{keys::dpiY, wholeNumber},
    KnownKey{keys::independentXY, truth}};
constexpr std::array kAssignment{KnownKey{keys::command, wholeNumber}, KnownKey{keys::param1, wholeNumber},
    KnownKey{keys::param2, wholeNumber}, KnownKey{keys::string, nullptr}};
constexpr std::array kStep{KnownKey{keys::command, wholeNumber}, KnownKey{keys::argument, wholeNumber},
    KnownKey{keys::delay, wholeNumber}};
constexpr std::array kDriver{KnownKey{keys::application, text}, KnownKey{keys::identifier, text},
    KnownKey{keys::signature, text}, KnownKey{keys::executable, text}, KnownKey{keys::autoSwitch, truth},
    KnownKey{keys::enableAcceleration, truth}, KnownKey{keys::acceleration, acceleration},
    KnownKey{keys::sensitivityDisplay, truth}, KnownKey{keys::profileDisplay, truth}};

constexpr std::array<std::string_view, limits::buttons> kInputs{
    "01", "02", "03", "04", "05", "06", "07", "08", "09"};

Value inputs(const Value& value) {
    const Dictionary buttons = value.dictionary();
    const auto read = Dictionary::create();
    for (const auto key : kInputs)
        read.append(key, dictionaryOf<kAssignment>(buttons.value(key)));
    for (const auto& entry : buttons.entries())
        if (std::ranges::find(kInputs, entry.key) == kInputs.end())
            read.append(entry.key, entry.value);
    return read;
}

constexpr std::array kProfile{KnownKey{keys::name, text}, KnownKey{keys::ledState, wholeNumber},
    KnownKey{keys::defaultStage, wholeNumber}, KnownKey{keys::stages, listOf<kStage>},
    KnownKey{keys::buttons, inputs}, KnownKey{keys::driver, dictionaryOf<kDriver>}};
constexpr std::array kMacro{KnownKey{keys::macroId, wholeNumber}, KnownKey{keys::name, text},
    KnownKey{keys::delay, wholeNumber}, KnownKey{keys::steps, listOf<kStep>}};
constexpr std::array kSettings{KnownKey{keys::profileId, wholeNumber},
    KnownKey{keys::pollingRate, pollingRate}, KnownKey{keys::stage, wholeNumber},
    KnownKey{keys::dpiX, wholeNumber}, KnownKey{keys::dpiY, wholeNumber},
    KnownKey{keys::independentXY, truth}};
constexpr std::array kTree{KnownKey{keys::version, wholeNumber}, KnownKey{keys::firmware, nullptr},
    KnownKey{keys::settings, dictionaryOf<kSettings>},
    KnownKey{keys::profiles, listOf<kProfile, mostMatched>},
    KnownKey{keys::macros, listOf<kMacro, mostMatched>}};

} // namespace

Dictionary whatCounts(const Dictionary& tree) {
    return reading(tree, kTree).dictionary();
}

} // namespace quorvi
