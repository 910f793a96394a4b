// Which key types which letter in this session, for shortcuts that the mouse types.
#pragma once

#include <functional>
#include <memory>

#include "engine/Options.h"
#include "events/EventLoop.h"
#include "layouts/LiveKeyboardLayout.h"

namespace quorvi {

class SessionLayout final : EventSource {
  public:
    /// The loop must live longer.
    explicit SessionLayout(EventLoop& loop) : m_loop(loop) {}
    ~SessionLayout() override;
    SessionLayout(const SessionLayout&) = delete;
    SessionLayout& operator=(const SessionLayout&) = delete;

    /// Called with the keys when they have been read, and whenever they are others.
    void onKeys(std::function<void(const engine::LetterKeys&)> function) { m_keys = std::move(function); }

    /// Reads the layout of the display server, else the one that the machine is configured with, and follows
    /// it from now on; once. It takes some milliseconds and memory, so it is for whom a key is typed.
    void follow();

  private:
    [[nodiscard]] int fd() const override { return m_layout->fd(); }
    [[nodiscard]] std::chrono::milliseconds timeout() const override;
    void process() override;
    void read();

    EventLoop& m_loop;
    std::function<void(const engine::LetterKeys&)> m_keys;
    std::unique_ptr<LiveKeyboardLayout> m_layout; ///< null until it is followed
    bool m_isOutdated = false;
};

} // namespace quorvi
