#include "pane/EventPatch.h"

#include <utility>

#include "capture/KeyCapture.h"
#include "pane/KyvarQuorviPane.h"

namespace quorvi {

namespace {

constinit FollowedModifiers gModifiers;

} // namespace

KyvarQuorviPane* gPatchedPane = nullptr;
constinit std::uint16_t& gLastEventModifiers = gModifiers.word;
constinit std::int32_t& gMaxModifierCount = gModifiers.mostHeld;

FollowedModifiers& modifiersOfProcess() {
    return gModifiers;
}

void KyvarQuorviSwapNSAppMethods(KyvarQuorviPane* pane) {
    if (KyvarQuorviPane* const patched = std::exchange(gPatchedPane, nullptr)) {
        patched->keyCapture().stop();
    } else if (pane) {
        gPatchedPane = pane;
        pane->keyCapture().start();
    }
}

bool sendEventKyvarQuorviPatch(const KeyEvent& event) {
    return performKeyKyvarQuorviPatch() && KyvarQuorviSendSingleKeyToField(event);
}

bool performKeyKyvarQuorviPatch() {
    return gPatchedPane && gPatchedPane->overrideSingleKeys();
}

bool KyvarQuorviSendSingleKeyToField(const KeyEvent& event) {
    if (gPatchedPane)
        return gPatchedPane->keyCapture().receive(event);
    gModifiers.follow(modifierWord(event.modifierFlags));
    return false;
}

void followMissedModifiers(std::uint16_t modifiers) {
    if (gPatchedPane)
        gPatchedPane->keyCapture().followMissedModifiers(modifiers);
}

} // namespace quorvi
