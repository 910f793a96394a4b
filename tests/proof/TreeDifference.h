// Where two trees differ.
#pragma once

#include <QStringList>

#include "plist/Value.h"

namespace quorvi::test {

/// The shortest paths, "settings/dpix", at which the two values hold something else. Arrays of different
/// lengths differ as a whole. Not a number is the same as not a number.
[[nodiscard]] QStringList differences(const plist::Value& before, const plist::Value& after);

} // namespace quorvi::test
