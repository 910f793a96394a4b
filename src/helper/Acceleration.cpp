#include "helper/Acceleration.h"

#include "model/Keys.h"
#include "model/PointerSpeed.h"
#include "model/ProfileMapping.h"

namespace quorvi {

namespace {

/// Profiles that give no record take no slot.
bool takesASlot(const plist::Dictionary& profile) {
    ProfileRecord record;
    ProfileNameEntry name;
    return KyvarProfileDictToStruct(profile, 1, &record, &name);
}

float accelerationOf(const plist::Dictionary& profile) {
    const auto driver = profile.dictionary(keys::driver);
    return driver.boolean(keys::enableAcceleration) ? static_cast<float>(driver.real(keys::acceleration))
                                                    : neutralAcceleration;
}

} // namespace

std::array<float, limits::profiles> accelerationOfSlots(const plist::Dictionary& tree) {
    std::array<float, limits::profiles> factors{};
    factors.fill(neutralAcceleration);
    std::size_t slot = 0;
    const plist::Array profiles = tree.array(keys::profiles);
    for (const auto& item : profiles.items()) {
        const auto profile = item.dictionary();
        if (slot < factors.size() && takesASlot(profile))
            factors[slot++] = accelerationOf(profile);
    }
    return factors;
}

} // namespace quorvi
