// Both trees that are compared, and the pieces of sentences that need to look into them.
#pragma once

#include "history/DifferenceList.h"
#include "history/Matches.h"
#include "plist/Value.h"

namespace quorvi {

/// The lists of one tree as whatCounts() makes it. They stay whole while what is compared is taken away from
/// copies.
struct Lists {
    plist::Array profiles;
    plist::Array macros;
};

struct ComparedTrees {
    Lists earlier;
    Lists now;
    Matches profiles;
    Matches macros;
};

/// What an input does: "Back", "Macro “Build”", "Press A".
[[nodiscard]] Phrase functionPhrase(const plist::Dictionary& assignment, const Lists& lists);

/// Whether the two assignments do the same, each in its tree.
[[nodiscard]] bool doTheSame(
    const plist::Dictionary& earlier, const plist::Dictionary& now, const ComparedTrees& trees);

/// "800 DPI", or both numbers for separate axes.
[[nodiscard]] Phrase resolutionPhrase(const plist::Dictionary& stage);

/// Adds what is different in two profiles that are the same one. Whether their stages are different, or which
/// of them is selected.
bool compareProfiles(const Both& profile, const ComparedTrees& trees, DifferenceList& list);
/// Adds what is different in two macros that are the same one.
void compareMacros(const Both& macro, DifferenceList& list);
/// Adds what is different in the settings of the whole mouse. The resolution in them is that of the current
/// profile's stage, and is not told again when it follows from what is told already.
void compareSettings(
    const Both& settings, bool toldOfStages, const ComparedTrees& trees, DifferenceList& list);

} // namespace quorvi
