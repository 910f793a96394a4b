// The helper's own object on the session bus: the mice, which are in use, and what runs now.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "events/EventBus.h"

namespace quorvi {

/// A mouse of this computer.
struct MouseEntry {
    std::string id;         ///< its model if it is not plugged in
    std::string name;       ///< its own name
    std::string connection; ///< "usb", "bluetooth", "internal" or ""
    bool inUse = false;     ///< its user has chosen it
    std::string state;      ///< see HelperInterface.h and events/InputdInterface.h
    std::uint16_t hardwareDpi = 0;
    std::uint16_t dpi = 0;                ///< set by the user; 0 if not set
    std::array<std::uint16_t, 7> codes{}; ///< of inputs 1 to 7 (EV_KEY), 0 for none

    bool operator==(const MouseEntry&) const = default;
};

enum class MouseResult {
    done,
    noSuchMouse,
    invalid,    ///< out of bounds
    notInUse,   ///< only a mouse in use can be set up
    notWritten, ///< the helper's file could not be written
    busy        ///< another program is setting one up
};

/// The implementation behind the bus object.
class HelperControls {
  public:
    virtual ~HelperControls() = default;

    /// Answers once the mice are known, at once or later.
    virtual void listMice(std::function<void(std::vector<MouseEntry>)> answer) = 0;
    [[nodiscard]] virtual MouseResult useMouse(const std::string& mouse, bool inUse) = 0;
    [[nodiscard]] virtual MouseResult setDpi(const std::string& mouse, std::uint16_t dpi) = 0;
    [[nodiscard]] virtual MouseResult setCodes(
        const std::string& mouse, std::span<const std::uint16_t> codes) = 0;
    [[nodiscard]] virtual MouseResult beginSetUp(
        const std::string& mouse, const ProcessSerialNumber& caller) = 0;
    /// 0 for no key.
    [[nodiscard]] virtual MouseResult watchKey(std::uint16_t code, const ProcessSerialNumber& caller) = 0;
    virtual void endSetUp(const ProcessSerialNumber& caller) = 0;

    /// Whether the system's service for real mice is installed, as far as known from earlier calls.
    [[nodiscard]] virtual bool hasService() const = 0;
    [[nodiscard]] virtual bool isDemonstration() const = 0;
    [[nodiscard]] virtual std::uint32_t runningProfile() const = 0;
    [[nodiscard]] virtual std::uint32_t runningStage() const = 0;
    [[nodiscard]] virtual std::string frontReason() const = 0;
    [[nodiscard]] virtual std::uint16_t pressedInputs() const = 0;
};

/// Offers the object on the bus while it lives. Bus and controls must outlive it.
class HelperObject {
  public:
    /// Returns null if the bus is gone or already has such an object.
    [[nodiscard]] static std::unique_ptr<HelperObject> offer(const EventBus& bus, HelperControls& controls);
    ~HelperObject();
    HelperObject(const HelperObject&) = delete;
    HelperObject& operator=(const HelperObject&) = delete;

    // Signals all listeners.
    void tellMiceChanged() const;
    void tellService() const;
    void tellDemonstration() const;
    void tellRunning() const;
    void tellFrontReason() const;
    // Signals only these processes: presses are private.
    void tellInput(const std::set<ProcessSerialNumber>& processes, const std::string& mouse,
        std::uint8_t input, bool pressed) const;
    void tellCode(
        const ProcessSerialNumber& process, const std::string& mouse, std::uint16_t code, bool pressed) const;

  private:
    HelperObject() = default;
    struct Registration;
    std::unique_ptr<Registration> m_registration;
};

} // namespace quorvi
