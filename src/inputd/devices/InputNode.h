// One node of an input device, /dev/input/eventN: opened, grabbed, read.
#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include <linux/input.h>

#include "engine/Engine.h"
#include "inputd/loop/Descriptor.h"

struct libevdev;

namespace quorvi::inputd {

/// Takes the frames of a node.
class FrameTaker {
  public:
    virtual ~FrameTaker() = default;
    /// A whole frame with its SYN_REPORT, and when the kernel got it.
    virtual void frame(std::span<const input_event> events, engine::Time when) = 0;
};

class InputNode {
  public:
    /// Opens it without grabbing. Nothing when it cannot be had, with the reason in a few words.
    [[nodiscard]] static std::unique_ptr<InputNode> open(const std::string& path, std::string& reason);
    ~InputNode();
    InputNode(const InputNode&) = delete;
    InputNode& operator=(const InputNode&) = delete;

    [[nodiscard]] int fd() const { return m_fd.get(); }
    [[nodiscard]] const std::string& path() const { return m_path; }
    /// As the device says; any bytes.
    [[nodiscard]] std::string name() const;
    /// It moves in X and Y and has a left button.
    [[nodiscard]] bool isMouse() const;
    [[nodiscard]] bool hasKey(std::uint16_t code) const;

    /// No key and no button of it is down.
    [[nodiscard]] bool isAllUp() const;
    /// Takes it for this process alone. False when another one has it, or when it is gone.
    [[nodiscard]] bool grab();
    void ungrab();
    [[nodiscard]] bool isGrabbed() const { return m_grabbed; }

    enum class Result {
        done, ///< nothing is left to read
        more, ///< something may be left
        gone
    };
    /// Reads what has come and throws it away: who has not grabbed it is not concerned.
    [[nodiscard]] Result skip();
    /// Reads what has come and hands it over, frame by frame. What the kernel had to drop for want of room is
    /// made up for as far as it is known: keys as they are now, and moves that had not been read.
    [[nodiscard]] Result read(FrameTaker& taker);

  private:
    InputNode(std::string path, Descriptor fd, libevdev* device);
    [[nodiscard]] Result fill(std::span<input_event>& events) const;
    void take(const input_event& event, FrameTaker& taker);
    void catchUp(FrameTaker& taker, const timeval& when);
    void finishFrame(const timeval& when, FrameTaker& taker);

    using Keys = std::bitset<KEY_CNT>;
    [[nodiscard]] bool keysDown(Keys& keys) const;

    /// What one call reads. The kernel keeps 128 events of a mouse for a reader that is late, and drops older
    /// ones.
    static constexpr std::size_t bufferedEvents = 64;

    std::string m_path;
    Descriptor m_fd;
    libevdev* m_device;
    bool m_grabbed = false;
    std::array<input_event, bufferedEvents> m_frame{};
    std::size_t m_frameSize = 0;
    Keys m_down; ///< as they were handed over
    /// What is left of this read has keys that the state after a drop knows already.
    bool m_keysAreKnown = false;
};

} // namespace quorvi::inputd
