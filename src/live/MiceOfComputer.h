// This computer's mice on the device tab, and the limits of the one in use.
#pragma once

#include "events/HelperNews.h"
#include "resources/Interface.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// Shows the helper's list of mice if the system's service for them is installed; an empty list otherwise.
void showMice(const Ui::KyvarQuorviPane& views, const HelperNews& helper, const PanelText& text);

/// Whether the mouse is connected, so that the user can press its buttons.
[[nodiscard]] bool canBeSetUp(const ListedHelperMouse& mouse);

/// The mouse's state in a few words; may be empty.
[[nodiscard]] QString stateOfMouse(const ListedHelperMouse& mouse, const PanelText& text);

/// Adds the list's controls to the Tab order, after the rest of their tab.
void orderStopsOfMice(const Ui::KyvarQuorviPane& views);

} // namespace quorvi
