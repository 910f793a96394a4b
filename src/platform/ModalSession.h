// Sheets: dialogs attached to one window that block it, run by a nested event loop.
#pragma once

#include <QDialog>

#include <vector>

class QEventLoop;

namespace quorvi {

/// Runs sheets one inside another and ends the innermost one by a stop code. While a sheet is open, the event
/// loop continues: messages from the helper are handled, and may open a second sheet in front of the first.
class ModalSessions {
  public:
    ModalSessions() = default;
    ModalSessions(const ModalSessions&) = delete;
    ModalSessions& operator=(const ModalSessions&) = delete;
    /// Ends every running session with code 0.
    ~ModalSessions();

    /// Shows the panel as a sheet of its parent's window (of the front sheet, if there is one) and returns
    /// the code that ended it: stop()'s, or 1 or 0 if the panel accepts or rejects itself. Returns 0 at once
    /// for a panel that is already running.
    int run(QDialog* panel);
    /// Ends the innermost session with the code; does nothing if none is running.
    void stop(int code);
    [[nodiscard]] bool isRunning() const { return !m_sessions.empty(); }

  private:
    struct Session {
        QDialog* panel;
        QEventLoop* loop;
    };
    std::vector<Session> m_sessions;
};

} // namespace quorvi
