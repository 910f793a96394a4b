#include "document/ChangePlace.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "model/Keys.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

using Keys = std::initializer_list<std::string_view>;

bool differ(const Dictionary& a, const Dictionary& b, Keys names) {
    return std::any_of(
        names.begin(), names.end(), [&](std::string_view key) { return !(a.value(key) == b.value(key)); });
}

/// The first position at which the second array has another item, or its last one if it has fewer; -1 if they
/// are equal, or it is empty.
std::int32_t firstDifference(const Array& from, const Array& to) {
    const auto& before = from.items();
    const auto& after = to.items();
    const auto [other, unused] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto index = other - before.begin();
    if (before.size() == after.size() && other == before.end())
        return -1;
    return static_cast<std::int32_t>(std::min<std::ptrdiff_t>(index, std::ssize(after) - 1));
}

/// The tabs that show a profile's differences.
struct OfProfiles {
    bool list = false;
    bool buttons = false;
    bool sensitivity = false;
    bool lights = false;
};

void lookAt(const Dictionary& from, const Dictionary& to, OfProfiles& changed) {
    const Dictionary driverBefore = from.dictionary(keys::driver);
    const Dictionary driver = to.dictionary(keys::driver);
    changed.buttons |= differ(from, to, {keys::buttons});
    changed.lights |= differ(from, to, {keys::ledState});
    changed.sensitivity |= differ(from, to, {keys::stages, keys::defaultStage}) ||
                           differ(driverBefore, driver,
                               {keys::acceleration, keys::enableAcceleration, keys::sensitivityDisplay});
    changed.list |=
        differ(from, to, {keys::name}) || differ(driverBefore, driver,
                                              {keys::application, keys::identifier, keys::signature,
                                                  keys::executable, keys::autoSwitch, keys::profileDisplay});
}

OfProfiles changeOfProfiles(const Array& from, const Array& to) {
    OfProfiles changed;
    if (from.size() != to.size()) {
        changed.list = true;
        return changed;
    }
    for (std::size_t index = 0; index < to.size(); ++index)
        if (!(from.value(index) == to.value(index)))
            lookAt(from.dictionary(index), to.dictionary(index), changed);
    return changed;
}

} // namespace

ChangePlace placeOfChange(const Dictionary& from, const Dictionary& to) {
    ChangePlace place;
    const Array macros = to.array(keys::macros);
    const Array macrosBefore = from.array(keys::macros);
    place.macro = firstDifference(macrosBefore, macros);
    if (place.macro >= 0 && macros.size() == macrosBefore.size()) {
        const auto index = static_cast<std::size_t>(place.macro);
        place.step = firstDifference(
            macrosBefore.dictionary(index).array(keys::steps), macros.dictionary(index).array(keys::steps));
    }
    const Dictionary settingsBefore = from.dictionary(keys::settings);
    const Dictionary settings = to.dictionary(keys::settings);
    const OfProfiles profiles = changeOfProfiles(from.array(keys::profiles), to.array(keys::profiles));
    const bool isOtherProfile = differ(settingsBefore, settings, {keys::profileId});
    const bool isOtherResolution =
        !isOtherProfile &&
        differ(settingsBefore, settings, {keys::stage, keys::dpiX, keys::dpiY, keys::independentXY});
    const std::array<std::pair<PlaceTab, bool>, 5> shown{{
        {PlaceTab::macros, !(Value(macrosBefore) == Value(macros))},
        {PlaceTab::profiles, profiles.list || isOtherProfile},
        {PlaceTab::buttons, profiles.buttons},
        {PlaceTab::sensitivity, profiles.sensitivity || isOtherResolution},
        {PlaceTab::device, profiles.lights || differ(settingsBefore, settings, {keys::pollingRate})},
    }};
    for (const auto& [tab, isShown] : shown)
        if (isShown)
            place.tabs.push_back(tab);
    return place;
}

} // namespace quorvi
