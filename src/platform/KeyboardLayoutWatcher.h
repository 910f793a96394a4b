// Follows the keyboard layout in use from Qt's event loop, nested ones included.
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <memory>

#include "layouts/LiveKeyboardLayout.h"

namespace quorvi {

/// The layout of the display server that Qt works with: of the X11 server, of the Wayland compositor over
/// Qt's own connection, since that one has the focus; on any other platform the configured layout. Never
/// null. It must not outlive the application object.
[[nodiscard]] std::unique_ptr<LiveKeyboardLayout> keyboardLayoutOfQtPlatform();

/// Makes a live layout the current one for as long as it lives, and says when it changes. Nothing wakes up in
/// between.
class KeyboardLayoutWatcher : public QObject {
    Q_OBJECT

  public:
    /// The layout must not be null.
    explicit KeyboardLayoutWatcher(std::unique_ptr<LiveKeyboardLayout> layout);
    ~KeyboardLayoutWatcher() override;

  signals:
    /// The layout may be another one. Once for all the notices that a server sends of one change.
    void layoutChanged();

  private:
    void process();

    std::shared_ptr<LiveKeyboardLayout> m_layout;
    std::unique_ptr<QSocketNotifier> m_readable; ///< null when there is nothing to watch (any more)
    QTimer m_gathered;
};

} // namespace quorvi
