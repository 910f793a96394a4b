// One mouse in use: its nodes, its engine and its virtual pointer.
#pragma once

#include <bitset>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/Engine.h"
#include "inputd/devices/InputNode.h"
#include "inputd/devices/SharedKeyboard.h"
#include "inputd/loop/Loop.h"

namespace quorvi::inputd {

enum class MouseState : std::uint8_t {
    absent,  ///< not plugged in, or released
    waiting, ///< not grabbed yet: a button is down, or the desktop has not opened the new pointer yet
    busy,    ///< another program has grabbed it
    driven   ///< the record is in effect
};

class DrivenMouse;

/// Called from within the mouse's functions; may call it, but must not destroy it.
class MouseListener {
  public:
    virtual ~MouseListener() = default;
    /// state(), running() or both have changed.
    virtual void mouseChanged(DrivenMouse& mouse) = 0;
    /// An input, 1 to 9, went down or up; 8 and 9, a notch of the wheel, only go down.
    virtual void inputChanged(DrivenMouse& mouse, std::uint8_t input, bool pressed) = 0;
    /// A button went down or up, whether it is an input or not. Keys are not reported: they may be a
    /// keyboard's.
    virtual void codeChanged(DrivenMouse& mouse, std::uint16_t code, bool pressed) = 0;
};

class DrivenMouse final : engine::Output, FrameTaker {
  public:
    /// All arguments must outlive the object.
    DrivenMouse(Loop& loop, SharedKeyboard& keyboard, MouseListener& listener);
    ~DrivenMouse() override;
    DrivenMouse(const DrivenMouse&) = delete;
    DrivenMouse& operator=(const DrivenMouse&) = delete;

    /// Returns false and keeps the old record if the bytes are not a record (engine::Engine::setRecord).
    [[nodiscard]] bool setRecord(std::span<const std::uint8_t> record);
    void setOptions(const engine::Options& options);
    [[nodiscard]] const engine::Options& options() const { return m_options; }

    /// Opens the nodes, the mouse itself first, and grabs them as soon as all their keys and buttons are up.
    /// Replaces earlier nodes. Returns false with a short reason if a node cannot be opened or the pointer
    /// cannot be created.
    [[nodiscard]] bool attach(const std::vector<std::string>& nodes, std::string& reason);
    /// Releases all keys and the nodes, so that the mouse works as a plain one again. Keeps the running
    /// profile and stage.
    void detach();
    /// The paths of attach(); empty after detach() and if the mouse is gone.
    [[nodiscard]] std::vector<std::string> nodes() const;

    [[nodiscard]] MouseState state() const { return m_state; }
    [[nodiscard]] engine::Running running() const { return m_engine.running(); }
    /// Bit 0 is input 1.
    [[nodiscard]] std::uint16_t pressedInputs() const { return m_pressed; }

    /// When to call wake(); std::nullopt if not at all.
    [[nodiscard]] std::optional<engine::Time> nextWake() const;
    void wake(engine::Time now);

  private:
    struct NodeWatcher;

    void nodeReady(NodeWatcher& watcher);
    void tryToGrab();
    void ungrabAll();
    void setState(MouseState state);
    void showPressed(const input_event& event);

    void frame(std::span<const input_event> events, engine::Time when) override;
    void write(engine::Device device, std::span<const input_event> frame) override;
    void runs(const engine::Running& running) override;

    Loop& m_loop;
    SharedKeyboard& m_keyboard;
    MouseListener& m_listener;
    engine::Options m_options;
    engine::Engine m_engine;
    std::vector<std::unique_ptr<NodeWatcher>> m_nodes;
    std::unique_ptr<OutputDevice> m_pointer;
    std::optional<engine::Time> m_settled; ///< when the desktop should have opened the pointer
    MouseState m_state = MouseState::absent;
    std::uint16_t m_pressed = 0;
};

} // namespace quorvi::inputd
