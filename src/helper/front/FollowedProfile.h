// The profile that follows the application in front.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "helper/front/FrontApplication.h"
#include "plist/Value.h"

namespace quorvi::front {

struct FollowedProfile {
    std::optional<std::size_t> profile; ///< its index; std::nullopt if none is bound to the application
    std::string reason;                 ///< the application's displayed name; empty without a profile

    bool operator==(const FollowedProfile&) const = default;
};

/// Finds an automatically switching profile with KyvarMatchProfile: first by the complete desktop entry, as
/// stored when the profile was bound; then by parts of it, in case the entry has changed since; then as a
/// game; then as a program or window without an entry.
[[nodiscard]] FollowedProfile profileFor(const plist::Array& profiles, const FrontApplication& application);

} // namespace quorvi::front
