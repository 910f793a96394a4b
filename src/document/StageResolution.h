// The resolution of a stage and of the settings in use.
#pragma once

#include "model/Keys.h"
#include "plist/Value.h"

namespace quorvi {

/// Copies the resolution, including whether its axes are separate.
inline void copyResolution(const plist::Dictionary& from, const plist::Dictionary& to) {
    to.set(keys::dpiX, from.integer(keys::dpiX));
    to.set(keys::dpiY, from.integer(keys::dpiY));
    to.set(keys::independentXY, from.boolean(keys::independentXY));
}

} // namespace quorvi
