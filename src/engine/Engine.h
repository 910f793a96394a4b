// Does the work of the mouse's own processor: turns timed presses, turns and moves into the output that the
// record defines.
//
// It uses no clock, file, thread or bus, and allocates only in its constructor. No input makes it crash, hang
// or leave a key down: any event, value, time and record is safe.
//
// Its caller
// - passes it whole frames as read, each with the time of its events (EVIOCSCLOCKID CLOCK_MONOTONIC), and
//   writes each output frame with one write() to its device;
// - keeps one timer, set to nextWake() after every call, and off for std::nullopt: an idle mouse then causes
//   no wake-ups;
// - grabs the mouse only while all its buttons are up. The engine does not see earlier presses, and ignores
//   their releases;
// - after SYN_DROPPED passes it the changes that libevdev reports, as ordinary frames;
// - calls releaseAll() before the computer sleeps, when the mouse is unplugged or taken away, and when it
//   releases the mouse: buttons that are still down then count as up, and their release is ignored;
// - creates the two devices with the capabilities in Devices.h.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "engine/Clock.h"
#include "engine/Options.h"
#include "engine/Output.h"

namespace quorvi::engine {

/// Time since any origin, of a clock that the caller does not change. A time before the last call's counts as
/// the last call's, and waits continue from there.
using Time = std::chrono::microseconds;

class Engine {
  public:
    /// Without a record everything passes unchanged. The output must outlive the engine.
    explicit Engine(Output& output);
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// Copies the 13232 bytes. Returns false and keeps the old record if the new one has another size, no
    /// profile, or a profile whose number is not its slot's.
    ///
    /// Runs the record's active profile and stage, unless the record's settings (its profile, stage and
    /// sensitivity) are unchanged: then the choice made with the mouse's own buttons stays. Held keys stay
    /// down until their button is released, so that records can be written while a slider is dragged. A
    /// running macro continues if the new record has the same one, and ends otherwise.
    [[nodiscard]] bool setRecord(std::span<const std::uint8_t> record, Time now);

    /// Held keys stay down until the code that pressed them is released.
    void setOptions(const Options& options, Time now);

    /// Handles one frame of the mouse, with or without its SYN_REPORT. All its output is written before this
    /// returns.
    void input(std::span<const input_event> frame, Time now);

    /// When to call wake(), in the caller's time; std::nullopt if not at all.
    [[nodiscard]] std::optional<Time> nextWake() const;

    /// Runs due macro steps, scrolling and clicks. Does nothing if called too early. A late call is not
    /// caught up: the next step or notch waits its whole delay.
    void wake(Time now);

    /// Releases every key and button, ends every macro, stops scrolling, and forgets fractions of counts.
    void releaseAll(Time now);

    [[nodiscard]] Running running() const;

    /// Whether an output button or key is down, a macro runs, or a button scrolls.
    [[nodiscard]] bool isBusy() const;

  private:
    class Core;
    std::unique_ptr<Core> m_core;
};

} // namespace quorvi::engine
