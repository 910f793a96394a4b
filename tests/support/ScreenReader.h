// A screen reader for tests, which follows the keyboard focus.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "support/Accessible.h"
#include "support/ChildProcess.h"
#include "support/EnvironmentVariable.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {

/// Starts the accessibility bus of this process's session and listens there, until the test lets go of it.
/// Programs take part that are started meanwhile.
class ScreenReader {
  public:
    ScreenReader();
    ~ScreenReader();
    ScreenReader(const ScreenReader&) = delete;
    ScreenReader& operator=(const ScreenReader&) = delete;

    /// The windows that are on the screen now.
    [[nodiscard]] std::vector<Accessible> windows() const;
    /// Waits for a window of that title, sheets included; an empty object if it does not appear.
    [[nodiscard]] Accessible window(const std::string& title) const;
    /// The focused object, from the programs' last signal, or else from their windows: a program sends no
    /// signals before it knows this reader, and the signalled object may be gone.
    [[nodiscard]] Accessible focus();

  private:
    struct Focus {
        std::string program, path;
    };
    static int noteFocus(sd_bus_message* message, void* focus, void* /*error*/);
    void listen();

    TemporaryFolder m_runtime;
    // Makes Qt's programs enable accessibility.
    EnvironmentVariable m_wanted{"QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1"};
    std::unique_ptr<ChildProcess> m_launcher;
    std::shared_ptr<sd_bus> m_bus;
    Focus m_focus;
};

} // namespace quorvi::test
