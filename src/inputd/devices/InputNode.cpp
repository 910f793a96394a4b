#include "inputd/devices/InputNode.h"

#include <cerrno>
#include <cstring>
#include <ctime>

#include <fcntl.h>
#include <libevdev/libevdev.h>
#include <sys/ioctl.h>

namespace quorvi::inputd {

namespace {

engine::Time timeOf(const timeval& when) {
    return std::chrono::seconds(when.tv_sec) + std::chrono::microseconds(when.tv_usec);
}

} // namespace

std::unique_ptr<InputNode> InputNode::open(const std::string& path, std::string& reason) {
    Descriptor fd(::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK));
    if (!fd) {
        reason = std::strerror(errno);
        return nullptr;
    }
    libevdev* device = nullptr;
    if (const int result = libevdev_new_from_fd(fd.get(), &device); result < 0) {
        reason = result == -ENOTTY ? "it is not an input device" : std::strerror(-result);
        return nullptr;
    }
    libevdev_set_clock_id(device, CLOCK_MONOTONIC);
    return std::unique_ptr<InputNode>(new InputNode(path, std::move(fd), device));
}

InputNode::InputNode(std::string path, Descriptor fd, libevdev* device)
    : m_path(std::move(path)), m_fd(std::move(fd)), m_device(device) {}

InputNode::~InputNode() {
    ungrab();
    libevdev_free(m_device);
}

std::string InputNode::name() const {
    return libevdev_get_name(m_device);
}

bool InputNode::isMouse() const {
    return libevdev_has_event_code(m_device, EV_REL, REL_X) == 1 &&
           libevdev_has_event_code(m_device, EV_REL, REL_Y) == 1 &&
           libevdev_has_event_code(m_device, EV_KEY, BTN_LEFT) == 1;
}

bool InputNode::hasKey(std::uint16_t code) const {
    return libevdev_has_event_code(m_device, EV_KEY, code) == 1;
}

bool InputNode::keysDown(Keys& keys) const {
    std::array<std::uint8_t, (KEY_CNT + 7) / 8> bits{};
    if (ioctl(m_fd.get(), EVIOCGKEY(bits.size()), bits.data()) < 0)
        return false;
    for (std::size_t code = 0; code < keys.size(); ++code)
        keys[code] = (bits[code / 8] >> (code % 8) & 1) != 0;
    return true;
}

bool InputNode::isAllUp() const {
    Keys keys;
    return keysDown(keys) && keys.none();
}

bool InputNode::grab() {
    m_grabbed = m_grabbed || libevdev_grab(m_device, LIBEVDEV_GRAB) == 0;
    return m_grabbed;
}

void InputNode::ungrab() {
    if (m_grabbed)
        libevdev_grab(m_device, LIBEVDEV_UNGRAB);
    m_grabbed = false;
    m_frameSize = 0;
    m_down.reset();
}

/// Reads once. A short read means that the queue is empty; a second call to confirm that would double the
/// cost of each report.
InputNode::Result InputNode::fill(std::span<input_event>& events) const {
    const ssize_t size = ::read(m_fd.get(), events.data(), events.size_bytes());
    if (size < 0) {
        events = {};
        return errno == EAGAIN ? Result::done : errno == EINTR ? Result::more : Result::gone;
    }
    const auto room = events.size();
    events = events.first(static_cast<std::size_t>(size) / sizeof(input_event));
    return events.size() == room ? Result::more : Result::done;
}

InputNode::Result InputNode::skip() {
    std::array<input_event, bufferedEvents> buffer;
    std::span<input_event> events(buffer);
    return fill(events);
}

InputNode::Result InputNode::read(FrameTaker& taker) {
    std::array<input_event, bufferedEvents> buffer;
    std::span<input_event> events(buffer);
    const auto result = fill(events);
    m_keysAreKnown = false;
    for (const auto& event : events)
        take(event, taker);
    return result;
}

void InputNode::take(const input_event& event, FrameTaker& taker) {
    if (event.type == EV_SYN && event.code == SYN_DROPPED) {
        catchUp(taker, event.time);
        return;
    }
    if (event.type == EV_KEY && event.code < m_down.size()) {
        if (m_keysAreKnown)
            return;
        m_down[event.code] = event.value != 0;
    }
    if (m_frameSize + 1 == m_frame.size() && event.type != EV_SYN)
        finishFrame(event.time, taker); // an oversized frame is sent as two
    if (event.type == EV_SYN && event.code == SYN_REPORT)
        finishFrame(event.time, taker);
    else
        m_frame[m_frameSize++] = event;
}

/// The kernel dropped its queue. Querying the keys removes their events from the queue, so only later ones
/// follow the answer; just the ones already read must be left out.
void InputNode::catchUp(FrameTaker& taker, const timeval& when) {
    Keys now;
    if (!keysDown(now))
        return; // the node is gone; the next read reports it
    m_frameSize = 0;
    const Keys changed = now ^ m_down;
    for (std::size_t code = 0; code < changed.size(); ++code) {
        if (!changed[code])
            continue;
        if (m_frameSize + 1 == m_frame.size())
            finishFrame(when, taker);
        m_frame[m_frameSize++] = {when, EV_KEY, static_cast<std::uint16_t>(code), now[code] ? 1 : 0};
    }
    m_down = now;
    if (m_frameSize > 0)
        finishFrame(when, taker);
    m_keysAreKnown = true;
}

void InputNode::finishFrame(const timeval& when, FrameTaker& taker) {
    m_frame[m_frameSize++] = {when, EV_SYN, SYN_REPORT, 0};
    const auto size = std::exchange(m_frameSize, 0);
    taker.frame(std::span(m_frame).first(size), timeOf(when));
}

} // namespace quorvi::inputd
