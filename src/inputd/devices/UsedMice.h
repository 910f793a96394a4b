// The mice that users have handed to the service, plugged in or not.
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

/// Called from within UsedMice and the loop; must not call either.
class UsedMiceListener {
  public:
    virtual ~UsedMiceListener() = default;
    virtual void statusChanged(const UsedMouse& mouse) = 0;
    virtual void inputChanged(const UsedMouse& mouse, std::uint8_t input, bool pressed) = 0;
    virtual void codeChanged(const UsedMouse& mouse, std::uint16_t code, bool pressed) = 0;
    /// The mouse is a plain one again, and stays one.
    virtual void forgotten(const UsedMouse& mouse) = 0;
};

class UsedMice final : MouseListener {
  public:
    /// More than any user has; limits the memory that clients can make us use.
    static constexpr std::size_t most = 16;

    /// Both must outlive the object.
    UsedMice(Loop& loop, UsedMiceListener& listener);

    enum class Result {
        done,
        notARecord, ///< the bytes are not a record; no change
        tooMany,
        noDevice ///< /dev/uinput cannot be opened, so there are no virtual devices
    };
    /// Drives the mouse from now on. If the owner already uses it, updates its record and options; if another
    /// user does, forgets it first.
    [[nodiscard]] Result use(const Mouse& mouse, uid_t owner, std::span<const std::uint8_t> record,
        const engine::Options& options);
    /// Returns false if the bytes are not a record.
    [[nodiscard]] bool setRecord(UsedMouse& mouse, std::span<const std::uint8_t> record);
    void setOptions(UsedMouse& mouse, const engine::Options& options);
    /// Releases and forgets the mice that meet the condition.
    void forgetIf(const std::function<bool(const UsedMouse&)>& condition);

    /// Null if it is not in use.
    [[nodiscard]] UsedMouse* find(const std::string& id) const;
    [[nodiscard]] bool isEmpty() const { return m_mice.empty(); }

    /// Sets the mice plugged in now. Mice that are back are driven again.
    void pluggedIn(std::vector<Mouse> mice);
    /// Releases all mice until wakeUp(): a key held over the computer's sleep would stay down.
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
