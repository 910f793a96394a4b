// The settings application as a separate program, with the display's mouse and keyboard.
#pragma once

#include <QPoint>

#include <memory>
#include <string>
#include <vector>

#include "host/Session.h"

namespace quorvi::test {

/// Where something is to be found in the program's window.
struct Spots {
    QPoint tab;      ///< of the tab that it is on
    QPoint control;  ///< the square of a check box, the handle of a slider, the middle of anything else
    QPoint end;      ///< three quarters of the way along the control
    QPoint firstRow; ///< of a table
};

/// Looks the control up in a window of this process with the session's settings, which is laid out as the
/// program's is. It has a panel of its own, which has gone when this returns. With a table, the control is
/// one that is there when the table's first row is selected.
[[nodiscard]] Spots spotsOf(const char* control, int tab, const char* table = nullptr);

class OpenProgram {
  public:
    /// Starts it, with the bundle of that path or its own, and waits until its window is on the screen.
    explicit OpenProgram(const Session& session, const QString& bundlePath = QString(),
        const std::vector<std::string>& environment = {});

    [[nodiscard]] pid_t pid() const { return m_program->pid(); }
    [[nodiscard]] bool isRunning() const { return m_program->isRunning(); }
    /// The window's number, for xdotool.
    [[nodiscard]] const std::string& window() const { return m_window; }

    void clickAt(QPoint spot) const;
    void pressAt(QPoint spot) const;
    void moveTo(QPoint spot) const;
    static void release();

    /// Asks it to end. Its exit code, and what it said on its standard error.
    [[nodiscard]] ProgramResult end() const;

  private:
    void pointer(QPoint spot, const std::vector<std::string>& then) const;

    std::unique_ptr<ChildProcess> m_program;
    std::string m_window;
};

} // namespace quorvi::test
