// The rest of a frame when some of its events do not pass.
#include <gtest/gtest.h>

#include "inputd/devices/SharedKeyboard.h"

namespace quorvi::inputd {
namespace {

input_event event(std::uint16_t type, std::uint16_t code, int value) {
    input_event made{};
    made.type = type;
    made.code = code;
    made.value = value;
    return made;
}

TEST(FilteredFrame, EndsWithItsReportAndIsNothingWhenNoEventPasses) {
    const std::array frame{event(EV_KEY, KEY_A, 1), event(EV_KEY, KEY_B, 1), event(EV_SYN, SYN_REPORT, 0)};
    std::array<input_event, 64> out{};
    EXPECT_EQ(filteredFrame(frame, out, [](const auto& each) { return each.code == KEY_B; }), 2U);
    EXPECT_EQ(out[0].code, KEY_B);
    EXPECT_EQ(out[1].type, EV_SYN);
    EXPECT_EQ(filteredFrame(frame, out, [](const auto&) { return false; }), 0U);
    EXPECT_EQ(filteredFrame(frame, out, [](const auto&) { return true; }), 3U);
}

} // namespace
} // namespace quorvi::inputd
