// The settings application's window in this process, with the real panel, in front of a user.
#pragma once

#include <QTimer>

#include <memory>

#include "host/HostWindow.h"
#include "support/WindowTools.h"

namespace quorvi::test {

class OpenWindow {
  public:
    /// Loads the pane of the bundle and shows the window.
    explicit OpenWindow(const QString& bundlePath = QStringLiteral(QUORVI_BUNDLE));
    ~OpenWindow();

    [[nodiscard]] HostWindow& host() const { return *m_window; }
    template <typename Widget = QWidget>
    [[nodiscard]] Widget* find(const char* name) const {
        return outlet<Widget>(m_window.get(), name);
    }
    [[nodiscard]] QString text(const char* label) const;
    [[nodiscard]] bool isEnabled(const char* control) const { return find(control)->isEnabled(); }
    [[nodiscard]] bool isChecked(const char* box) const;
    /// The title of the pop-up's selected item.
    [[nodiscard]] QString selectedTitle(const char* popUp) const;

    void waitUntilActive() const;
    /// Waits until the title says so and the controls are as they have to be with it.
    [[nodiscard]] bool showsMouse(const QString& title = QStringLiteral("Default Profile")) const;
    [[nodiscard]] bool showsNoMouse() const;

    /// Clicks the tab, in the order of the panel: 0 buttons to 4 device.
    void clickTab(int index) const;
    void click(const char* button) const;

  private:
    std::unique_ptr<HostWindow> m_window;
};

/// Answers every sheet that comes up in the window, with cancel, and counts them.
class SheetCounter {
  public:
    explicit SheetCounter(const OpenWindow& window);
    [[nodiscard]] int count() const { return m_count; }

  private:
    QTimer m_timer;
    int m_count = 0;
};

} // namespace quorvi::test
