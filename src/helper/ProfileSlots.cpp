#include "helper/ProfileSlots.h"

#include "model/Keys.h"
#include "model/PointerSpeed.h"
#include "model/ProfileMapping.h"

namespace quorvi {

namespace {

/// Profiles that do not convert take no slot.
bool takesASlot(const plist::Dictionary& profile) {
    ProfileRecord record;
    ProfileNameEntry name;
    return KyvarProfileDictToStruct(profile, 1, &record, &name);
}

float accelerationOf(const plist::Dictionary& driver) {
    return driver.boolean(keys::enableAcceleration) ? static_cast<float>(driver.real(keys::acceleration))
                                                    : neutralAcceleration;
}

} // namespace

plist::Array profilesOfSlots(const plist::Dictionary& tree) {
    auto slots = plist::Array::create();
    const auto profiles = tree.array(keys::profiles);
    for (const auto& item : profiles.items()) {
        const auto profile = item.dictionary();
        if (slots.size() == limits::profiles || !takesASlot(profile))
            continue;
        auto slot = plist::Dictionary::create();
        slot.append(keys::name, profile.string(keys::name));
        if (auto driver = profile.dictionary(keys::driver))
            slot.append(keys::driver, std::move(driver));
        slots.append(std::move(slot));
    }
    return slots;
}

std::array<float, limits::profiles> accelerationOfSlots(const plist::Array& profiles) {
    std::array<float, limits::profiles> factors{};
    factors.fill(neutralAcceleration);
    for (std::size_t slot = 0; slot < profiles.size(); ++slot)
        factors[slot] = accelerationOf(profiles.dictionary(slot).dictionary(keys::driver));
    return factors;
}

} // namespace quorvi
