#include "model/StepCode.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "model/Trees.h"

namespace quorvi {
namespace {

using namespace test;
using plist::Array;
using plist::Dictionary;
using plist::Value;

constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

Bytes encode(const Array& steps) {
    std::array<std::uint8_t, limits::stepBytes> bytes = {};
    const auto used = encodeSteps(steps, bytes);
    return {bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(used)};
}

Value decode(const Bytes& bytes) {
    return decodeSteps(bytes);
}

/// As many steps as given that take no argument.
Array plainSteps(std::size_t count) {
    const auto steps = list();
    for (std::size_t i = 0; i < count; ++i)
        steps.append(dict({{"command", 128}}));
    return steps;
}

struct EncodeCase {
    const char* name;
    Dictionary step;
    Bytes bytes;
};

void PrintTo(const EncodeCase& encodeCase, std::ostream* out) {
    *out << encodeCase.name;
}

Dictionary step(int command) {
    return dict({{"command", command}});
}
Dictionary step(int command, int argument) {
    return dict({{"command", command}, {"argument", argument}});
}
Dictionary pause(int delay) {
    return dict({{"command", 128}, {"delay", delay}});
}

class StepEncoding : public testing::TestWithParam<EncodeCase> {};

TEST_P(StepEncoding, givesTheBytes) {
    EXPECT_EQ(encode(list({GetParam().step})), GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(Commands, StepEncoding,
    testing::Values(EncodeCase{"release_narrow", step(0, 255), {0, 255}},
        EncodeCase{"release_300", step(0, 300), {2, 0x01, 0x2C}},
        EncodeCase{"release_256", step(0, 256), {2, 1, 0}},
        EncodeCase{"release_65535", step(0, 65535), {2, 255, 255}},
        EncodeCase{"release_24_bits_keeps_16", step(0, 0x123456), {2, 0x34, 0x56}},
        EncodeCase{"release_too_large_keeps_8", step(0, 0x01020304), {0, 4}},
        EncodeCase{"release_negative_keeps_8", step(0, -2), {0, 0xFE}},
        EncodeCase{"release_without_argument", step(0), {0, 0}},
        EncodeCase{"wide_release_narrowed", step(2, 5), {0, 5}},
        EncodeCase{"wide_release", step(2, 300), {2, 0x01, 0x2C}},
        EncodeCase{"press_narrow", step(1, 0), {1, 0}}, //
        EncodeCase{"press_wide", step(1, 0x1234), {3, 0x12, 0x34}},
        EncodeCase{"wide_press_narrowed", step(3, 7), {1, 7}},
        EncodeCase{"wide_press", step(3, 0xFFFFFF), {3, 255, 255}},
        EncodeCase{"press_lowest", step(1, kLowest), {1, 0}},
        EncodeCase{"press_highest", step(1, kHighest), {1, 255}},
        EncodeCase{"other_drops_argument", step(128, 300), {128}}, //
        EncodeCase{"command_4", step(4, 1), {4}},                  //
        EncodeCase{"command_16", step(16, 1), {16}},               //
        EncodeCase{"command_20", step(20, 1), {20}},               //
        EncodeCase{"command_255", step(-1, 1), {255}}, EncodeCase{"command_256_is_0", step(256, 9), {0, 9}},
        EncodeCase{"command_273_is_17", step(273, 9), {17, 9}}),
    [](const auto& testCase) { return testCase.param.name; });

INSTANTIATE_TEST_SUITE_P(DelayCommands, StepEncoding,
    testing::Values(EncodeCase{"from_17_by_width_0", step(17), {17, 0}},
        EncodeCase{"from_17_by_width_1", step(17, 5), {17, 5}},
        EncodeCase{"from_17_by_width_2", step(17, 256), {18, 1, 0}},
        EncodeCase{"from_17_by_width_3", step(17, 65536), {19, 1, 0, 0}},
        EncodeCase{"from_18_by_width_1", step(18, 5), {17, 5}},
        EncodeCase{"from_18_by_width_3", step(18, 0xFFFFFF), {19, 255, 255, 255}},
        EncodeCase{"from_19_by_width_1", step(19, 255), {17, 255}},
        EncodeCase{"from_19_by_width_2", step(19, 65535), {18, 255, 255}},
        EncodeCase{"from_19_too_large", step(19, 0x01000007), {17, 7}},
        EncodeCase{"from_18_negative", step(18, -1), {17, 255}}),
    [](const auto& testCase) { return testCase.param.name; });

INSTANTIATE_TEST_SUITE_P(Delays, StepEncoding,
    testing::Values(EncodeCase{"none", pause(0), {128}}, //
        EncodeCase{"shortest", pause(1), {128, 17, 1}}, EncodeCase{"of_255", pause(255), {128, 17, 255}},
        EncodeCase{"of_256", pause(256), {128, 18, 1, 0}},
        EncodeCase{"of_65535", pause(65535), {128, 18, 255, 255}},
        EncodeCase{"of_65536", pause(65536), {128, 19, 1, 0, 0}},
        EncodeCase{"longest", pause(16777215), {128, 19, 255, 255, 255}},
        EncodeCase{"too_long_is_dropped", pause(16777216), {128}},
        EncodeCase{"negative_is_dropped", pause(-1), {128}},
        EncodeCase{"lowest_is_dropped", pause(kLowest), {128}}),
    [](const auto& testCase) { return testCase.param.name; });

TEST(encodeSteps, takesAnArgumentOfAnyTypeAsPresent) {
    EXPECT_EQ(encode(list({dict({{"command", 0}, {"argument", u"300"}})})), (Bytes{2, 0x01, 0x2C}));
    EXPECT_EQ(encode(list({dict({{"command", 17}, {"argument", dict()}})})), (Bytes{17, 0}));
}

TEST(encodeSteps, goesOnAfterADelayThatIsTooLong) {
    EXPECT_EQ(encode(list({pause(16777216), step(1, 4)})), (Bytes{128, 1, 4}));
}

TEST(encodeSteps, skipsWhatIsNoDictionary) {
    EXPECT_EQ(encode(list({5, step(129), u"step", list(), step(130)})), (Bytes{129, 130}));
}

TEST(encodeSteps, writesNothingForNoSteps) {
    EXPECT_EQ(encode({}), Bytes());
    EXPECT_EQ(encode(list()), Bytes());
}

TEST(encodeSteps, fillsAll128Bytes) {
    EXPECT_EQ(encode(plainSteps(128)), Bytes(128, 128));
    EXPECT_EQ(encode(plainSteps(129)), Bytes(128, 128));
}

TEST(encodeSteps, stopsAtTheFirstStepThatDoesNotFit) {
    const auto steps = plainSteps(126);
    steps.append(step(1, 300)); // needs 3 bytes of 2
    steps.append(step(128));    // would fit, but comes later
    EXPECT_EQ(encode(steps), Bytes(126, 128));
}

TEST(encodeSteps, fillsTheLastBytesWithAStep) {
    const auto steps = plainSteps(125);
    steps.append(step(1, 300));
    EXPECT_EQ(encode(steps), joined(Bytes(125, 128), {3, 0x01, 0x2C}));
}

TEST(encodeSteps, stopsAtADelayThatDoesNotFitAndKeepsItsStep) {
    const auto steps = plainSteps(126);
    steps.append(pause(5)); // the step fits, its delay needs 2 bytes of 1
    steps.append(step(128));
    EXPECT_EQ(encode(steps), Bytes(127, 128));
}

TEST(encodeSteps, leavesTheBytesBehindAlone) {
    std::array<std::uint8_t, limits::stepBytes> bytes;
    bytes.fill(0xA5);
    ASSERT_EQ(encodeSteps(list({step(128)}), bytes), 1U);
    EXPECT_EQ(bytes[1], 0xA5);
}

TEST(decodeSteps, readsEveryForm) {
    EXPECT_EQ(decode({0, 5, 1, 6, 2, 1, 0x2C, 3, 0x12, 0x34, 128}),
        Value(list({step(0, 5), step(1, 6), step(2, 300), step(3, 0x1234), step(128)})));
}

TEST(decodeSteps, readsOpcodesBesideTheDelaysWithoutArgument) {
    EXPECT_EQ(decode({4, 16, 20, 255}), Value(list({step(4), step(16), step(20), step(255)})));
}

TEST(decodeSteps, putsADelayOnTheStepBeforeIt) {
    EXPECT_EQ(decode({128, 17, 5, 1, 4, 18, 1, 0, 129, 19, 1, 2, 3}),
        Value(list({pause(5), dict({{"command", 1}, {"argument", 4}, {"delay", 256}}),
            dict({{"command", 129}, {"delay", 0x010203}})})));
}

TEST(decodeSteps, letsTheLastOfSeveralDelaysCount) {
    EXPECT_EQ(decode({128, 17, 5, 18, 1, 0}), Value(list({pause(256)})));
    EXPECT_EQ(decode({128, 17, 5, 17, 0}), Value(list({pause(0)})));
}

TEST(decodeSteps, dropsADelayBeforeTheFirstStep) {
    EXPECT_EQ(decode({17, 5, 128}), Value(list({step(128)})));
    EXPECT_EQ(decode({19, 1, 2, 3}), Value(list()));
}

TEST(decodeSteps, dropsWhatTheEndCutsOff) {
    EXPECT_EQ(decode({128, 0}), Value(list({step(128)})));
    EXPECT_EQ(decode({128, 2, 1}), Value(list({step(128)})));
    EXPECT_EQ(decode({128, 17}), Value(list({step(128)})));
    EXPECT_EQ(decode({128, 19, 1, 2}), Value(list({step(128)})));
}

TEST(decodeSteps, givesAnEmptyArrayForNoBytes) {
    EXPECT_EQ(decode({}), Value(list()));
}

TEST(StepCode, turnsADelayCommandIntoTheDelayOfTheStepBefore) {
    EXPECT_EQ(decode(encode(list({step(128), step(17, 5)}))), Value(list({pause(5)})));
}

TEST(StepCode, turnsAWideArgumentIntoTheWideCommand) {
    EXPECT_EQ(decode(encode(list({step(0, 300)}))), Value(list({step(2, 300)})));
}

} // namespace
} // namespace quorvi
