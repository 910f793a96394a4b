// Who tells which window is in front: one for each kind of desktop.
#pragma once

#include <functional>
#include <string_view>

#include "helper/front/FrontWindow.h"

namespace quorvi::front {

/// Wakes nobody while nothing changes, and comes back by itself when its display does.
class FrontSource {
  public:
    /// Called whenever another window is in front; with what was said before now and then.
    using WindowFunction = std::function<void(const FrontWindow&)>;

    FrontSource() = default;
    virtual ~FrontSource() = default;
    FrontSource(const FrontSource&) = delete;
    FrontSource& operator=(const FrontSource&) = delete;

    void onWindow(WindowFunction function) { m_window = std::move(function); }
    /// tells() is another one.
    void onChange(std::function<void()> function) { m_change = std::move(function); }

    /// Connects to its display; the functions may be called from here on.
    virtual void start() = 0;
    /// Whether it has a display that tells.
    [[nodiscard]] virtual bool tells() const = 0;
    /// As programs show it: "X11".
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
