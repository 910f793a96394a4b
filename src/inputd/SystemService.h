// The service on the system bus.
#pragma once

namespace quorvi::inputd {

/// Serves the system bus until SIGTERM or SIGINT, then returns 0. If there is no bus, it refuses the name, or
/// it disconnects, prints one line on standard error and returns 1, so that the service can be restarted.
[[nodiscard]] int runSystemService();

} // namespace quorvi::inputd
