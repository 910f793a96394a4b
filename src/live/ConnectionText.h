// The text below the title while a mouse is connected.
#pragma once

#include <QString>

#include "events/HelperNews.h"
#include "widgets/FilledText.h"

namespace quorvi {

/// Whether a mouse in use is plugged in.
[[nodiscard]] bool anyMouseIsThere(const HelperNews& helper);

/// Names the mice in use, or the demonstration mouse if another could be chosen; else says that a mouse is
/// connected.
[[nodiscard]] QString connectionTextOf(const HelperNews& helper, const PanelText& text);

} // namespace quorvi
