// Qt's connection to the X server.
#pragma once

struct xcb_connection_t;

namespace quorvi {

/// Null on any other platform.
[[nodiscard]] xcb_connection_t* qtXcbConnection();

} // namespace quorvi
