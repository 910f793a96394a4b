#include "engine/Scenario.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include "engine/EventNames.h"
#include "engine/Witness.h"
#include "model/Commands.h"

namespace quorvi::test {

namespace {

using Words = std::istringstream;

std::chrono::milliseconds millisecondsIn(const std::string& word) {
    EXPECT_TRUE(word.ends_with("ms")) << word;
    return std::chrono::milliseconds(std::stoi(word));
}

std::vector<std::uint8_t> bytesIn(Words& words) {
    std::vector<std::uint8_t> bytes;
    for (std::string word; words >> word;)
        bytes.push_back(static_cast<std::uint8_t>(std::stoi(word, nullptr, 16)));
    return bytes;
}

std::vector<int> numbersIn(Words& words) {
    std::vector<int> numbers;
    for (int number = 0; words >> number;)
        numbers.push_back(number);
    numbers.resize(std::max<std::size_t>(numbers.size(), 2));
    return numbers;
}

/// The command with the longest title that begins the text.
const Command* commandIn(const std::string& text) {
    const Command* found = nullptr;
    for (const Command& command : commandTable())
        if (text.starts_with(command.title) &&
            (!found || std::string(found->title).size() < std::string(command.title).size()))
            found = &command;
    return found;
}

class Run {
  public:
    std::vector<std::string> outcome(const Scenario& scenario) {
        for (const auto& line : scenario.setUp)
            setUp(line);
        start();
        for (const auto& line : scenario.in)
            takeIn(line);
        return m_lines;
    }

  private:
    /// Frames and running states in order.
    class Lines : public engine::Output {
      public:
        Lines(Run& run) : m_run(run) {}
        void write(engine::Device device, std::span<const input_event> frame) override {
            m_run.m_checks.write(device, frame);
            std::string line = device == engine::Device::Pointer ? "pointer" : "keyboard";
            for (const auto& event : frame.first(frame.size() - 1))
                line += " " + nameOfEvent(event.type, event.code) + " " + std::to_string(event.value);
            m_run.say(line);
        }
        void runs(const engine::Running& now) override {
            m_run.say("runs profile " + std::to_string(now.profile) + " stage " + std::to_string(now.stage) +
                      " " + std::to_string(now.dpiX) + "x" + std::to_string(now.dpiY));
        }

      private:
        Run& m_run;
    };

    void say(const std::string& what) {
        if (m_isStarted)
            m_lines.push_back(
                std::to_string(std::chrono::duration_cast<std::chrono::milliseconds>(m_passed).count()) +
                "ms " + what);
    }

    void start() {
        m_engine.setOptions(m_options, m_now);
        EXPECT_TRUE(m_engine.setRecord(m_record.bytes(), m_now));
        m_isStarted = true;
    }

    void setUp(const std::string& line) {
        Words words(line);
        std::string first;
        words >> first;
        int profile = 1;
        if (first == "profile")
            words >> profile >> first;
        if (first == "gone")
            m_record.raw().profileNames[static_cast<std::size_t>(profile - 1)].name.fill(0xFF);
        else if (first == "stages")
            setStages(profile, words);
        else if (first == "macro")
            setMacro(words);
        else if (first == "active")
            setActive(words);
        else if (first.ends_with(":"))
            setFunction(profile, std::stoi(first), line.substr(line.find(": ") + 2));
        else
            setOption(first, words);
    }

    void setStages(int profile, Words& words) {
        std::vector<std::pair<int, int>> dpi;
        int defaultStage = 1;
        for (std::string word; words >> word;) {
            if (word == "default") {
                words >> defaultStage;
                break;
            }
            const auto by = word.find('x');
            const int x = std::stoi(word);
            dpi.emplace_back(x, by == std::string::npos ? x : std::stoi(word.substr(by + 1)));
        }
        m_record.stages(profile, dpi, defaultStage);
    }

    void setMacro(Words& words) {
        std::string macroId;
        std::uint32_t delay = 0;
        words >> macroId;
        if (std::string after; !macroId.ends_with(":"))
            words >> after >> delay >> after;
        const int id = std::stoi(macroId);
        const auto slot = m_slots.try_emplace(id, static_cast<int>(m_slots.size())).first->second;
        m_record.macro(slot, id, bytesIn(words), delay);
    }

    void setActive(Words& words) {
        const auto numbers = numbersIn(words);
        m_record.active(numbers[0], numbers[1]);
    }

    void setFunction(int profile, int input, const std::string& function) {
        const Command* command = commandIn(function);
        ASSERT_TRUE(command) << function;
        Words rest(function.substr(std::string(command->title).size()));
        const auto parameters = numbersIn(rest);
        m_record.function(profile, input, command->code, parameters[0], parameters[1]);
    }

    void setOption(const std::string& name, Words& words) {
        std::string word;
        int input = 0;
        if (name == "sensor")
            words >> m_options.sensorDpi;
        else if (name == "acceleration")
            words >> m_options.acceleration[0];
        else if (name == "letters")
            std::swap(m_options.letterKeys[0], m_options.letterKeys['q' - 'a']);
        else if (name == "code" && words >> input >> word)
            m_options.buttonCodes[static_cast<std::size_t>(input - 1)] = codeOfEvent(word).second;
        else if (name == "quiet" || name == "loud")
            m_options.macrosAreQuiet = name == "quiet";
        else
            ADD_FAILURE() << "nobody knows " << name;
    }

    void takeIn(const std::string& line) {
        Words words(line);
        std::string first;
        words >> first;
        if (first == "press" || (first == "release" && line != "release all"))
            button(words, first == "press");
        else if (first == "turn")
            turn(words);
        else if (first == "move")
            move(words);
        else if (first == "frame")
            frame(line.substr(line.find(' ')));
        else
            takeTime(line, first, words);
    }

    void takeTime(const std::string& line, const std::string& first, Words& words) {
        std::string word;
        if (line == "release all") {
            m_engine.releaseAll(m_now);
        } else if (first == "set") {
            setUp(line.substr(line.find(' ') + 1));
            m_engine.setOptions(m_options, m_now);
            EXPECT_TRUE(m_engine.setRecord(m_record.bytes(), m_now));
        } else if (first == "sleep" && words >> word) {
            pass(millisecondsIn(word));
            m_engine.wake(m_now);
        } else if (first == "clock" && words >> word) {
            m_now += millisecondsIn(word);
            m_engine.wake(m_now);
        } else {
            wait(millisecondsIn(first));
        }
    }

    void button(Words& words, bool down) {
        int input = 0;
        words >> input;
        send({event(EV_KEY, m_options.buttonCodes[static_cast<std::size_t>(input - 1)], down ? 1 : 0)});
    }

    void turn(Words& words) {
        int input = 0;
        int notches = 1;
        words >> input >> notches;
        notches = std::max(notches, 1) * (input == 8 ? 1 : -1);
        send({event(EV_REL, REL_WHEEL, notches), event(EV_REL, REL_WHEEL_HI_RES, notches * 120)});
    }

    void move(Words& words) {
        const auto counts = numbersIn(words);
        send({event(EV_REL, REL_X, counts[0]), event(EV_REL, REL_Y, counts[1])});
    }

    void frame(std::string events) {
        std::ranges::replace(events, ',', ' ');
        Words words(events);
        std::vector<input_event> made;
        std::string name;
        for (int value = 0; words >> name >> value;) {
            const auto [type, code] = codeOfEvent(name);
            made.push_back(event(type, code, value));
        }
        send(made);
    }

    static input_event event(int type, int code, int value) { return TestMouse::event(type, code, value); }
    void send(const std::vector<input_event>& events) { m_engine.input(events, m_now); }

    void pass(std::chrono::microseconds time) {
        m_now += time;
        m_passed += time;
    }

    void wait(std::chrono::microseconds time) {
        const auto end = m_passed + time;
        for (auto next = m_engine.nextWake(); next && *next - m_now <= end - m_passed;
             next = m_engine.nextWake()) {
            pass(*next - m_now);
            m_engine.wake(m_now);
        }
        pass(end - m_passed);
    }

    TestRecord m_record;
    engine::Options m_options;
    std::map<int, int> m_slots; ///< of macros, by their identifiers
    bool m_isStarted = false;
    engine::Time m_now{1'000'000'000};
    std::chrono::microseconds m_passed{0};
    std::vector<std::string> m_lines;
    Witness m_checks;
    Lines m_output{*this};
    engine::Engine m_engine{m_output};
};

} // namespace

std::vector<Scenario> scenariosIn(const std::filesystem::path& file) {
    std::vector<Scenario> scenarios;
    int block = 0;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with("#"))
            continue;
        if (line.starts_with("== ")) {
            scenarios.push_back({line.substr(3), {}, {}, {}});
            block = 0;
        } else if (line.empty()) {
            ++block;
        } else if (!scenarios.empty()) {
            Scenario& last = scenarios.back();
            (block == 0 ? last.setUp : block == 1 ? last.in : last.out).push_back(line);
        }
    }
    return scenarios;
}

std::vector<std::string> outcomeOf(const Scenario& scenario) {
    return Run().outcome(scenario);
}

} // namespace quorvi::test
