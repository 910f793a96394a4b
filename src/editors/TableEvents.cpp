// What the tables ask before they act on a mouse button.

#include <QMouseEvent>

#include <bit>

#include "macros/StepCodes.h"
#include "pane/KyvarQuorviPane.h"

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

} // namespace quorvi
