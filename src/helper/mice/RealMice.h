// The mice that their user has chosen, driven by the system's service.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "events/HelperObject.h"
#include "events/Timer.h"
#include "helper/mice/Backend.h"
#include "helper/mice/ChosenMice.h"
#include "helper/mice/InputdLink.h"
#include "helper/mice/SystemBus.h"

namespace quorvi {

/// Is told from within calls and the loop; may call the mice.
class RealMiceListener {
  public:
    virtual ~RealMiceListener() = default;
    /// The list of mice or of devices is another one, or whether any is in use.
    virtual void miceChanged() = 0;
    /// A mouse in use runs another profile or stage.
    virtual void runningChanged() = 0;
    virtual void inputChanged(const std::string& mouse, std::uint8_t input, bool pressed) = 0;
    virtual void codeChanged(const std::string& mouse, std::uint16_t code, bool pressed) = 0;
};

class RealMice final : public Backend, InputdListener {
  public:
    /// While there is no bus of the system there are no mice. Loop and listener must live longer.
    RealMice(EventLoop& loop, std::filesystem::path chosen, RealMiceListener& listener);
    ~RealMice() override;
    RealMice(const RealMice&) = delete;
    RealMice& operator=(const RealMice&) = delete;

    /// Looks for the chosen mice. The service is started only when there are any.
    void start();

    void setRecord(std::span<const std::uint8_t> record, const Acceleration& acceleration) override;
    void setMacrosAreQuiet(bool quiet) override;
    void setLetterKeys(const engine::LetterKeys& keys) override;
    [[nodiscard]] std::vector<DeviceEntry> devices() const override;
    /// Of the mouse whose profile or stage changed last.
    [[nodiscard]] engine::Running running() const override { return m_running; }

    /// A mouse that its user has chosen takes the simulated one's place, also while it is unplugged: the
    /// service is there, and has not refused it.
    [[nodiscard]] bool anyInUse() const;
    /// The service has listed its mice.
    [[nodiscard]] bool hasService() const { return m_hasService; }
    /// Bit 0 is input 1; of all mice in use.
    [[nodiscard]] std::uint16_t pressedInputs() const;

    /// Gives the mice that are plugged in or chosen, once the service has listed them.
    void list(std::function<void(std::vector<MouseEntry>)> answer);
    // A mouse is named by its id, or by its model when it is not plugged in.
    [[nodiscard]] MouseResult use(const std::string& mouse, bool inUse);
    /// 0 for not known.
    [[nodiscard]] MouseResult setDpi(const std::string& mouse, std::uint16_t dpi);
    [[nodiscard]] MouseResult setCodes(const std::string& mouse, std::span<const std::uint16_t> codes);
    /// From now on the mouse is a plain one, whose buttons and keys are told by codeChanged().
    [[nodiscard]] MouseResult beginSetUp(const std::string& mouse);
    /// During a set-up: this key is told by codeChanged() too when it is the mouse's, and does nothing else
    /// then; 0 for none.
    [[nodiscard]] MouseResult watchKey(std::uint16_t code);
    void endSetUp();
    [[nodiscard]] const std::string& inSetUp() const { return m_inSetUp; }

    /// Somebody looks at the presses.
    void setShown(bool shown);

  private:
    struct Mouse {
        ListedMouse listed;
        MouseStatus status;
        bool isPluggedIn = false;
        bool isOurs = false;     ///< the service has it from us
        bool isRefused = false;  ///< nobody has let the user; not asked again by itself
        bool isCalling = false;  ///< an answer is waited for, and nothing else is sent meanwhile
        bool isOutdated = false; ///< something has changed that the service does not know
        [[nodiscard]] std::string model() const { return modelOf(listed.vendor, listed.product); }
    };

    /// Who has been told of it need not look again until it is another.
    struct Told {
        std::vector<MouseEntry> entries;
        bool anyInUse = false;
        bool hasService = false;
        bool operator==(const Told&) const = default;
    };

    void serviceCame() override;
    void serviceLeft() override;
    void miceChanged() override { refresh(); }
    void statusChanged(const std::string& id, const MouseStatus& status) override;
    void inputChanged(const std::string& id, std::uint8_t input, bool pressed) override;
    void codeChanged(const std::string& id, std::uint16_t code, bool pressed) override;

    void followBus();
    void refresh();
    void listed(InputdResult result, const std::vector<ListedMouse>& mice);
    void takeOver(const std::vector<ListedMouse>& mice);
    void forgetAll();
    void updateAll();
    void update(Mouse& mouse);
    void updated(const std::string& id, InputdResult result);
    void noteRunning(const MouseStatus& status);
    void tell();
    void watch();
    [[nodiscard]] engine::Options optionsOf(const Mouse& mouse) const;
    [[nodiscard]] std::vector<std::uint8_t> recordOf(const Mouse& mouse) const;
    [[nodiscard]] std::vector<MouseEntry> entries() const;
    [[nodiscard]] Mouse* find(const std::string& id);
    [[nodiscard]] std::string modelNamed(const std::string& mouse) const;
    [[nodiscard]] MouseResult change(
        const std::string& mouse, const std::function<void(ChosenMouse&)>& change);

    RealMiceListener& m_listener;
    ChosenMice m_chosen;
    std::vector<std::uint8_t> m_record;
    engine::Options m_options; ///< but for what each mouse has of its own
    engine::Running m_running{};
    std::map<std::string, Mouse> m_mice; ///< plugged in or ours, by id
    bool m_hasService = false;           ///< see hasService()
    bool m_isListing = false;
    bool m_listsAgain = false;
    std::vector<std::function<void(std::vector<MouseEntry>)>> m_waiting;
    std::string m_inSetUp;          ///< the id of the mouse that is being set up
    std::uint16_t m_watchedKey = 0; ///< see watchKey()
    Told m_told;                    ///< what there was to list when that was told last
    bool m_isShown = false;
    Timer m_restart;
    Timer::Clock::time_point m_cameAt;
    SystemBus m_bus;
    std::unique_ptr<InputdLink> m_link; ///< null without a bus
};

} // namespace quorvi
