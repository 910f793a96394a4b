// Records the engine's output, and checks that it is valid for a kernel and a desktop.
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "engine/Devices.h"
#include "engine/Engine.h"
#include "engine/Event.h"
#include "engine/TestRecord.h"

namespace quorvi::test {

/// One change, without its SYN_REPORT.
struct Change {
    std::int64_t at = 0; ///< microseconds
    engine::Device device{};
    std::uint16_t type = 0;
    std::uint16_t code = 0;
    std::int32_t value = 0;

    bool operator==(const Change&) const = default;
};

inline void PrintTo(const Change& change, std::ostream* stream) {
    *stream << change.at << "us " << (change.device == engine::Device::Pointer ? "pointer " : "keyboard ")
            << change.type << ' ' << change.code << ' ' << change.value;
}

struct Frame {
    std::int64_t at = 0;
    engine::Device device{};
    std::vector<Change> changes;
};

class Witness : public engine::Output {
  public:
    void write(engine::Device device, std::span<const input_event> frame) override {
        ASSERT_GE(frame.size(), 2U);
        ASSERT_LE(frame.size(), 64U);
        EXPECT_EQ(frame.back().type, EV_SYN);
        EXPECT_EQ(frame.back().code, SYN_REPORT);
        frames.push_back({timeOf(frame.back()), device, {}});
        for (const auto& event : frame.first(frame.size() - 1))
            add(device, event);
    }
    void runs(const engine::Running& now) override {
        EXPECT_TRUE(running.empty() || running.back() != now) << "nothing has changed";
        running.push_back(now);
    }

    /// The codes that are down.
    [[nodiscard]] std::vector<int> down() const {
        std::vector<int> codes;
        for (const auto& [code, isDown] : m_down)
            if (isDown)
                codes.push_back(code);
        return codes;
    }

    std::vector<Frame> frames;
    std::vector<Change> changes;
    std::vector<engine::Running> running;

  private:
    static std::int64_t timeOf(const input_event& event) {
        return std::int64_t{event.input_event_sec} * 1'000'000 + event.input_event_usec;
    }

    void add(engine::Device device, const input_event& event) {
        const Change change{timeOf(event), device, event.type, event.code, event.value};
        EXPECT_EQ(change.at, frames.back().at);
        for (const Change& other : frames.back().changes)
            EXPECT_FALSE(other.type == change.type && other.code == change.code) << "twice in one frame";
        if (event.type == EV_KEY)
            addKey(device, event);
        else
            EXPECT_TRUE(event.type == EV_REL && device == engine::Device::Pointer && event.value != 0);
        frames.back().changes.push_back(change);
        changes.push_back(change);
    }

    void addKey(engine::Device device, const input_event& event) {
        engine::Device offering{};
        EXPECT_TRUE(engine::findDeviceOfKey(event.code, offering) && offering == device) << event.code;
        EXPECT_NE(m_down[event.code], event.value == 1) << "code " << event.code << " changes to what it is";
        EXPECT_TRUE(event.value == 0 || event.value == 1);
        m_down[event.code] = event.value == 1;
    }

    std::map<int, bool> m_down;
};

/// A mouse with an engine, and a clock that wakes the engine in time.
class TestMouse {
  public:
    explicit TestMouse(const TestRecord& record = {}) { set(record); }

    void set(const TestRecord& record) { EXPECT_TRUE(engine.setRecord(record.bytes(), now)); }

    void frame(const std::vector<input_event>& events) { engine.input(events, now); }
    void key(int code, int value) { frame({event(EV_KEY, code, value)}); }
    void press(int input) { key(codeOf(input), 1); }
    void release(int input) { key(codeOf(input), 0); }
    void move(int x, int y) { frame({event(EV_REL, REL_X, x), event(EV_REL, REL_Y, y)}); }
    /// A notch of a wheel with high resolution.
    void turn(int input, int notches = 1) {
        const int signedNotches = input == 8 ? notches : -notches;
        frame(
            {event(EV_REL, REL_WHEEL, signedNotches), event(EV_REL, REL_WHEEL_HI_RES, signedNotches * 120)});
    }

    /// Waits, and wakes the engine with microsecond precision.
    void wait(std::chrono::microseconds time) {
        const auto end = now + time;
        for (auto next = engine.nextWake(); next && *next <= end; next = engine.nextWake()) {
            now = *next;
            engine.wake(now);
        }
        now = end;
    }

    [[nodiscard]] static input_event event(int type, int code, int value) {
        return engine::eventOf(static_cast<std::uint16_t>(type), static_cast<std::uint16_t>(code), value);
    }
    [[nodiscard]] int codeOf(int input) const {
        return options.buttonCodes[static_cast<std::size_t>(input - 1)];
    }

    Witness witness;
    engine::Engine engine{witness};
    engine::Options options;
    engine::Time now{0};
};

} // namespace quorvi::test
