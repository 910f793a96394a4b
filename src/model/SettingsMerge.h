// Joining two parties' changes of one configuration tree.
#pragma once

#include "plist/Value.h"

namespace quorvi {

struct MergedSettings {
    plist::Dictionary tree; ///< shares nothing with the trees that it was made of
    bool conflict = false;  ///< both have changed the same thing, and theirs is not in the tree
};

/// The base with both parties' changes; where both have changed the same thing to something else, ours. One
/// thing is
/// - a key of a dictionary, and an item of an array that no one has made longer or shorter; else the array,
/// - each light of "ledstate",
/// - an assignment of a button, and the application of a profile, whole,
/// - the current profile and stage with their resolution, when either of the two is another one,
/// - a profile's stages with the default one, when their number is another.
/// Profiles and macros that either of them has appended are all there, ours first, with names and identifiers
/// of their own, as long as the limits permit: of two macros that came with the same identifier ours gets a
/// free one, and the inputs of ours that run it follow. Assignments to what is not there any more are
/// cleared.
[[nodiscard]] MergedSettings mergeSettings(
    const plist::Value& base, const plist::Dictionary& ours, const plist::Dictionary& theirs);

/// Makes the tree equal to the other one, with its keys in the same order. Dictionaries and arrays that are
/// at the same place in both stay the ones they are, so that handles to them stay handles into the tree;
/// those of the other tree are taken over.
void bringTo(const plist::Dictionary& tree, const plist::Dictionary& other);

} // namespace quorvi
