// What the mouse's own processor would do: presses, turns and moves go in with their time, and what the
// record makes of them comes out.
//
// It has no clock, no file, no thread and no bus, and allocates nothing but in its constructor. Nothing that
// it is fed makes it crash, hang or leave a key down: any event, any value, any time, any record.
//
// Who runs it
//  - hands it whole frames as they were read, each with the time of its events (EVIOCSCLOCKID
//  CLOCK_MONOTONIC),
//    and writes each frame that comes out with one write() to the device that it is for;
//  - keeps one timer, armed for nextWake() after every call, and off when there is none: then nothing is held
//    that needs time, and an idle mouse wakes nobody;
//  - grabs the mouse only while all its buttons are up. The engine never learns of a press before that, and
//    takes its release for nothing;
//  - after SYN_DROPPED hands it what libevdev says has changed meanwhile, as frames like any other;
//  - calls releaseAll() before the computer sleeps, when the mouse is unplugged or taken away, and when it
//  lets
//    go of the mouse: buttons that are still down then count as up, and their release is taken for nothing;
//  - makes the two devices as Devices.h says.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

#include "engine/Clock.h"
#include "engine/Options.h"
#include "engine/Output.h"

namespace quorvi::engine {

/// Since any origin, of a clock that the caller keeps to. A time before that of the last call counts as that
/// of the last call, and what waits goes on waiting from there.
using Time = std::chrono::microseconds;

class Engine {
  public:
    /// Without a record everything passes unchanged. The output must live longer.
    explicit Engine(Output& output);
    ~Engine();
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    /// Takes the 13232 bytes over. False, with the old record kept, when it has another size, no profile, or
    /// a profile whose number is not its slot's.
    ///
    /// Runs the record's active profile and stage, except when the record's settings (its profile, stage and
    /// sensitivity) are those of the record before: then what the mouse's own buttons chose stays. What is
    /// held stays held until its button goes up, so that a slider that is being dragged can write records. A
    /// macro that runs goes on when the new record has the same one, and ends otherwise.
    [[nodiscard]] bool setRecord(std::span<const std::uint8_t> record, Time now);

    /// What is held stays held until the code that it was pressed by goes up.
    void setOptions(const Options& options, Time now);

    /// One frame of the mouse, with or without its SYN_REPORT. What it comes to has been written when this
    /// returns.
    void input(std::span<const input_event> frame, Time now);

    /// When the engine wants wake() to be called, in the caller's time; nothing when it does not.
    [[nodiscard]] std::optional<Time> nextWake() const;

    /// Does what is due: macros, scrolling, clicks. Too early, or without need, it does nothing. When it
    /// comes late nothing is made up for: the next step or notch waits its whole delay.
    void wake(Time now);

    /// Releases every key and button, ends every macro, stops scrolling, and forgets fractions of counts.
    void releaseAll(Time now);

    [[nodiscard]] Running running() const;

    /// A button or key of the output is down, a macro runs, or a button scrolls.
    [[nodiscard]] bool isBusy() const;

  private:
    class Core;
    std::unique_ptr<Core> m_core;
};

} // namespace quorvi::engine
