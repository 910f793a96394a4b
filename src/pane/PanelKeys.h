// The desktop's standard keys for help, undo, redo and stop.
#pragma once

#include <QKeySequence>
#include <QObject>

#include <functional>
#include <vector>

class QWidget;

namespace quorvi {

/// Performs the commands while the focus is in the view, unless the focused control uses the key itself: a
/// text field undoes its own typing. Acts before the host's shortcuts: two shortcuts with the same key would
/// cancel each other out.
class PanelKeys : public QObject {
  public:
    struct Command {
        QKeySequence::StandardKey key;
        std::function<void()> perform;
        bool repeats = false;                       ///< again and again while the key is held
        std::function<bool()> isPossible = nullptr; ///< if false, the host receives the key; empty for always
                                                    ///< possible
    };

    /// The view owns it.
    PanelKeys(QWidget& view, std::vector<Command> commands);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::vector<Command> m_commands;
};

} // namespace quorvi
