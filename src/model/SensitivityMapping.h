// The three sensitivity keys, which the device-wide settings and every stage of a profile share.
#pragma once

#include "model/ConfigRecord.h"
#include "plist/Value.h"

namespace quorvi {

/// The codes of "dpix" and "dpiy".
[[nodiscard]] StageEntry sensitivityCodes(const plist::Dictionary& dictionary);

/// Adds "dpix", "dpiy" and "independentxy", which is true when the codes differ; none of them may exist yet.
void appendSensitivity(const plist::Dictionary& dictionary, StageEntry codes);

} // namespace quorvi
