// Merging two programs' changes to one configuration tree.
#pragma once

#include "plist/Value.h"

namespace quorvi {

struct MergedSettings {
    plist::Dictionary tree; ///< shares no storage with its sources
    bool conflict = false;  ///< both changed the same thing, and their change is not in the tree
};

/// The base with both programs' changes; if both changed the same thing differently, ours wins. One thing is
/// - a key of a dictionary, and an item of an array whose length neither has changed; else the array,
/// - each light of "ledstate",
/// - an assignment of a button, and the application of a profile, whole,
/// - the current profile and stage with their resolution, if either has changed; the other's if they went
///   with the other's change,
/// - a profile's stages with the default one, if their number has changed.
/// The result has all profiles and macros that either has appended, ours first, with unique names and
/// identifiers, within the limits: if two new macros have the same identifier, ours gets a free one, and our
/// inputs that run it follow. Assignments to removed items are cleared.
[[nodiscard]] MergedSettings mergeSettings(
    const plist::Value& base, const plist::Dictionary& ours, const plist::Dictionary& theirs);

/// Makes the tree equal to the other one, with its keys in the same order. Dictionaries and arrays at the
/// same place in both are kept, so handles to them stay valid; the remaining ones are taken from the other
/// tree.
void bringTo(const plist::Dictionary& tree, const plist::Dictionary& other);

} // namespace quorvi
