// Both conversions of the acceleration slider compared with a separately computed table, to the last bit.

#include <gtest/gtest.h>

#include <bit>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "editors/sensitivity/AccelerationScale.h"

namespace quorvi {
namespace {

struct Row {
    std::uint32_t input;
    std::uint32_t result;
};

/// The rows of one kind: 'p' from positions to factors, 'f' from factors to positions.
std::vector<Row> rowsOf(char kind) {
    std::ifstream table(QUORVI_TEST_DATA "/acceleration-table.txt");
    std::vector<Row> rows;
    for (std::string line; std::getline(table, line);) {
        std::istringstream words(line);
        std::string word;
        words >> word;
        if (word != std::string(1, kind))
            continue;
        while (words >> word)
            rows.push_back({static_cast<std::uint32_t>(std::stoul(word.substr(0, 8), nullptr, 16)),
                static_cast<std::uint32_t>(std::stoul(word.substr(8), nullptr, 16))});
    }
    return rows;
}

TEST(AccelerationTable, everyPositionInHundredthsGivesItsFactorToTheLastBit) {
    const auto rows = rowsOf('p');
    ASSERT_EQ(rows.size(), 1110U);
    for (const Row& row : rows) {
        const float position = std::bit_cast<float>(row.input);
        EXPECT_EQ(std::bit_cast<std::uint32_t>(sliderValueToAcceleration(position)), row.result) << position;
    }
}

TEST(AccelerationTable, everyFactorGivesItsPositionToTheLastBit) {
    const auto rows = rowsOf('f');
    ASSERT_EQ(rows.size(), 1164U);
    for (const Row& row : rows) {
        const float factor = std::bit_cast<float>(row.input);
        EXPECT_EQ(std::bit_cast<std::uint32_t>(accelerationToSliderValue(factor)), row.result) << factor;
    }
}

TEST(AccelerationTable, whatTheSliderHoldsIsWhatTheTableHolds) {
    const auto rows = rowsOf('p');
    for (int value = 0; value <= 1100; ++value)
        EXPECT_EQ(
            rows[static_cast<std::size_t>(value)].input, std::bit_cast<std::uint32_t>(float(value) / 100.0F));
}

TEST(AccelerationTable, whatIsNoNumberIsOutOfRange) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float infinity = std::numeric_limits<float>::infinity();
    for (const float nonsense : {nan, infinity, -infinity}) {
        EXPECT_EQ(sliderValueToAcceleration(nonsense), 0.0F);
        EXPECT_EQ(accelerationToSliderValue(nonsense), 5.0F);
    }
}

} // namespace
} // namespace quorvi
