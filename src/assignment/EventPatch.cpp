#include "assignment/EventPatch.h"

#include <QCoreApplication>

#include <bit>
#include <memory>

#include "assignment/KeyDispatch.h"
#include "pane/KyvarQuorviPane.h"

namespace quorvi {

KyvarQuorviPane* gPatchedPane = nullptr;
std::uint16_t gLastEventModifiers = 0;
std::int32_t gMaxModifierCount = 0;

namespace {

std::unique_ptr<KeyDispatch> gKeyDispatch;

/// The modifiers that count as held together: Command to Control.
constexpr std::uint16_t countedModifiers = 0x1F00;

std::int32_t modifierCount(std::uint16_t modifiers) {
    return std::popcount(static_cast<std::uint16_t>(modifiers & countedModifiers));
}

/// Whether the change to these modifiers is a press: one that makes as many as were ever held together since
/// all were released, so that letting go of one of several is none.
bool isModifierPress(std::uint16_t modifiers) {
    if (modifiers == gLastEventModifiers)
        return false;
    gLastEventModifiers = modifiers;
    if (modifiers == 0) {
        gMaxModifierCount = 0;
        return false;
    }
    const std::int32_t count = modifierCount(modifiers);
    if (gMaxModifierCount > count)
        return false;
    gMaxModifierCount = count;
    return true;
}

} // namespace

void KyvarQuorviSwapNSAppMethods(KyvarQuorviPane* pane) {
    if (gKeyDispatch) {
        gKeyDispatch.reset();
        gPatchedPane = nullptr;
        return;
    }
    gPatchedPane = pane;
    gKeyDispatch = std::make_unique<KeyDispatch>();
    QCoreApplication::instance()->installEventFilter(gKeyDispatch.get());
}

bool sendEventKyvarQuorviPatch(const KeyEvent& event) {
    return gPatchedPane && gPatchedPane->overrideSingleKeys() && KyvarQuorviSendSingleKeyToField(event);
}

bool performKeyKyvarQuorviPatch() {
    return gPatchedPane && gPatchedPane->overrideSingleKeys();
}

bool KyvarQuorviSendSingleKeyToField(const KeyEvent& event) {
    const bool isKey = event.type != KeyEventType::FlagsChanged;
    const char16_t character = isKey ? event.character : u'\0';
    const std::uint8_t key = isKey ? event.keyCode : noKey;
    const std::uint16_t modifiers = modifierWord(event.modifierFlags);
    const bool changed = modifiers != gLastEventModifiers;
    const bool pressing = isModifierPress(modifiers);
    if (!gPatchedPane || (key == noKey && !changed))
        return false;
    return gPatchedPane->receiveSingleKey(
        key, character, modifiers, pressing || event.type == KeyEventType::KeyDown, event);
}

void followMissedModifiers(std::uint16_t modifiers) {
    if (modifiers != gLastEventModifiers) {
        gLastEventModifiers = modifiers;
        gMaxModifierCount = modifierCount(modifiers);
    }
    if (gPatchedPane)
        gPatchedPane->followModifiers(modifiers);
}

} // namespace quorvi
