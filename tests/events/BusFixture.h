// Shared by the tests on a private bus: connections, and other processes.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "events/EventBus.h"
#include "support/PrivateBus.h"

namespace quorvi::test {

/// Serves the bus until the condition holds. False when it does not within the test's patience.
template <typename Condition>
bool waitFor(EventBus& bus, Condition&& condition) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        bus.wait(std::chrono::milliseconds(5)); // what other programs do need not wake this one
    }
    return true;
}

/// Another process of the session: a connection with a thread of its own, which serves it all the time.
class Participant {
  public:
    /// Prepares the connection before it takes the name.
    using Preparation = std::function<void(EventBus&)>;

    explicit Participant(
        const std::string& name, Preparation prepare = [](EventBus&) {}) {
        m_thread = std::thread([this, name, prepare = std::move(prepare)] { run(name, prepare); });
        std::unique_lock lock(m_mutex);
        m_started.wait(lock, [this] { return m_ready; });
    }
    ~Participant() { leave(); }

    [[nodiscard]] ProcessSerialNumber psn() const { return m_psn; }
    /// Leaves the bus.
    void leave() {
        m_end = true;
        if (m_thread.joinable())
            m_thread.join();
    }

  private:
    void run(const std::string& name, const Preparation& prepare) {
        const auto bus = EventBus::connect();
        if (bus) {
            prepare(*bus);
            EXPECT_EQ(bus->ownName(name), NameResult::owned);
            m_psn = bus->processSerialNumber();
        }
        {
            const std::lock_guard lock(m_mutex);
            m_ready = true;
        }
        m_started.notify_one();
        while (bus && !m_end)
            bus->wait(std::chrono::milliseconds(5));
    }

    std::mutex m_mutex;
    std::condition_variable m_started;
    bool m_ready = false;
    std::atomic<bool> m_end = false;
    ProcessSerialNumber m_psn;
    std::thread m_thread;
};

class BusTest : public testing::Test {
  protected:
    BusTest() : bus(EventBus::connect()) {}
    void SetUp() override {
        ASSERT_NE(bus, nullptr);
        // The bus greets every connection with a signal, which comes before this answer.
        ASSERT_EQ(bus->findProcessByName("nobody", nullptr), procNotFound);
        bus->process();
    }

    PrivateBus privateBus;
    std::unique_ptr<EventBus> bus;
};

} // namespace quorvi::test
