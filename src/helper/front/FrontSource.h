// A source of the window in front: one for each kind of desktop.
#pragma once

#include <functional>
#include <string_view>

#include "helper/front/FrontWindow.h"

namespace quorvi::front {

/// Causes no wake-ups while idle, and reconnects when its display returns.
class FrontSource {
  public:
    /// Called whenever another window is in front; sometimes repeats the previous one.
    using WindowFunction = std::function<void(const FrontWindow&)>;

    FrontSource() = default;
    virtual ~FrontSource() = default;
    FrontSource(const FrontSource&) = delete;
    FrontSource& operator=(const FrontSource&) = delete;

    void onWindow(WindowFunction function) { m_window = std::move(function); }
    /// Called when tells() changes.
    void onChange(std::function<void()> function) { m_change = std::move(function); }

    /// Connects to its display; the functions may be called from now on.
    virtual void start() = 0;
    /// Whether it has a display that reports windows.
    [[nodiscard]] virtual bool tells() const = 0;
    /// The displayed name: "X11".
    [[nodiscard]] virtual std::string_view name() const = 0;

  protected:
    void report(const FrontWindow& window) const {
        if (m_window && !window.isNone())
            m_window(window);
    }
    void changed() const {
        if (m_change)
            m_change();
    }

  private:
    WindowFunction m_window;
    std::function<void()> m_change;
};

} // namespace quorvi::front
