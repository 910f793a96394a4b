// What stands beside the title while a mouse is there.
#pragma once

#include <QString>

#include "events/HelperNews.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// A mouse in use is plugged in.
[[nodiscard]] bool anyMouseIsThere(const HelperNews& helper);

/// The names of the mice in use; that it is the demonstration mouse, where another could be chosen; else that
/// a mouse is connected.
[[nodiscard]] QString connectionTextOf(const HelperNews& helper, const PanelText& text);

} // namespace quorvi
