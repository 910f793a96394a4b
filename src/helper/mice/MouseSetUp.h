// Setting up a mouse: which of its buttons and keys is which input.
#pragma once

#include <string>

#include "helper/mice/MouseDriver.h"

namespace quorvi {

class MouseSetUp {
  public:
    /// All must live longer.
    MouseSetUp(KnownMice& mice, MouseOrders& orders, const InputdService& service, MouseDriver& driver)
        : m_mice(mice), m_orders(orders), m_service(service), m_driver(driver) {}

    /// From now on the mouse is a plain one, whose buttons and keys are told.
    [[nodiscard]] MouseResult begin(const std::string& mouse);
    /// Meanwhile: this key is told too when it is the mouse's, and does nothing else then; 0 for none.
    [[nodiscard]] MouseResult watchKey(std::uint16_t code);
    void end();

  private:
    KnownMice& m_mice;
    MouseOrders& m_orders;
    const InputdService& m_service;
    MouseDriver& m_driver;
};

} // namespace quorvi
