// Has the service drive the mice that are chosen, as they are ordered.
#pragma once

#include <functional>
#include <string>

#include "helper/mice/InputdService.h"
#include "helper/mice/KnownMice.h"
#include "helper/mice/MouseOrders.h"

namespace quorvi {

class MouseDriver {
  public:
    /// The function is called when a mouse is ours, or is not any more, or has been refused. The listener is
    /// given the status of each that is ours now. All must live longer.
    MouseDriver(KnownMice& mice, const MouseOrders& orders, const InputdService& service,
        InputdListener& listener, std::function<void()> changed);
    MouseDriver(const MouseDriver&) = delete;
    MouseDriver& operator=(const MouseDriver&) = delete;

    /// Gives it its orders when it is chosen and not refused.
    void update(KnownMouse& mouse);
    void updateAll();
    /// Those that are not ours yet.
    void updateOthers();
    /// Leaves it a plain mouse.
    void release(KnownMouse& mouse);
    /// Has the service tell what is wanted: the profile and stage as long as a mouse is in use.
    void watch();

  private:
    void updated(const std::string& id, InputdResult result);
    void greet(const std::string& id);

    KnownMice& m_mice;
    const MouseOrders& m_orders;
    const InputdService& m_service;
    InputdListener& m_listener;
    std::function<void()> m_changed;
};

} // namespace quorvi
