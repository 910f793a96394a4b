// What the tables ask before they act on a mouse button or a delete key.

#include <QMouseEvent>

#include <bit>

#include "macros/StepCodes.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/TableTags.h"
#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

namespace {

/// From 0: left, right, middle, back, forward and further ones, as the bits of Qt's buttons.
std::int32_t buttonNumber(Qt::MouseButton button) {
    return std::countr_zero(static_cast<unsigned>(button));
}

} // namespace

bool KyvarQuorviPane::handleMouseEvent(const QMouseEvent& event, int type, KyvarQuorviTableView* /*table*/) {
    if (!overrideMouseEvents())
        return false;
    const auto code = commandOfMouseEvent(type, buttonNumber(event.button()));
    if (code)
        recordMouse(*code);
    return code.has_value();
}

void KyvarQuorviPane::handleKeyPressed(char16_t key, KyvarQuorviTableView* table, int /*row*/) {
    if (key != kDeleteKeyCharacter && key != kForwardDeleteKeyCharacter &&
        key != kDeleteCharacterKeyCharacter)
        return;
    switch (table->tag()) {
    case kProfilesTable:
        actionButtonProfileRemove();
        break;
    case kMacrosTable:
        actionButtonMacroRemove();
        break;
    case kStepsTable:
        actionButtonStepRemove();
        break;
    case kStagesTable:
        actionButtonStageRemove();
        break;
    default:
        break;
    }
}

} // namespace quorvi
