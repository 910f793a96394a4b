// Ends the application in good order when the session or a terminal asks for it.
#pragma once

namespace quorvi {

/// From now on SIGINT, SIGTERM and SIGHUP leave the event loop as closing the last window does, so that the
/// shown pane is told before the process ends. To be called once, with the application object in place.
void quitOnTerminationSignals();

} // namespace quorvi
