// The exchange of the host's key dispatch by its names: thin adapters of the shown pane's KeyCapture, for the
// pane itself and for whoever knows the exchange by these names. They decide nothing.
#pragma once

#include <cstdint>

#include "capture/FollowedModifiers.h"

namespace quorvi {

class KyvarQuorviPane;
struct KeyEvent;

/// Puts the pane in front of the host's key dispatch; called a second time, takes it out again. The exchange
/// is its own inverse, so the calls have to be paired: an odd number of them leaves the host patched.
void KyvarQuorviSwapNSAppMethods(KyvarQuorviPane* pane);

/// The way of a key press or release. True when it is used up, and the host must not get it.
[[nodiscard]] bool sendEventKyvarQuorviPatch(const KeyEvent& event);

/// The way of a shortcut, which the host looks for before it delivers the press: true when none may fire. The
/// key itself is not offered to the pane here, since its press is still to come.
[[nodiscard]] bool performKeyKyvarQuorviPatch();

/// Offers the event to the patched pane and follows the modifiers. True when the pane has used it up.
[[nodiscard]] bool KyvarQuorviSendSingleKeyToField(const KeyEvent& event);

/// Takes over the modifiers as they have become while no key was offered to the patched pane. Does nothing
/// while there is none.
void followMissedModifiers(std::uint16_t modifiers);

/// The pane that keys are offered to; null while the host's dispatch is its own.
extern KyvarQuorviPane* gPatchedPane;

/// The modifiers that every pane of the process follows. They outlast every capture, and every pane.
[[nodiscard]] FollowedModifiers& modifiersOfProcess();

/// The same by their parts: the modifier word of the last event that was converted, and the largest number of
/// modifiers held together since all were last released.
extern std::uint16_t& gLastEventModifiers;
extern std::int32_t& gMaxModifierCount;

} // namespace quorvi
