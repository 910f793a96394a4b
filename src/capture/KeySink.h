// Who captures keys.
#pragma once

#include <cstdint>

namespace quorvi {

/// A movement of a key, or of a modifier alone.
struct CapturedKey {
    std::uint8_t key;        ///< virtual key code, 255 for none
    std::uint16_t modifiers; ///< the modifier word after it
    bool goingDown;          ///< a key is pressed, or a modifier is added
};

class KeySink {
  public:
    virtual ~KeySink() = default;

    /// A capture is active: every key belongs to it.
    [[nodiscard]] virtual bool wantsKeys() const = 0;
    /// The capture ends with its first key, of whatever kind.
    [[nodiscard]] virtual bool awaitsOneKey() const { return false; }
    /// Gets a key while it wants them.
    virtual void receiveKey(const CapturedKey& key) = 0;
    /// Hears which modifiers are held when they may have changed while keys did not come to it, so that the
    /// next key is not taken for one of theirs. Whether it wants keys or not.
    virtual void followModifiers(std::uint16_t /*modifiers*/) {}
};

} // namespace quorvi
