// The mice that their users have given us, plugged in or not.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

#include "inputd/devices/DrivenMouse.h"
#include "inputd/devices/MouseGroups.h"

namespace quorvi::inputd {

struct UsedMouse {
    UsedMouse(const Mouse& mouse, uid_t user, Loop& loop, SharedKeyboard& keyboard, MouseListener& listener)
        : id(mouse.id), seat(mouse.seat), owner(user), driven(loop, keyboard, listener) {}

    std::string id;
    std::string seat;
    uid_t owner;
    DrivenMouse driven;
};

/// Is told from within the calls of UsedMice and of the loop; must not call either.
class UsedMiceListener {
  public:
    virtual ~UsedMiceListener() = default;
    virtual void statusChanged(const UsedMouse& mouse) = 0;
    virtual void inputChanged(const UsedMouse& mouse, std::uint8_t input, bool pressed) = 0;
    virtual void codeChanged(const UsedMouse& mouse, std::uint16_t code, bool pressed) = 0;
    /// It is a plain mouse again, and will stay one.
    virtual void forgotten(const UsedMouse& mouse) = 0;
};

class UsedMice final : MouseListener {
  public:
    /// Nobody has more, and nobody can make us hold more.
    static constexpr std::size_t most = 16;

    /// Both must live longer.
    UsedMice(Loop& loop, UsedMiceListener& listener);

    enum class Result {
        done,
        notARecord, ///< nothing has changed
        tooMany,
        noDevice ///< neither is there a keyboard, nor will be a pointer: /dev/uinput is closed to us
    };
    /// Drives the mouse from now on. One of theirs gets the record and the options; one of
    /// somebody else's is forgotten first.
    [[nodiscard]] Result use(const Mouse& mouse, uid_t owner, std::span<const std::uint8_t> record,
        const engine::Options& options);
    /// False when it is no record.
    [[nodiscard]] bool setRecord(UsedMouse& mouse, std::span<const std::uint8_t> record);
    void setOptions(UsedMouse& mouse, const engine::Options& options);
    /// Releases and lets go of those of which the condition holds.
    void forgetIf(const std::function<bool(const UsedMouse&)>& condition);

    /// Null when it is not in use.
    [[nodiscard]] UsedMouse* find(const std::string& id) const;
    [[nodiscard]] bool isEmpty() const { return m_mice.empty(); }

    /// What is plugged in now. Mice that came back are driven again.
    void pluggedIn(std::vector<Mouse> mice);
    /// Releases and lets go of all, until wakeUp(): a key that is held over the computer's sleep stays down.
    void goToSleep();
    void wakeUp();

    [[nodiscard]] std::optional<engine::Time> nextWake() const;
    void wake();

  private:
    void attach(UsedMouse& mouse);
    [[nodiscard]] const UsedMouse* ownerOf(const DrivenMouse& mouse) const;
    void mouseChanged(DrivenMouse& mouse) override;
    void inputChanged(DrivenMouse& mouse, std::uint8_t input, bool pressed) override;
    void codeChanged(DrivenMouse& mouse, std::uint16_t code, bool pressed) override;

    Loop& m_loop;
    UsedMiceListener& m_listener;
    SharedKeyboard m_keyboard;
    std::vector<Mouse> m_pluggedIn;
    std::vector<std::unique_ptr<UsedMouse>> m_mice;
    bool m_sleeps = false;
};

} // namespace quorvi::inputd
