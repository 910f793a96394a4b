// The system's service as it comes and goes, with the bus that it is on.
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
    /// Is given each answer to refresh(). A bus that goes answers too: there is no service.
    using Listed = std::function<void(InputdResult, const std::vector<ListedMouse>&)>;

    /// The last function is called when a bus has come; not from here. Loop and listener must live longer.
    InputdService(EventLoop& loop, InputdListener& listener, Listed listed, std::function<void()> busCame);
    InputdService(const InputdService&) = delete;
    InputdService& operator=(const InputdService&) = delete;

    /// Null without a bus.
    [[nodiscard]] InputdLink* link() const { return m_link.get(); }
    /// It has listed its mice, and not been missed since.
    [[nodiscard]] bool isThere() const { return m_isThere; }

    /// Asks for its mice, which starts it. While an answer is on its way, once more after that.
    void refresh();
    [[nodiscard]] bool isListing() const { return m_isListing; }

    void noteStart();
    /// Starts it again, at once or, when it has not lived long, a little later.
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
