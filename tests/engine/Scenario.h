// Behaviours of the engine as text: what the record holds, what goes in, what has to come out. The head of
// tests/data/engine/README.md says how they are written.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quorvi::test {

struct Scenario {
    std::string name;
    std::vector<std::string> setUp;
    std::vector<std::string> in;
    std::vector<std::string> out;
};

/// All of the file, in order.
[[nodiscard]] std::vector<Scenario> scenariosIn(const std::filesystem::path& file);

/// What comes out, in the words of the text.
[[nodiscard]] std::vector<std::string> outcomeOf(const Scenario& scenario);

} // namespace quorvi::test
