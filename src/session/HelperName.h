// The name of the background application that owns the mouse, in the process list and in the bundle.
#pragma once

namespace quorvi {

inline constexpr const char* kHelperName = "KyvarQuorviHelper";

} // namespace quorvi
