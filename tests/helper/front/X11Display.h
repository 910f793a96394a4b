// An X display with a window manager and test windows.
#pragma once

#include <memory>
#include <stdexcept>

#include "helper/front/X11Windows.h"
#include "support/VirtualDisplay.h"
#include "support/WaitUntil.h"

namespace quorvi::test {

class X11Display {
  public:
    explicit X11Display(const std::filesystem::path& home) {
        m_manager = std::make_unique<ChildProcess>(std::vector<std::string>{"openbox"},
            std::vector<std::string>{"DISPLAY=" + m_display.name(), "HOME=" + home.string()});
        m_windows = std::make_unique<X11Windows>(m_display.name());
        if (!waitUntil([&] { return m_windows->isManaged(); }))
            throw std::runtime_error("openbox does not start");
    }
    [[nodiscard]] const std::string& name() const { return m_display.name(); }
    [[nodiscard]] const X11Windows& windows() const { return *m_windows; }

  private:
    VirtualDisplay m_display;
    std::unique_ptr<ChildProcess> m_manager;
    std::unique_ptr<X11Windows> m_windows;
};

} // namespace quorvi::test
