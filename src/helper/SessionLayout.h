// The keys that type letters in this session, for shortcuts that the mouse types.
#pragma once

#include <functional>
#include <memory>

#include "engine/Options.h"
#include "events/EventLoop.h"
#include "layouts/LiveKeyboardLayout.h"

namespace quorvi {

class SessionLayout final : EventSource {
  public:
    /// The loop must outlive the object.
    explicit SessionLayout(EventLoop& loop) : m_loop(loop) {}
    ~SessionLayout() override;
    SessionLayout(const SessionLayout&) = delete;
    SessionLayout& operator=(const SessionLayout&) = delete;

    /// Called with the keys when they have been read, and whenever they change.
    void onKeys(std::function<void(const engine::LetterKeys&)> function) { m_keys = std::move(function); }

    /// Reads the display server's layout, else the machine's configured one, and follows it from now on.
    /// Further calls do nothing. It takes some milliseconds and memory, so call it only if keys will be
    /// typed.
    void follow();

  private:
    [[nodiscard]] int fd() const override { return m_layout->fd(); }
    [[nodiscard]] std::chrono::milliseconds timeout() const override;
    void process() override;
    void read();

    EventLoop& m_loop;
    std::function<void(const engine::LetterKeys&)> m_keys;
    std::unique_ptr<LiveKeyboardLayout> m_layout; ///< null until followed
    bool m_isOutdated = false;
};

} // namespace quorvi
