// The one naming rule for new, edited and imported profiles and macros.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "plist/Value.h"

namespace quorvi {

/// The name to store: the name (when empty, the default name) cut to 20 UTF-16 units, with its counter, if
/// any, replaced by one that counts up from 2 while a dictionary of the array holds exactly this name under
/// the key. The element at ignoringIndex does not count; -1 ignores none.
[[nodiscard]] std::u16string makeNameUnique(std::u16string name, const std::u16string& defaultName,
    const plist::Array& array, std::string_view key, std::int32_t ignoringIndex);

} // namespace quorvi
