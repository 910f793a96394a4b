// Sets up a mouse: assigns its buttons and keys to inputs.
#pragma once

#include <string>

#include "helper/mice/MouseDriver.h"

namespace quorvi {

class MouseSetUp {
  public:
    /// All must live longer.
    MouseSetUp(KnownMice& mice, MouseOrders& orders, const InputdService& service, MouseDriver& driver)
        : m_mice(mice), m_orders(orders), m_service(service), m_driver(driver) {}

    /// Begins: the mouse is now a plain one that reports its buttons and keys.
    [[nodiscard]] MouseResult begin(const std::string& mouse);
    /// During set-up, also reports this key if it is the mouse's, which then has no other effect; 0 for none.
    [[nodiscard]] MouseResult watchKey(std::uint16_t code);
    void end();

  private:
    KnownMice& m_mice;
    MouseOrders& m_orders;
    const InputdService& m_service;
    MouseDriver& m_driver;
};

} // namespace quorvi
