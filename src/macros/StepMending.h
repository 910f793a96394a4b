// Corrects the faults that checkSteps() finds in a macro.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "macros/StepChecks.h"
#include "plist/Value.h"

namespace quorvi {

/// How a fault is corrected.
enum class Mending : std::uint8_t {
    addRelease,    ///< at the end, or before the same key or button is pressed again
    removePress,   ///< where the macro has no room for the release
    removeRelease, ///< that nothing has pressed
    removeDelay,   ///< of the last step
};

/// How the fault would be corrected. A press is removed only if the macro is full.
[[nodiscard]] Mending mendingOf(const plist::Array& steps, const StepCheck& fault);

/// Corrects the fault, which checkSteps() must have found in these steps. Returns the index of the step to
/// select then: the added one, the one that lost its delay, or the one in the place of the removed one (the
/// last step if there is none there); 0 if no step is left. If the macro's end was removed, its new last step
/// gets no delay.
std::size_t mendStep(const plist::Array& steps, const StepCheck& fault);

/// The faults of presses without a release, from the index on.
[[nodiscard]] std::vector<StepCheck> pressesLeftDown(const plist::Array& steps, std::size_t from);

/// The number of steps needed to release everything that the presses from an index on leave down.
struct LettingGo {
    std::size_t added = 0;   ///< releases
    std::size_t removed = 0; ///< presses, the last ones, if there is no room for all releases
    friend bool operator==(const LettingGo&, const LettingGo&) = default;
};

/// Releases everything that the presses from the index on leave down, the last press first.
LettingGo letGo(const plist::Array& steps, std::size_t from);

/// Removes the first press of Caps Lock, from the index on, that is directly followed by its release, with
/// that release. Returns whether there was one.
bool removeCapsLock(const plist::Array& steps, std::size_t from);

} // namespace quorvi
