// The settings of the mice in use, and the signals needed from them.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "helper/mice/Backend.h"
#include "helper/mice/ChosenMice.h"
#include "helper/mice/InputdLink.h"

namespace quorvi {

/// The mouse being set up: a plain one that reports all its buttons.
struct MouseInSetUp {
    std::string id;               ///< empty for none
    std::uint16_t watchedKey = 0; ///< a key that is reported too, without any other effect; 0 for none
};

class MouseOrders {
  public:
    /// The input to which a watched key is assigned during set-up, because the service reports no keys but
    /// inputs.
    static constexpr std::uint8_t watchInput = 7;

    // Returns true if it has changed.
    [[nodiscard]] bool setRecord(std::span<const std::uint8_t> record, const Acceleration& acceleration);
    [[nodiscard]] bool setMacrosAreQuiet(bool quiet);
    [[nodiscard]] bool setLetterKeys(const engine::LetterKeys& keys);
    /// Sets whether a panel shows the presses. Returns true if that has changed.
    [[nodiscard]] bool setShown(bool shown);

    void setInSetUp(MouseInSetUp inSetUp) { m_inSetUp = std::move(inSetUp); }
    [[nodiscard]] const MouseInSetUp& inSetUp() const { return m_inSetUp; }

    /// Without one the mice stay plain.
    [[nodiscard]] bool hasRecord() const { return !m_record.empty(); }
    /// Whether presses are needed: for a panel that shows them, or for a watched key.
    [[nodiscard]] bool wantsInputs() const { return m_isShown || m_inSetUp.watchedKey != 0; }

    // For one mouse.
    [[nodiscard]] engine::Options optionsFor(const ListedMouse& mouse, const ChosenMouse& chosen) const;
    [[nodiscard]] std::vector<std::uint8_t> recordFor(const ListedMouse& mouse) const;

  private:
    std::vector<std::uint8_t> m_record;
    engine::Options m_options; ///< except the values that differ by mouse
    MouseInSetUp m_inSetUp;
    bool m_isShown = false;
};

} // namespace quorvi
