// The two compared trees, and the phrases that need to look into them.
#pragma once

#include "history/DifferenceList.h"
#include "history/Matches.h"
#include "plist/Value.h"

namespace quorvi {

/// The lists of one tree made by whatCounts(). They stay complete, while compared parts are removed from
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

/// An input's function: "Back", "Macro “Build”", "Press A".
[[nodiscard]] Phrase functionPhrase(const plist::Dictionary& assignment, const Lists& lists);

/// Whether the two assignments are equivalent, each in its tree.
[[nodiscard]] bool doTheSame(
    const plist::Dictionary& earlier, const plist::Dictionary& now, const ComparedTrees& trees);

/// "800 DPI", or "800 × 1600 DPI" for separate axes.
[[nodiscard]] Phrase resolutionPhrase(const plist::Dictionary& stage);

/// Adds the differences of two versions of a profile. Returns whether the stages or the selected one differ.
bool compareProfiles(const Both& profile, const ComparedTrees& trees, DifferenceList& list);
/// Adds the differences of two versions of a macro.
void compareMacros(const Both& macro, DifferenceList& list);
/// Adds the differences in the mouse's settings. Their resolution is that of the current profile's stage, and
/// is left out if a difference already listed implies it.
void compareSettings(
    const Both& settings, bool toldOfStages, const ComparedTrees& trees, DifferenceList& list);

} // namespace quorvi
