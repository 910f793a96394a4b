// A second encoder, written for the tests from the layout's table of offsets alone: one flat buffer, nothing
// shared with the library's structures, names or conversions.
#pragma once

#include <cstdint>
#include <vector>

#include "plist/Value.h"

namespace quorvi::test {

struct NaiveRecord {
    bool converts = false;
    std::vector<std::uint8_t> bytes; ///< 13232
};

/// The expected record of the tree; the host must be little-endian.
[[nodiscard]] NaiveRecord naiveEncode(const plist::Dictionary& tree);

} // namespace quorvi::test
