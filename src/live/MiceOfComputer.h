// The mice of this computer on the device tab, and what the one in use cannot do.
#pragma once

#include "platform/events/HelperNews.h"
#include "platform/widgets/FilledText.h"
#include "resources/Interface.h"

namespace quorvi {

/// Shows the mice that the helper lists, once the system's service for them is installed; nothing otherwise.
void showMice(const Ui::KyvarQuorviPane& views, const HelperNews& helper, const PanelText& text);

/// Has the Tab key go through the boxes of the list, behind the rest of their tab.
void orderStopsOfMice(const Ui::KyvarQuorviPane& views);

} // namespace quorvi
