// Makes the service drive the chosen mice according to MouseOrders.
#pragma once

#include <functional>
#include <string>

#include "helper/mice/InputdService.h"
#include "helper/mice/KnownMice.h"
#include "helper/mice/MouseOrders.h"

namespace quorvi {

class MouseDriver {
  public:
    /// `changed` is called when a mouse becomes ours, stops being ours, or is refused. The listener receives
    /// the status of each mouse that becomes ours. All arguments must outlive the object.
    MouseDriver(KnownMice& mice, const MouseOrders& orders, const InputdService& service,
        InputdListener& listener, std::function<void()> changed);
    MouseDriver(const MouseDriver&) = delete;
    MouseDriver& operator=(const MouseDriver&) = delete;

    /// Sends the mouse its orders if it is chosen and not refused.
    void update(KnownMouse& mouse);
    void updateAll();
    /// Updates the mice that are not ours yet.
    void updateOthers();
    /// Makes it a plain mouse again.
    void release(KnownMouse& mouse);
    /// Subscribes to the service's signals as needed: profile and stage while a mouse is in use.
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
