// What shows short texts on a desktop, played on the session's bus: a notification server, KDE's own display.
#pragma once

#include <atomic>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "events/SdBus.h"

namespace quorvi::test {

class StandInDesktop {
  public:
    struct Parts {
        bool hasNotifications = true;
        bool hasKde = false;
        std::optional<bool> inhibited = {}; ///< nothing for a server without that property
    };
    explicit StandInDesktop(const Parts& parts);
    ~StandInDesktop();
    StandInDesktop(const StandInDesktop&) = delete;
    StandInDesktop& operator=(const StandInDesktop&) = delete;

    std::atomic<bool> isDead = false; ///< answers nobody, as one that hangs

    /// What was shown so far: "notified 0 TEXT" with the notification that it replaces, or "KDE TEXT".
    [[nodiscard]] std::vector<std::string> shown() const;

  private:
    static int notify(sd_bus_message* call, void* self, sd_bus_error* error);
    static int showText(sd_bus_message* call, void* self, sd_bus_error* error);
    static int giveInhibited(
        sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* self, sd_bus_error*);
    static const sd_bus_vtable plain[];
    static const sd_bus_vtable withInhibited[];
    static const sd_bus_vtable kde[];
    void note(const std::string& text);
    void run();

    mutable std::mutex m_mutex;
    std::vector<std::string> m_shown;
    bool m_inhibited;
    events::BusPtr m_bus;
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};

} // namespace quorvi::test
