// The desktop's key for help, F1 as a rule.
#pragma once

#include <QObject>

class QWidget;

namespace quorvi {

/// Tells of the key while the focus is in the view. Before the host's own shortcut for its help: two
/// shortcuts of one key would cancel each other out.
class HelpKey : public QObject {
    Q_OBJECT

  public:
    /// For the life of both; the view owns it.
    explicit HelpKey(QWidget& view);

  signals:
    void pressed();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace quorvi
