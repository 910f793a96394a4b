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

/// Receives the frames of a node.
class FrameTaker {
  public:
    virtual ~FrameTaker() = default;
    /// A whole frame with its SYN_REPORT, and the kernel's time stamp.
    virtual void frame(std::span<const input_event> events, engine::Time when) = 0;
};

class InputNode {
  public:
    /// Opens the node without grabbing it. On failure returns null with a short reason.
    [[nodiscard]] static std::unique_ptr<InputNode> open(const std::string& path, std::string& reason);
    ~InputNode();
    InputNode(const InputNode&) = delete;
    InputNode& operator=(const InputNode&) = delete;

    [[nodiscard]] int fd() const { return m_fd.get(); }
    [[nodiscard]] const std::string& path() const { return m_path; }
    /// The device's own name; any bytes.
    [[nodiscard]] std::string name() const;
    /// Whether it moves in X and Y and has a left button.
    [[nodiscard]] bool isMouse() const;
    [[nodiscard]] bool hasKey(std::uint16_t code) const;

    /// Whether all its keys and buttons are up.
    [[nodiscard]] bool isAllUp() const;
    /// Grabs it for this process. Returns false if another process has grabbed it, or it is gone.
    [[nodiscard]] bool grab();
    void ungrab();
    [[nodiscard]] bool isGrabbed() const { return m_grabbed; }

    enum class Result {
        done, ///< nothing is left to read
        more, ///< something may be left
        gone
    };
    /// Reads and discards pending events: they belong to the desktop as long as the node is not grabbed.
    [[nodiscard]] Result skip();
    /// Reads pending events and passes them on frame by frame. After the kernel has dropped events, restores
    /// the known state: the present keys, and moves not yet read.
    [[nodiscard]] Result read(FrameTaker& taker);

  private:
    InputNode(std::string path, Descriptor fd, libevdev* device);
    [[nodiscard]] Result fill(std::span<input_event>& events) const;
    void take(const input_event& event, FrameTaker& taker);
    void catchUp(FrameTaker& taker, const timeval& when);
    void finishFrame(const timeval& when, FrameTaker& taker);

    using Keys = std::bitset<KEY_CNT>;
    [[nodiscard]] bool keysDown(Keys& keys) const;

    /// The events that one call reads. The kernel keeps 128 events of a mouse for a reader that is late, and
    /// drops older ones.
    static constexpr std::size_t bufferedEvents = 64;

    std::string m_path;
    Descriptor m_fd;
    libevdev* m_device;
    bool m_grabbed = false;
    std::array<input_event, bufferedEvents> m_frame{};
    std::size_t m_frameSize = 0;
    Keys m_down; ///< as passed on
    /// The rest of this read has keys that the state after a drop already includes.
    bool m_keysAreKnown = false;
};

} // namespace quorvi::inputd
