// A second engine, written from the first one's contract, not its code: one class with lists and maps, which
// reads the record at its offsets and ignores memory use and speed.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "engine/Witness.h"

namespace quorvi::test {

class PlainMouse {
  public:
    PlainMouse();

    bool setRecord(std::span<const std::uint8_t> bytes, std::int64_t now);
    void setOptions(const engine::Options& options, std::int64_t now);
    void input(const std::vector<input_event>& frame, std::int64_t now);
    void wake(std::int64_t now);
    void releaseAll(std::int64_t now);
    [[nodiscard]] std::optional<std::int64_t> nextWake() const;
    [[nodiscard]] engine::Running running() const;

    std::vector<Change> changes;

  private:
    struct Step {
        int command = 0;
        int argument = 0;
        std::int64_t delay = 0;
    };
    struct Macro {
        int id = 0;
        std::vector<int> bytes;
        std::vector<Step> steps;
        std::size_t next = 0;
        std::int64_t due = 0;
        std::vector<int> down;
    };
    struct Button { ///< of the mouse, while it is down
        int command = 0;
        std::vector<int> keys;
        std::int64_t due = 0; ///< of the next notch
    };
    struct DoubleClick {
        int changes = 0; ///< that have been made, of four
        bool isReleased = false;
        bool waits = true;
        std::int64_t due = 0;
    };

    static constexpr std::int64_t millisecond = 1000;

    void come(std::int64_t now);
    /// The key of a usage; 0 for one without a key.
    [[nodiscard]] static int usageKey(int usage);
    [[nodiscard]] int at(std::size_t offset) const { return m_bytes[offset]; }
    [[nodiscard]] bool isUsed(int profile) const;
    [[nodiscard]] std::size_t profileAt(int profile) const { return 212 + 56 * std::size_t(profile - 1); }
    [[nodiscard]] int stageCount() const;
    [[nodiscard]] int firstStageUnless(int stage) const;
    void startProfile();
    void goToProfile(int profile);
    void goBeside(int direction);

    void emit(int type, int code, std::int64_t value);
    void keyDown(int code);
    void keyUp(int code);
    void buttonDown(int input);
    void buttonUp(int input);
    void once(int command, int param1);
    void notch(int input, std::int64_t count, std::int64_t parts);
    void moved(std::int64_t x, std::int64_t y);
    [[nodiscard]] double handSpeed(std::int64_t x, std::int64_t y);
    void scroll(int command, std::int64_t count, std::int64_t parts);
    [[nodiscard]] std::vector<int> keysOf(int command, int param1, int param2) const;
    void startMacro(int id);
    [[nodiscard]] std::optional<std::vector<int>> macroBytes(int id, std::int64_t* delay) const;
    void playMacros();
    void endMacro(std::optional<Macro>& macro);
    void wakeClicks();

    std::vector<int> m_bytes; ///< empty without a record
    engine::Options m_options;
    std::optional<std::int64_t> m_callers;
    std::int64_t m_now = 0;
    int m_profile = 0;
    int m_stage = 0;
    std::map<int, int> m_counts;     ///< of keys that are down
    std::map<int, int> m_codesDown;  ///< what the mouse holds: its input, or -1
    std::map<int, Button> m_buttons; ///< by input
    std::map<int, DoubleClick> m_clicks;
    std::vector<std::optional<Macro>> m_macros{4};
    std::int64_t m_restX = 0;
    std::int64_t m_restY = 0;
    std::optional<std::int64_t> m_lastMove;
    std::int64_t m_since = 0;
    double m_way = 0;
    double m_share = 0;
};

} // namespace quorvi::test
