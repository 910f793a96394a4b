// The mice that the user has chosen, driven by the system's service.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "helper/mice/Backend.h"
#include "helper/mice/MouseSetUp.h"

namespace quorvi {

/// Called from within calls and from the loop; may call the mice.
class RealMiceListener {
  public:
    virtual ~RealMiceListener() = default;
    /// The list of mice or devices has changed, or whether any is in use.
    virtual void miceChanged() = 0;
    /// The profile or stage of a mouse in use has changed.
    virtual void runningChanged() = 0;
    virtual void inputChanged(const std::string& mouse, std::uint8_t input, bool pressed) = 0;
    virtual void codeChanged(const std::string& mouse, std::uint16_t code, bool pressed) = 0;
};

class RealMice final : public Backend, InputdListener {
  public:
    /// Without a system bus there are no mice. Loop and listener must outlive the object.
    RealMice(EventLoop& loop, std::filesystem::path chosen, RealMiceListener& listener);
    ~RealMice() override;
    RealMice(const RealMice&) = delete;
    RealMice& operator=(const RealMice&) = delete;

    /// Looks for the chosen mice. Starts the service only if there are any.
    void start();

    void setRecord(std::span<const std::uint8_t> record, const Acceleration& acceleration) override;
    void setMacrosAreQuiet(bool quiet) override;
    void setLetterKeys(const engine::LetterKeys& keys) override;
    [[nodiscard]] std::vector<DeviceEntry> devices() const override { return m_mice.devices(); }
    /// Of the mouse whose profile or stage changed last.
    [[nodiscard]] engine::Running running() const override { return m_running; }

    /// Whether a chosen mouse replaces the simulated one, even while unplugged: the service is running and
    /// has not refused it.
    [[nodiscard]] bool anyInUse() const;
    /// Whether the service has listed its mice.
    [[nodiscard]] bool hasService() const { return m_service.isThere(); }
    /// Bit 0 is input 1; of all mice in use.
    [[nodiscard]] std::uint16_t pressedInputs() const { return m_mice.pressedInputs(); }

    /// Calls `answer` with the plugged-in or chosen mice, once the service has listed them.
    void list(std::function<void(std::vector<MouseEntry>)> answer);
    // A mouse is identified by its id, or by its model while unplugged.
    [[nodiscard]] MouseResult use(const std::string& mouse, bool inUse);
    /// 0 for unknown.
    [[nodiscard]] MouseResult setDpi(const std::string& mouse, std::uint16_t dpi);
    [[nodiscard]] MouseResult setCodes(const std::string& mouse, std::span<const std::uint16_t> codes);
    /// It reports through codeChanged().
    [[nodiscard]] MouseSetUp& setUp() { return m_setUp; }

    /// Sets whether a panel shows the presses.
    void setShown(bool shown);

  private:
    /// The last reported state, so that only changes are reported.
    struct Told {
        std::vector<MouseEntry> entries;
        bool anyInUse = false;
        bool hasService = false;
        bool operator==(const Told&) const = default;
    };

    void serviceCame() override;
    void serviceLeft() override;
    void miceChanged() override { m_service.refresh(); }
    void statusChanged(const std::string& id, const MouseStatus& status) override;
    void inputChanged(const std::string& id, std::uint8_t input, bool pressed) override;
    void codeChanged(const std::string& id, std::uint16_t code, bool pressed) override;

    void listed(InputdResult result, const std::vector<ListedMouse>& mice);
    [[nodiscard]] MouseResult change(
        const std::string& mouse, const std::function<void(ChosenMouse&)>& change);
    void noteRunning(const MouseStatus& status);
    void tell();

    RealMiceListener& m_listener;
    engine::Running m_running{};
    std::vector<std::function<void(std::vector<MouseEntry>)>> m_waiting;
    Told m_told; ///< the last reported state
    KnownMice m_mice;
    MouseOrders m_orders;
    InputdService m_service;
    MouseDriver m_driver;
    MouseSetUp m_setUp;
};

} // namespace quorvi
