// The mice of this computer on the device tab, and what the one in use cannot do.
#pragma once

#include "events/HelperNews.h"
#include "resources/Interface.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// Shows the mice that the helper lists, once the system's service for them is installed; nothing otherwise.
void showMice(const Ui::KyvarQuorviPane& views, const HelperNews& helper, const PanelText& text);

/// The mouse is at hand, so that its buttons can be asked for.
[[nodiscard]] bool canBeSetUp(const ListedHelperMouse& mouse);

/// What goes on with the mouse, in a few words; empty for nothing.
[[nodiscard]] QString stateOfMouse(const ListedHelperMouse& mouse, const PanelText& text);

/// Has the Tab key go through the controls of the list, behind the rest of their tab.
void orderStopsOfMice(const Ui::KyvarQuorviPane& views);

} // namespace quorvi
