// A screen reader of a test's own, which follows the keyboard focus from thing to thing.
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
    /// Waits for a window of that title, sheets included; nothing when it does not come.
    [[nodiscard]] Accessible window(const std::string& title) const;
    /// What has the focus: as the programs told last, or as their windows show. Nothing is told of the time
    /// before a program has heard of this reader, and what was told of may have gone.
    [[nodiscard]] Accessible focus();

  private:
    struct Focus {
        std::string program, path;
    };
    static int noteFocus(sd_bus_message* message, void* focus, void* /*error*/);
    void listen();

    TemporaryFolder m_runtime;
    // Qt's programs look there whether anybody reads.
    EnvironmentVariable m_wanted{"QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1"};
    std::unique_ptr<ChildProcess> m_launcher;
    std::shared_ptr<sd_bus> m_bus;
    Focus m_focus;
};

} // namespace quorvi::test
