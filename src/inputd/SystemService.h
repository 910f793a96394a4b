// The service as the system runs it.
#pragma once

namespace quorvi::inputd {

/// Serves the system bus until SIGTERM or SIGINT comes; then 0. When there is no bus, when it does not let
/// the service have its name, or when it goes away, one line on standard error, and 1: whoever started it may
/// start it again.
[[nodiscard]] int runSystemService();

} // namespace quorvi::inputd
