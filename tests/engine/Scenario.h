// Behaviours of the engine as text: the record, the input and the expected output.
// tests/data/engine/README.md describes the format.
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

/// All scenarios of the file, in order.
[[nodiscard]] std::vector<Scenario> scenariosIn(const std::filesystem::path& file);

/// The output in the text's words.
[[nodiscard]] std::vector<std::string> outcomeOf(const Scenario& scenario);

} // namespace quorvi::test
