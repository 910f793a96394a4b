// A panel's messages to the helper about being shown and hidden.
#pragma once

#include <string>

#include "host/Session.h"
#include "support/EventMonitor.h"

namespace quorvi::test {

/// Follows the session's bus from now on. The helper has to be there: what is told to nobody is not seen.
class ShownAndHidden {
  public:
    explicit ShownAndHidden(const Session& session) : m_session(session) {}

    /// Waits until the panel has told so far that it is shown (1) and hidden (0) in this order, "101", and
    /// gives what it has told.
    [[nodiscard]] std::string told(const std::string& expected);
    /// The same when the panel has let go of its name on the bus, and nothing is under way any more.
    [[nodiscard]] std::string toldAtLast();

  private:
    [[nodiscard]] std::string toldSoFar();

    const Session& m_session;
    EventMonitor m_monitor{qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS").toStdString()};
};

} // namespace quorvi::test
