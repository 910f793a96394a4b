// A stand-in for the system's service for real mice, on a bus of the test's own: machines that test have
// neither the service's devices nor its rights. The service itself is tested in the virtual machine.
#pragma once

#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "engine/Options.h"
#include "events/SdBus.h"

namespace quorvi::test {

struct StandInMouse {
    std::string id;
    std::string name = "Test mouse";
    std::uint16_t vendor = 0x1e7d;
    std::uint16_t product = 0x2dcb;
    std::uint16_t dpi = 0;
    bool used = false;
};

class StandInService {
  public:
    /// Takes the service's name on the bus that DBUS_SYSTEM_BUS_ADDRESS names, with these mice.
    explicit StandInService(std::vector<StandInMouse> mice);
    /// Leaves the bus, as a service that is killed.
    ~StandInService();
    StandInService(const StandInService&) = delete;
    StandInService& operator=(const StandInService&) = delete;

    std::atomic<bool> denies = false;      ///< Use, as polkit does
    std::atomic<bool> deniesLists = false; ///< everything, as to somebody who is not at the machine
    std::atomic<bool> isSlow = false;      ///< answers Use and SetRecord once it is not any more

    /// Plugs in and unplugs, and says so.
    void setMice(std::vector<StandInMouse> mice);
    void tellStatus(const std::string& mouse, const std::string& state, int profile, int stage, int dpi);
    void tellInput(const std::string& mouse, int input, bool pressed);
    void tellCode(const std::string& mouse, int code, bool pressed);

    /// What was called so far, each as "Use ID", "Watch 1", "WatchCodes ID 1" and so on.
    [[nodiscard]] std::vector<std::string> calls() const;
    [[nodiscard]] int countOf(const std::string& call) const;
    /// What the mouse was told last; empty and defaults when nothing.
    [[nodiscard]] std::string recordOf(const std::string& mouse) const;
    [[nodiscard]] engine::Options optionsOf(const std::string& mouse) const;
    /// The unique name of who called last.
    [[nodiscard]] std::string caller() const;
    [[nodiscard]] int unanswered() const;

  private:
    static const sd_bus_vtable vtable[];
    static int called(sd_bus_message* call, void* self, sd_bus_error* error);
    void receive(sd_bus_message* call);
    void answerSlow();
    void run();
    [[nodiscard]] events::MessageRef newSignal(const char* member) const;
    void appendMice(sd_bus_message* reply) const;

    mutable std::mutex m_mutex; ///< for everything below, the bus included
    std::vector<StandInMouse> m_mice;
    std::vector<std::string> m_calls;
    std::map<std::string, std::string> m_records;
    std::map<std::string, engine::Options> m_options;
    std::string m_caller;
    std::vector<events::MessageRef> m_unanswered;
    events::BusPtr m_bus;
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};

} // namespace quorvi::test
