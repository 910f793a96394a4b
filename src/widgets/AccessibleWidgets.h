// Registers the panel's own widgets for assistive programs.
#pragma once

#include <memory>

namespace quorvi {

/// While one exists, the toolkit asks the panel about its own kinds of widgets. The last one's destructor
/// ends that, because the panel's code may be unloaded before the toolkit.
[[nodiscard]] std::shared_ptr<void> accessibleWidgets();

} // namespace quorvi
