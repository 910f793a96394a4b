#include "helper/mice/SystemBus.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <string_view>
#include <utility>

namespace quorvi {

using std::chrono::microseconds;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

namespace {

/// A bus that disconnects sooner than this refuses us or restarts repeatedly.
constexpr std::chrono::seconds kSoundBusLife{10};
constexpr std::chrono::seconds kBusPause{5};
constexpr milliseconds kBusSoon{100};

/// The first address's socket, if it is in the file system; as in the library, "%" and two digits may encode
/// a byte.
std::filesystem::path socketOfSystemBus() {
    constexpr std::string_view start = "unix:path=";
    const char* set = std::getenv("DBUS_SYSTEM_BUS_ADDRESS");
    const std::string_view address = set ? set : "unix:path=/run/dbus/system_bus_socket";
    if (!address.starts_with(start))
        return {};
    const auto written = address.substr(start.size(), address.find_first_of(",;") - start.size());
    std::string path;
    for (std::size_t i = 0; i < written.size(); ++i) {
        unsigned char byte = 0;
        const auto* digits = written.data() + i + 1;
        const bool isEscaped = written[i] == '%' && written.size() - i > 2 &&
                               std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
        path += isEscaped ? static_cast<char>(byte) : written[i];
        i += isEscaped ? 2 : 0;
    }
    return path;
}

} // namespace

SystemBus::SystemBus(EventLoop& loop, std::function<void()> changed)
    : m_loop(loop), m_changed(std::move(changed)), m_return(loop, socketOfSystemBus(), [this] {
          const bool isOpen = open();
          if (isOpen)
              m_changed();
          return isOpen;
      }) {
    if (!open())
        m_return.wait();
}

SystemBus::~SystemBus() {
    m_loop.remove(*this);
}

bool SystemBus::open() {
    sd_bus* opened = nullptr;
    if (sd_bus_open_system(&opened) < 0)
        return false;
    m_bus.reset(opened);
    m_openedAt = Timer::Clock::now();
    sd_bus_set_exit_on_disconnect(opened, 0);
    m_loop.add(*this);
    return true;
}

void SystemBus::lose() {
    m_loop.remove(*this);
    const auto gone = std::move(m_bus);
    m_changed();
    m_return.wait(Timer::Clock::now() - m_openedAt < kSoundBusLife ? kBusPause : kBusSoon);
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
            return lose();
        if (done == 0)
            return;
    }
}

} // namespace quorvi
