// The interface of receivers of captured keys.
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

    /// Whether a capture is active, which receives every key.
    [[nodiscard]] virtual bool wantsKeys() const = 0;
    /// Whether the capture ends with its first key of any kind.
    [[nodiscard]] virtual bool awaitsOneKey() const { return false; }
    /// Receives a key while wantsKeys() is true.
    virtual void receiveKey(const CapturedKey& key) = 0;
    /// Receives the held modifiers when they may have changed unseen, so that their change is not attributed
    /// to the next key. Called even if wantsKeys() is false.
    virtual void followModifiers(std::uint16_t /*modifiers*/) {}
};

} // namespace quorvi
