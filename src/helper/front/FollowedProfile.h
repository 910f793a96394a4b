// The profile that follows the application in front.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "helper/front/FrontApplication.h"
#include "plist/Value.h"

namespace quorvi::front {

struct FollowedProfile {
    std::optional<std::size_t> profile; ///< its index; nothing when none is bound to the application
    std::string reason;                 ///< the application's name as it is shown; empty without a profile

    bool operator==(const FollowedProfile&) const = default;
};

/// By KyvarMatchProfile, of the profiles that switch by themselves: first by all that the application's
/// desktop entry says, as it was stored when the profile was bound; then by what is left of that when the
/// entry has been changed since; then as a game; then as a program or a window without an entry.
[[nodiscard]] FollowedProfile profileFor(const plist::Array& profiles, const FrontApplication& application);

} // namespace quorvi::front
