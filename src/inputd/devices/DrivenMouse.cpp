#include "inputd/devices/DrivenMouse.h"

#include <algorithm>

namespace quorvi::inputd {

namespace {

/// The time that desktops need to open a new device. The mouse is not grabbed until then, so that no click is
/// lost.
constexpr std::chrono::milliseconds kSettlingTime{250};

/// Codes below these and from KEY_OK on are keys.
constexpr bool isButton(std::uint16_t code) {
    return code >= BTN_MISC && code < KEY_OK;
}

constexpr std::uint8_t kWheelAway = 8;
constexpr std::uint8_t kWheelBack = 9;

} // namespace

struct DrivenMouse::NodeWatcher final : Watcher {
    NodeWatcher(DrivenMouse& owner, std::unique_ptr<InputNode> input)
        : mouse(owner), node(std::move(input)) {}
    ~NodeWatcher() override { mouse.m_loop.unwatch(node->fd()); }
    void ready(std::uint32_t /*events*/) override { mouse.nodeReady(*this); }

    DrivenMouse& mouse;
    std::unique_ptr<InputNode> node;
};

DrivenMouse::DrivenMouse(Loop& loop, SharedKeyboard& keyboard, MouseListener& listener)
    : m_loop(loop), m_keyboard(keyboard), m_listener(listener), m_engine(*this) {}

DrivenMouse::~DrivenMouse() {
    m_engine.releaseAll(steadyNow());
    ungrabAll();
}

bool DrivenMouse::setRecord(std::span<const std::uint8_t> record) {
    return m_engine.setRecord(record, steadyNow());
}

void DrivenMouse::setOptions(const engine::Options& options) {
    m_options = options;
    m_engine.setOptions(options, steadyNow());
}

bool DrivenMouse::attach(const std::vector<std::string>& nodes, std::string& reason) {
    detach();
    for (const auto& path : nodes) {
        auto node = InputNode::open(path, reason);
        if (!node) {
            m_nodes.clear();
            return false;
        }
        m_nodes.push_back(std::make_unique<NodeWatcher>(*this, std::move(node)));
        auto& watcher = *m_nodes.back();
        // Edge-triggered: nodeReady() reads everything.
        if (!m_loop.watch(watcher.node->fd(), watcher, EPOLLIN | EPOLLET))
            reason = "it cannot be waited for";
    }
    m_pointer = OutputDevice::makePointer(reason);
    if (!m_pointer) {
        m_nodes.clear();
        return false;
    }
    m_settled = steadyNow() + kSettlingTime;
    setState(MouseState::waiting);
    return true;
}

void DrivenMouse::detach() {
    m_engine.releaseAll(steadyNow());
    ungrabAll();
    m_nodes.clear();
    m_pointer.reset();
    m_settled.reset();
    m_pressed = 0;
    setState(MouseState::absent);
}

std::vector<std::string> DrivenMouse::nodes() const {
    std::vector<std::string> paths;
    paths.reserve(m_nodes.size());
    for (const auto& watcher : m_nodes)
        paths.push_back(watcher->node->path());
    return paths;
}

std::optional<engine::Time> DrivenMouse::nextWake() const {
    const auto wanted = m_engine.nextWake();
    if (!m_settled)
        return wanted;
    return wanted ? std::min(*wanted, *m_settled) : *m_settled;
}

void DrivenMouse::wake(engine::Time now) {
    m_engine.wake(now);
    if (m_settled && now >= *m_settled) {
        m_settled.reset();
        tryToGrab();
    }
}

void DrivenMouse::nodeReady(NodeWatcher& watcher) {
    const bool driven = m_state == MouseState::driven;
    auto result = InputNode::Result::more;
    while (result == InputNode::Result::more)
        result = driven ? watcher.node->read(*this) : watcher.node->skip();
    if (result == InputNode::Result::gone)
        return detach(); // the watcher is gone with it
    // The next event shows that a button, or the mouse, was released.
    if (!driven && !m_settled)
        tryToGrab();
}

/// A press between the check and the grab has reached the desktop, which would never see its release. So the
/// check is repeated after the grab.
void DrivenMouse::tryToGrab() {
    const auto all = [this](auto&& holds) {
        return std::ranges::all_of(m_nodes, [&](const auto& watcher) { return holds(*watcher->node); });
    };
    const auto allUp = [&] { return all([](const InputNode& node) { return node.isAllUp(); }); };
    if (!allUp())
        return setState(MouseState::waiting);
    // Earlier events went to the desktop.
    const auto take = [](InputNode& node) {
        auto left = InputNode::Result::more;
        while (left == InputNode::Result::more)
            left = node.skip();
        return left != InputNode::Result::gone && node.grab();
    };
    if (!all(take)) {
        ungrabAll();
        return setState(MouseState::busy);
    }
    if (!allUp()) {
        ungrabAll();
        return setState(MouseState::waiting);
    }
    setState(MouseState::driven);
}

void DrivenMouse::ungrabAll() {
    for (const auto& watcher : m_nodes)
        watcher->node->ungrab();
}

void DrivenMouse::setState(MouseState state) {
    if (std::exchange(m_state, state) != state)
        m_listener.mouseChanged(*this);
}

void DrivenMouse::frame(std::span<const input_event> events, engine::Time when) {
    m_engine.input(events, when);
    for (const auto& event : events)
        if (event.type == EV_KEY || event.code == REL_WHEEL)
            showPressed(event);
}

void DrivenMouse::showPressed(const input_event& event) {
    if (event.type == EV_REL && event.code == REL_WHEEL && event.value != 0) {
        m_listener.inputChanged(*this, event.value > 0 ? kWheelAway : kWheelBack, true);
        return;
    }
    if (event.type != EV_KEY || event.code == 0 || event.value > 1)
        return;
    if (isButton(event.code))
        m_listener.codeChanged(*this, event.code, event.value != 0);
    const auto found = std::ranges::find(m_options.buttonCodes, event.code);
    if (found == m_options.buttonCodes.end())
        return;
    const auto index = static_cast<unsigned>(found - m_options.buttonCodes.begin());
    const auto bit = static_cast<std::uint16_t>(1U << index);
    m_pressed = static_cast<std::uint16_t>(event.value != 0 ? m_pressed | bit : m_pressed & ~bit);
    m_listener.inputChanged(*this, static_cast<std::uint8_t>(index + 1), event.value != 0);
}

void DrivenMouse::write(engine::Device device, std::span<const input_event> frame) {
    if (device == engine::Device::Keyboard)
        m_keyboard.write(frame);
    else if (m_pointer)
        m_pointer->write(frame);
}

void DrivenMouse::runs(const engine::Running& /*running*/) {
    m_listener.mouseChanged(*this);
}

} // namespace quorvi::inputd
