// Wayland compositors for tests, each with its own runtime folder.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "support/ChildProcess.h"
#include "support/PrivateBus.h"
#include "support/TemporaryFolder.h"

namespace quorvi::test {

/// A compositor that runs as long as this object.
class Compositor {
  public:
    virtual ~Compositor() = default;
    Compositor(const Compositor&) = delete;
    Compositor& operator=(const Compositor&) = delete;

    /// The environment that a client needs to reach it, "NAME=value".
    [[nodiscard]] std::vector<std::string> environment() const;
    [[nodiscard]] std::string runtimeFolder() const { return m_folder.path(); }
    [[nodiscard]] const std::string& socket() const { return m_socket; }
    [[nodiscard]] ChildProcess& process() { return *m_process; }

  protected:
    explicit Compositor(std::string socket) : m_socket(std::move(socket)) {}
    [[nodiscard]] const TemporaryFolder& folder() const { return m_folder; }
    /// Starts it and waits until it accepts connections. Ends the test program if it does not.
    void start(const std::vector<std::string>& command, const std::vector<std::string>& environment);
    /// The same as an ordinary user, whoever runs the test.
    void startAsUser(std::vector<std::string> command, const std::vector<std::string>& environment);

  private:
    TemporaryFolder m_folder;
    std::string m_socket;
    std::unique_ptr<ChildProcess> m_process;
};

/// Sway. In a window on an X display it has that window's keyboard; without a display it has none but what
/// clients make.
class Sway : public Compositor {
  public:
    explicit Sway(const std::string& display = "");

    /// Runs a command; returns false if it fails.
    [[nodiscard]] bool command(const std::string& text) const;
    /// Sets the layouts and variants of the keyboard, separated by commas. When it returns, every client has
    /// been sent the keymap.
    [[nodiscard]] bool setLayout(const std::string& layout, const std::string& variant = "") const;
};

/// Labwc, with a screen in memory and no keyboard but what clients make.
class Labwc : public Compositor {
  public:
    Labwc();
};

/// KWin, with nothing but a screen in memory; it has the keyboard that clients make. It needs no bus.
class KWin : public Compositor {
  public:
    /// On the session bus of this address, if any.
    explicit KWin(const std::string& bus = "");
};

/// GNOME Shell 43 or later, with a screen in memory and without a graphics card, the extensions of a folder
/// beside its own, which are off, and no overview.
class GnomeShell : public Compositor {
  public:
    /// On the session bus of this address.
    GnomeShell(const std::string& bus, const std::string& extensions);

  private:
    std::unique_ptr<PrivateBus> m_system; ///< an empty bus stands for the system's
};

/// Weston. In a window on an X display it takes that display's layout when it starts; without a display it
/// has no keyboard.
class Weston : public Compositor {
  public:
    explicit Weston(const std::string& display = "");
};

} // namespace quorvi::test
