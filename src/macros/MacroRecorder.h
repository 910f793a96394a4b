// Records a macro: presses and clicks become steps, and the time between two of them becomes the earlier
// one's delay. This code uses no window and no clock: the caller passes the steps, the selected row and the
// time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "plist/Value.h"

namespace quorvi {

/// Where a recording writes.
struct RecordingTarget {
    plist::Array steps;    ///< of the current macro; nil if there is none
    std::int32_t row = -1; ///< the selected step, which a run of one step replaces; -1 for none
};

/// Times are in seconds of one clock. If the clock jumps, only a delay is wrong.
class MacroRecorder {
  public:
    /// Begins a run that appends steps, or one that replaces the selected step; the caller stops the latter
    /// after that step.
    void start(bool oneStep);
    /// Begins a run that inserts its steps before the step at the index, or appends them if there is none.
    /// The step before them keeps its delay. The run's last step gets the delay that is assumed before a
    /// run's first step.
    void startAt(std::size_t index);
    void stop();

    [[nodiscard]] bool isRecording() const { return m_recording; }
    /// Whether the current or last run is for one step.
    [[nodiscard]] bool isForOneStep() const { return m_oneStep; }
    /// The index of the run's next step, given the number of steps.
    [[nodiscard]] std::size_t nextPlace(std::size_t count) const;

    /// Records a key event: first the modifier keys pressed or released since the last event, in the order of
    /// their bits (Caps Lock as a press and a release, whether it was turned on or off), then the key itself.
    /// The key is a virtual key code, 255 for none; the modifiers are the modifier word. Returns false if
    /// there are no steps to record into. Any other event counts and ends a run of one step, even if it
    /// leaves no step, such as the release of a modifier held before the run, or a key when the macro is
    /// full.
    bool receiveKey(
        const RecordingTarget& target, std::uint8_t key, std::uint16_t modifiers, bool goingDown, double now);
    /// Records the step of a mouse event (commandOfMouseEvent()).
    void receiveMouse(const RecordingTarget& target, std::uint32_t code, double now);

    /// Sets which modifiers are held or locked before the next event. If Caps Lock is locked at the run's
    /// first event, it counts as on before the run.
    void findModifiers(std::uint16_t modifiers);
    /// If Caps Lock was on before the run, its first event left a press and a release that the user did not
    /// type. Returns the index of that press, which is valid until the steps change. std::nullopt for a run
    /// of one step, and if the macro had no room for both.
    [[nodiscard]] std::optional<std::size_t> placeOfFoundCapsLock() const { return m_foundCapsLock; }

    /// Whether Escape alone is held since the last event: holding it longer ends the run. Always false in a
    /// run of one step, which has ended by then.
    [[nodiscard]] bool isEscapeHeld() const { return m_heldEscape.has_value(); }
    /// Removes the held Escape's press, so that the steps are as before it; does nothing if Escape is not
    /// held.
    void takeBackEscape(const plist::Array& steps);

    /// Replaces the step at the index, or appends one if there is none (as for -1), unless the macro is full.
    /// A replaced step stays a press or a release, and its partner is replaced with it, so a pair stays a
    /// pair. Only keys and mouse buttons replace a step.
    void setStep(
        const plist::Array& steps, std::uint32_t code, std::uint8_t argument, std::int32_t index, double now);
    /// Appends a step, or inserts it in a run that inserts, even beyond the limit. The step before it gets
    /// the delay; for a run's first step, as if 50 ms had passed.
    void appendStep(const plist::Array& steps, std::uint32_t code, std::uint8_t argument, double now);

  private:
    [[nodiscard]] std::int32_t indexIn(const RecordingTarget& target) const;
    void recordCapsLock(const RecordingTarget& target, double now);
    void recordModifiers(const RecordingTarget& target, std::uint16_t modifiers, double now);
    void recordKey(const RecordingTarget& target, bool down, std::uint8_t virtualKey, double now);
    void holdEscape(const RecordingTarget& target, double now);

    /// The state before the press of Escape.
    struct HeldEscape {
        std::size_t stepsBefore;
        std::size_t place;        ///< the index of the press
        plist::Value delayBefore; ///< of the step before it; an empty value without such a step
    };

    bool m_recording = false;
    bool m_oneStep = false;
    std::optional<std::size_t> m_place; ///< where the next step is inserted; appended without it
    std::uint16_t m_lastModifiers = 0;
    std::optional<std::uint16_t> m_foundModifiers; ///< before the run's first event
    bool m_hasReceivedKey = false;                 ///< in this run
    std::optional<std::size_t> m_foundCapsLock;
    std::optional<double> m_lastTime;       ///< when the run's last step was appended
    std::optional<HeldEscape> m_heldEscape; ///< while Escape is held
};

} // namespace quorvi
