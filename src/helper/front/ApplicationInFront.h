// The application in front, from this desktop's source.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "events/EventLoop.h"
#include "events/FrontObject.h"
#include "helper/front/DesktopEntries.h"
#include "helper/front/DesktopReports.h"
#include "helper/front/FrontApplication.h"
#include "helper/front/FrontSource.h"
#include "helper/front/GnomeSource.h"
#include "helper/front/Session.h"

namespace quorvi::front {

/// On X11 the X server reports it; on Wayland the compositor, each with its own interface. Offers the result
/// on the bus as com.kyvar.Front1.
class ApplicationInFront {
  public:
    ApplicationInFront(EventBus& bus, EventLoop& loop, const Session& session = Session::ofThisProcess());
    ~ApplicationInFront();
    ApplicationInFront(const ApplicationInFront&) = delete;
    ApplicationInFront& operator=(const ApplicationInFront&) = delete;

    /// Called when another application comes to the front.
    void onApplication(std::function<void()> function) { m_function = std::move(function); }
    /// Connects to the display. Reads the desktop entries only when the first window is reported, from the
    /// loop, so that a starting helper answers at once.
    void start();

    /// The last reported application; empty before the first.
    [[nodiscard]] const FrontApplication& application() const { return m_application; }

  private:
    void addSources(const Session& session);
    void add(std::unique_ptr<FrontSource> source);
    void take(const FrontWindow& window);
    void tell();

    EventBus& m_bus;
    EventLoop& m_loop;
    FrontState m_state;
    std::unique_ptr<FrontObject> m_object;
    DesktopEntries m_entries{desktopEntryFolders()};
    DesktopReports m_reports{m_bus};
    std::vector<std::unique_ptr<FrontSource>> m_sources;
    const GnomeSource* m_gnome = nullptr; ///< one of the sources; null if absent
    FrontApplication m_application;
    std::function<void()> m_function;
};

} // namespace quorvi::front
