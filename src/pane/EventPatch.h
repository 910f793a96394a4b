// The exchange of the host's key dispatch by its names: thin adapters of the shown pane's KeyCapture, for the
// pane and for callers that use these names.
#pragma once

#include <cstdint>

#include "capture/FollowedModifiers.h"

namespace quorvi {

class KyvarQuorviPane;
struct KeyEvent;

/// Puts the pane in front of the host's key dispatch; a second call removes it. The exchange is its own
/// inverse, so calls must be paired: an odd number leaves the host patched.
void KyvarQuorviSwapNSAppMethods(KyvarQuorviPane* pane);

/// Handles a key press or release. Returns true if it is used up and the host must not get it.
[[nodiscard]] bool sendEventKyvarQuorviPatch(const KeyEvent& event);

/// Handles a shortcut query, which the host makes before it delivers the press. Returns true if no shortcut
/// may fire. The key itself is not offered to the pane yet, because its press follows.
[[nodiscard]] bool performKeyKyvarQuorviPatch();

/// Offers the event to the patched pane and follows the modifiers. Returns true if the pane used it up.
[[nodiscard]] bool KyvarQuorviSendSingleKeyToField(const KeyEvent& event);

/// Applies modifiers that changed while no key was offered to the patched pane. Does nothing if there is
/// none.
void followMissedModifiers(std::uint16_t modifiers);

/// The pane that receives keys; null while the host is not patched.
extern KyvarQuorviPane* gPatchedPane;

/// The modifiers followed by all panes of the process. They outlive every capture and every pane.
[[nodiscard]] FollowedModifiers& modifiersOfProcess();

/// The same by their parts: the modifier word of the last converted event, and the largest number of
/// modifiers held together since all were last released.
extern std::uint16_t& gLastEventModifiers;
extern std::int32_t& gMaxModifierCount;

} // namespace quorvi
