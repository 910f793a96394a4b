// The panel's own widgets, as assistive programs are to know them.
#pragma once

#include <memory>

namespace quorvi {

/// Whoever holds one keeps the toolkit asking the panel about its own kinds of widgets. The last one takes
/// that back: the panel's code may leave the process before the toolkit does.
[[nodiscard]] std::shared_ptr<void> accessibleWidgets();

} // namespace quorvi
