// Ends the application cleanly when the session or a terminal requests it.
#pragma once

namespace quorvi {

/// From now on SIGINT, SIGTERM and SIGHUP leave the event loop like closing the last window, so that the
/// shown pane is notified before the process ends. Call this once, after creating the application object.
void quitOnTerminationSignals();

} // namespace quorvi
