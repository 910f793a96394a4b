// Follows the system's service and its bus as they start and end.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "events/Timer.h"
#include "helper/mice/InputdLink.h"
#include "helper/mice/SystemBus.h"

namespace quorvi {

class InputdService {
  public:
    /// Receives each answer to refresh(). If the bus goes away, the answer is noService.
    using Listed = std::function<void(InputdResult, const std::vector<ListedMouse>&)>;

    /// `busCame` is called when a bus is connected, never from the constructor. Loop and listener must
    /// outlive the object.
    InputdService(EventLoop& loop, InputdListener& listener, Listed listed, std::function<void()> busCame);
    InputdService(const InputdService&) = delete;
    InputdService& operator=(const InputdService&) = delete;

    /// Null without a bus.
    [[nodiscard]] InputdLink* link() const { return m_link.get(); }
    /// Whether it has listed its mice, and has been running since.
    [[nodiscard]] bool isThere() const { return m_isThere; }

    /// Requests its mice, which starts it. If an answer is pending, requests them once more after it.
    void refresh();
    [[nodiscard]] bool isListing() const { return m_isListing; }

    void noteStart();
    /// Restarts it, at once or, if it ended soon after its start, a little later.
    void restart();

  private:
    void followBus();
    void connect();
    void take(InputdResult result, const std::vector<ListedMouse>& mice);

    InputdListener& m_listener;
    Listed m_listed;
    std::function<void()> m_busCame;
    bool m_isThere = false;
    bool m_isListing = false;
    bool m_listsAgain = false;
    Timer m_restart;
    Timer::Clock::time_point m_cameAt;
    SystemBus m_bus;
    std::unique_ptr<InputdLink> m_link;
};

} // namespace quorvi
