// The desktop's own keys for help, undo and redo.
#pragma once

#include <QKeySequence>
#include <QObject>

#include <functional>
#include <vector>

class QWidget;

namespace quorvi {

/// Performs the commands while the focus is in the view, and whatever has the focus has no use for the key: a
/// text field undoes its own typing. Before the host's own shortcuts: two shortcuts of one key would cancel
/// each other out.
class PanelKeys : public QObject {
  public:
    struct Command {
        QKeySequence::StandardKey key;
        std::function<void()> perform;
        bool repeats = false; ///< again and again while the key is held
    };

    /// For the life of both; the view owns it.
    PanelKeys(QWidget& view, std::vector<Command> commands);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::vector<Command> m_commands;
};

} // namespace quorvi
