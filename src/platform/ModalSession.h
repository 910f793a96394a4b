// Sheets: dialogs that hang on one window and block it, run by a nested event loop.
#pragma once

#include <QDialog>

#include <vector>

class QEventLoop;

namespace quorvi {

/// Runs sheets one inside another and ends the innermost one by a stop code. While a sheet is up, the event
/// loop goes on: messages from the helper are handled, and may put a second sheet in front of the first.
class ModalSessions {
  public:
    ModalSessions() = default;
    ModalSessions(const ModalSessions&) = delete;
    ModalSessions& operator=(const ModalSessions&) = delete;
    /// Ends every session that still runs, with code 0.
    ~ModalSessions();

    /// Shows the panel as a sheet of its parent's window (of the sheet in front, when there is one) and
    /// returns the code that ended it: that of stop(), or 1 and 0 when the panel accepts or rejects itself. A
    /// panel that already runs is not run twice: the answer is 0 at once.
    int run(QDialog* panel);
    /// Ends the innermost session with the code; does nothing when none runs.
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
