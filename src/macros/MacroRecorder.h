// The recording of a macro: what the user presses and clicks becomes steps, and the time between two of them
// the delay of the earlier one. Nothing here knows of a window or a clock; whoever has them passes the steps,
// the selected row and the time.
#pragma once

#include <cstdint>
#include <optional>

#include "plist/Value.h"

namespace quorvi {

/// Where a recording writes.
struct RecordingTarget {
    plist::Array steps;    ///< of the current macro; nil when it has none
    std::int32_t row = -1; ///< the selected step, -1 for none; what a run of one step replaces
};

/// A time is in seconds of one clock. A clock that jumps makes a delay wrong and nothing else.
class MacroRecorder {
  public:
    /// Begins a run: one that appends steps, or one that replaces the selected step and is then to be
    /// stopped.
    void start(bool oneStep);
    void stop();

    [[nodiscard]] bool isRecording() const { return m_recording; }
    /// The run is, or the last one was, for one step.
    [[nodiscard]] bool isForOneStep() const { return m_oneStep; }

    /// Records a key event: first the modifier keys that are held or let go since the last event, in the
    /// order of their bits, Caps Lock as a press and a release whichever way it turned, and then the key
    /// itself. The key is a virtual key code, 255 for none; the modifiers are the modifier word. False when
    /// there are no steps to record into. Any other event counts, and ends a run of one step, even if it left
    /// no step: a modifier held from before that is let go, a key for a macro that is full.
    bool receiveKey(
        const RecordingTarget& target, std::uint8_t key, std::uint16_t modifiers, bool goingDown, double now);
    /// Records the step of a mouse event (commandOfMouseEvent()).
    void receiveMouse(const RecordingTarget& target, std::uint32_t code, double now);

    /// Escape is held, by itself and since the last event: who goes on holding it wants the run to end. Never
    /// so in a run of one step, which has ended then.
    [[nodiscard]] bool isEscapeHeld() const { return m_heldEscape.has_value(); }
    /// Takes the press of the held Escape out of the steps again, so that they are as they were before it;
    /// does nothing while it is not held.
    void takeBackEscape(const plist::Array& steps);

    /// Replaces the step at the index, or appends one where there is none, for -1 for instance; a macro that
    /// is full stays as it is. A replaced step stays a press or a release, and its partner is replaced with
    /// it, so that a pair stays a pair. Only keys and mouse buttons replace a step.
    void setStep(
        const plist::Array& steps, std::uint32_t code, std::uint8_t argument, std::int32_t index, double now);
    /// Appends a step, however many there are. The step before it gets the delay; when this is the first of
    /// the run, as if 50 ms had passed.
    void appendStep(const plist::Array& steps, std::uint32_t code, std::uint8_t argument, double now);

  private:
    [[nodiscard]] std::int32_t indexIn(const RecordingTarget& target) const;
    void recordModifiers(const RecordingTarget& target, std::uint16_t modifiers, double now);
    void recordKey(const RecordingTarget& target, bool down, std::uint8_t virtualKey, double now);
    void holdEscape(const RecordingTarget& target, double now);

    /// What the press of Escape found.
    struct HeldEscape {
        std::size_t stepsBefore;
        plist::Value delayBefore; ///< of the last of them; nothing when there was none
    };

    bool m_recording = false;
    bool m_oneStep = false;
    std::uint16_t m_lastModifiers = 0;
    std::optional<double> m_lastTime;       ///< when the run's last step was appended
    std::optional<HeldEscape> m_heldEscape; ///< while Escape is held
};

/// Every step waits that long, in milliseconds, except the last, which has nothing to wait for.
void setDelayForAllSteps(const plist::Array& steps, std::int32_t milliseconds);

} // namespace quorvi
