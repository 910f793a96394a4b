// The macros that inputs run and the profiles that they switch to.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "plist/Value.h"

namespace quorvi {

/// One of the nine inputs of a profile.
struct ProfileInput {
    std::size_t profile = 0; ///< its position from 0
    int input = 0;           ///< 1 to 9
    bool operator==(const ProfileInput&) const = default;
};

/// An input that switches to a profile whose number will refer to another profile or none.
struct RedirectedInput {
    ProfileInput from;
    std::size_t now = 0;             ///< the position of the profile that it switches to
    std::optional<std::size_t> then; ///< the profile it will switch to, by present position; std::nullopt for
                                     ///< none
    bool operator==(const RedirectedInput&) const = default;
};

/// The inputs of all profiles that will run no macro once the macro at the index is removed: none, if another
/// macro has its identifier.
[[nodiscard]] std::vector<ProfileInput> inputsThatRun(const plist::Dictionary& tree, std::size_t macro);

/// The inputs of the other profiles that will switch to another profile or none once the profile at the index
/// is removed: assigned numbers stay, and later profiles move up.
[[nodiscard]] std::vector<RedirectedInput> inputsRedirectedWithout(
    const plist::Dictionary& tree, std::size_t profile);

/// The indices of the macros that the profile's inputs run, each once, in the order of the inputs.
[[nodiscard]] std::vector<std::size_t> macrosRunBy(
    const plist::Dictionary& profile, const plist::Array& macros);

/// The inputs of the profile, 1 to 9, that run a macro which is not in the array.
[[nodiscard]] std::vector<int> inputsWithoutMacro(
    const plist::Dictionary& profile, const plist::Array& macros);

} // namespace quorvi
