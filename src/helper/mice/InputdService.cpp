#include "helper/mice/InputdService.h"

#include <utility>

namespace quorvi {

using namespace std::chrono_literals;

namespace {

/// A service that ends sooner than this after its start is not restarted at once.
constexpr auto kSoundLife = 10s;
constexpr auto kPause = 5s;

} // namespace

InputdService::InputdService(
    EventLoop& loop, InputdListener& listener, Listed listed, std::function<void()> busCame)
    : m_listener(listener), m_listed(std::move(listed)), m_busCame(std::move(busCame)),
      m_bus(loop, [this] { followBus(); }) {
    connect();
    loop.watch(m_restart.fd(), [this] {
        m_restart.set({});
        refresh();
    });
}

void InputdService::connect() {
    if (m_bus.get())
        m_link = std::make_unique<InputdLink>(m_bus.get(), m_listener);
}

/// A lost bus invalidates the service's earlier state.
void InputdService::followBus() {
    const bool hadLink = m_link != nullptr;
    m_link.reset();
    if (hadLink) {
        m_restart.set({});
        m_listsAgain = false;
        take(InputdResult::noService, {});
    }
    connect();
    if (m_link)
        m_busCame();
}

void InputdService::refresh() {
    if (!m_link || std::exchange(m_isListing, true)) {
        m_listsAgain = m_isListing;
        return;
    }
    m_link->list([this](InputdResult result, const std::vector<ListedMouse>& mice) { take(result, mice); });
}

void InputdService::take(InputdResult result, const std::vector<ListedMouse>& mice) {
    m_isListing = false;
    if (std::exchange(m_listsAgain, false))
        return refresh();
    if (result != InputdResult::failed)
        m_isThere = result == InputdResult::done;
    m_listed(result, mice);
}

void InputdService::noteStart() {
    m_cameAt = Timer::Clock::now();
    m_restart.set({});
}

void InputdService::restart() {
    const auto now = Timer::Clock::now();
    m_restart.set(now - m_cameAt < kSoundLife ? now + kPause : now);
}

} // namespace quorvi
