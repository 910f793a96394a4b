// The behaviours of tests/data/engine, one test each.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

#include "engine/Scenario.h"

namespace quorvi::test {

void PrintTo(const Scenario& scenario, std::ostream* stream) {
    *stream << scenario.name;
}

namespace {

std::vector<Scenario> allScenarios() {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(QUORVI_TEST_DATA "/engine"))
        if (entry.path().extension() == ".txt")
            files.push_back(entry.path());
    std::ranges::sort(files);
    std::vector<Scenario> scenarios;
    for (const auto& file : files)
        for (auto& scenario : scenariosIn(file)) {
            scenario.name = file.stem().string() + ": " + scenario.name;
            scenarios.push_back(std::move(scenario));
        }
    return scenarios;
}

std::string testName(const testing::TestParamInfo<Scenario>& info) {
    std::string name;
    bool atWord = true;
    for (const char c : info.param.name) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0)
            name += atWord ? static_cast<char>(std::toupper(static_cast<unsigned char>(c))) : c;
        atWord = std::isalnum(static_cast<unsigned char>(c)) == 0;
    }
    return name;
}

class Behaviour : public testing::TestWithParam<Scenario> {};

TEST_P(Behaviour, IsAsWritten) {
    ASSERT_FALSE(GetParam().in.empty());
    EXPECT_EQ(outcomeOf(GetParam()), GetParam().out);
}

INSTANTIATE_TEST_SUITE_P(Engine, Behaviour, testing::ValuesIn(allScenarios()), testName);

TEST(Behaviours, AreThere) {
    EXPECT_GE(allScenarios().size(), 60U);
}

} // namespace
} // namespace quorvi::test
