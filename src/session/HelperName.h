// The background application that owns the mouse, by its name in the process list and in the bundle.
#pragma once

namespace quorvi {

inline constexpr const char* kHelperName = "KyvarQuorviHelper";

} // namespace quorvi
