// Follows the keyboard layout in use from Qt's event loop, nested ones included.
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>

#include "layouts/LiveKeyboardLayout.h"

namespace quorvi {

/// The layout of Qt's display server: the X11 server, or the Wayland compositor over Qt's own connection,
/// because that one has the focus; on any other platform the configured layout. Never null. It must not
/// outlive the application object.
[[nodiscard]] std::unique_ptr<LiveKeyboardLayout> keyboardLayoutOfQtPlatform();

/// Makes a live layout the current one while it lives, and signals its changes. Causes no wake-ups in
/// between.
class KeyboardLayoutWatcher : public QObject {
    Q_OBJECT

  public:
    /// The layout must not be null.
    explicit KeyboardLayoutWatcher(std::unique_ptr<LiveKeyboardLayout> layout);
    ~KeyboardLayoutWatcher() override;

  signals:
    /// The layout may have changed. Emitted once for all of a server's notices about one change.
    void layoutChanged();

  private:
    void process();

    std::shared_ptr<LiveKeyboardLayout> m_layout;
    std::unique_ptr<QSocketNotifier> m_readable; ///< null if there is nothing to watch (any more)
    QTimer m_gathered;
};

} // namespace quorvi
