#include "helper/mice/SystemBus.h"

#include <algorithm>
#include <cerrno>
#include <limits>

namespace quorvi {

using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

std::unique_ptr<SystemBus> SystemBus::open() {
    sd_bus* opened = nullptr;
    if (sd_bus_open_system(&opened) < 0)
        return nullptr;
    events::BusPtr bus(opened);
    sd_bus_set_exit_on_disconnect(opened, 0);
    return std::unique_ptr<SystemBus>(new SystemBus(std::move(bus)));
}

int SystemBus::fd() const {
    return sd_bus_get_fd(m_bus.get());
}

short SystemBus::events() const {
    return static_cast<short>(std::max(sd_bus_get_events(m_bus.get()), 0));
}

milliseconds SystemBus::timeout() const {
    std::uint64_t due = 0;
    if (sd_bus_get_timeout(m_bus.get(), &due) <= 0 || due == std::numeric_limits<std::uint64_t>::max())
        return milliseconds(-1);
    const auto left = microseconds(static_cast<std::int64_t>(due)) -
                      std::chrono::duration_cast<microseconds>(steady_clock::now().time_since_epoch());
    return std::max(std::chrono::ceil<milliseconds>(left), milliseconds::zero());
}

void SystemBus::process() {
    for (int messages = 0; messages < kProcessedAtOnce; ++messages) {
        const int done = sd_bus_process(m_bus.get(), nullptr);
        if (done < 0)
            sd_bus_close(m_bus.get());
        if (done <= 0)
            return;
    }
}

} // namespace quorvi
