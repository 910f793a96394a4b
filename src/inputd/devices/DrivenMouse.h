// One mouse that its user has given us: its nodes, its engine, the pointer that stands for it.
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
    absent,  ///< not plugged in, or let go of
    waiting, ///< plain still: a button is down, or the pointer is new and the desktop has not seen it yet
    busy,    ///< another program has it for itself
    driven   ///< the record counts
};

class DrivenMouse;

/// Is told from within the calls of a mouse; may call it, but not destroy it.
class MouseListener {
  public:
    virtual ~MouseListener() = default;
    /// state(), running() or both are others than before.
    virtual void mouseChanged(DrivenMouse& mouse) = 0;
    /// An input, 1 to 9, went down or up; 8 and 9, a notch of the wheel, only go down.
    virtual void inputChanged(DrivenMouse& mouse, std::uint8_t input, bool pressed) = 0;
    /// A button went down or up, whether it is an input or not. Keys are told nobody: they may be a
    /// keyboard's.
    virtual void codeChanged(DrivenMouse& mouse, std::uint16_t code, bool pressed) = 0;
};

class DrivenMouse final : engine::Output, FrameTaker {
  public:
    /// All of them must live longer.
    DrivenMouse(Loop& loop, SharedKeyboard& keyboard, MouseListener& listener);
    ~DrivenMouse() override;
    DrivenMouse(const DrivenMouse&) = delete;
    DrivenMouse& operator=(const DrivenMouse&) = delete;

    /// False, with the old one kept, when they are no record (engine::Engine::setRecord).
    [[nodiscard]] bool setRecord(std::span<const std::uint8_t> record);
    void setOptions(const engine::Options& options);
    [[nodiscard]] const engine::Options& options() const { return m_options; }

    /// Opens the nodes, of which the first is the mouse itself, and grabs them as soon as nothing on them is
    /// down. Takes the place of earlier nodes. False when one cannot be opened or no pointer be made, with
    /// the reason in a few words.
    [[nodiscard]] bool attach(const std::vector<std::string>& nodes, std::string& reason);
    /// Releases everything and lets go of the nodes: a plain mouse again. What runs (profile, stage) is kept.
    void detach();
    /// The paths of attach(); empty after detach() and when the mouse is gone.
    [[nodiscard]] std::vector<std::string> nodes() const;

    [[nodiscard]] MouseState state() const { return m_state; }
    [[nodiscard]] engine::Running running() const { return m_engine.running(); }
    /// Bit 0 is input 1.
    [[nodiscard]] std::uint16_t pressedInputs() const { return m_pressed; }

    /// When wake() has to be called; nothing when it need not.
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
    std::optional<engine::Time> m_settled; ///< when the desktop will have seen the pointer
    MouseState m_state = MouseState::absent;
    std::uint16_t m_pressed = 0;
};

} // namespace quorvi::inputd
