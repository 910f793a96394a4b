// What the mice in use are told to do, and what is wanted of them.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "helper/mice/Backend.h"
#include "helper/mice/ChosenMice.h"
#include "helper/mice/InputdLink.h"

namespace quorvi {

/// The mouse that is being set up. It is a plain one, all of whose buttons and keys are told.
struct MouseInSetUp {
    std::string id;               ///< empty for none
    std::uint16_t watchedKey = 0; ///< told too, and does nothing else; 0 for none
};

class MouseOrders {
  public:
    /// The one that a watched key is, during a set-up: the service tells of inputs, and of no other key.
    static constexpr std::uint8_t watchInput = 7;

    // True when it is another than before.
    [[nodiscard]] bool setRecord(std::span<const std::uint8_t> record, const Acceleration& acceleration);
    [[nodiscard]] bool setMacrosAreQuiet(bool quiet);
    [[nodiscard]] bool setLetterKeys(const engine::LetterKeys& keys);
    /// Somebody looks at the presses.
    [[nodiscard]] bool setShown(bool shown);

    void setInSetUp(MouseInSetUp inSetUp) { m_inSetUp = std::move(inSetUp); }
    [[nodiscard]] const MouseInSetUp& inSetUp() const { return m_inSetUp; }

    /// Without one the mice stay plain.
    [[nodiscard]] bool hasRecord() const { return !m_record.empty(); }
    /// What is pressed is wanted as long as there is a panel to show it, or a key to wait for.
    [[nodiscard]] bool wantsInputs() const { return m_isShown || m_inSetUp.watchedKey != 0; }

    // For one mouse.
    [[nodiscard]] engine::Options optionsFor(const ListedMouse& mouse, const ChosenMouse& chosen) const;
    [[nodiscard]] std::vector<std::uint8_t> recordFor(const ListedMouse& mouse) const;

  private:
    std::vector<std::uint8_t> m_record;
    engine::Options m_options; ///< but for what each mouse has of its own
    MouseInSetUp m_inSetUp;
    bool m_isShown = false;
};

} // namespace quorvi
