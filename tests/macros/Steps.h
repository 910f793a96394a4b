// Macros written down as texts, so that a test shows them before and after.
#pragma once

#include <string>
#include <vector>

#include "model/Keys.h"
#include "model/Trees.h"

namespace quorvi::test {

struct TestStep {
    int command;
    int argument;
    int delay = 0;
    friend bool operator==(const TestStep&, const TestStep&) = default;
};

using TestMacro = std::vector<TestStep>;

[[nodiscard]] inline plist::Array stepsOf(const TestMacro& macro) {
    auto steps = plist::Array::create();
    for (const TestStep& step : macro)
        steps.append(dict({{"command", step.command}, {"argument", step.argument}, {"delay", step.delay}}));
    return steps;
}

[[nodiscard]] inline TestMacro macroOf(const plist::Array& steps) {
    TestMacro macro;
    for (std::size_t index = 0; index < steps.size(); ++index) {
        const auto step = steps.dictionary(index);
        macro.push_back({step.integer("command"), step.integer("argument"), step.integer("delay")});
    }
    return macro;
}

inline std::ostream& operator<<(std::ostream& stream, const TestStep& step) {
    return stream << step.command << ' ' << step.argument << " (" << step.delay << " ms)";
}

} // namespace quorvi::test
