// The verbs that use the simulated mouse, with the real helper.
#include <algorithm>
#include <atomic>
#include <thread>

#include "tools/RunningHelper.h"

namespace quorvi::test {
namespace {

using MouseByHand = RunningHelper;

/// Type, code and value of the line.
std::string changeIn(const std::string& line) {
    return line.substr(std::min(line.find('\t'), line.size() - 1) + 1);
}

TEST_F(MouseByHand, IsPressedReleasedAndWatched) {
    startHelper();
    ChildProcess watch({QUORVI_QUORVICTL, "watch"});
    // Nothing says that it listens but what it hears. A notch of the wheel leaves nothing down.
    std::optional<std::string> first;
    std::atomic<bool> isHeard = false;
    std::thread turning([&] {
        while (!isHeard)
            expectDone({"press", "8"}, "");
    });
    first = watch.readLine();
    isHeard = true;
    turning.join();
    ASSERT_TRUE(first);
    EXPECT_EQ(changeIn(*first), "2\t8\t1");
    expectDone({"press", "1"}, "");
    expectDone({"release", "0x1"}, "");
    std::vector<std::string> changes;
    while (changes.empty() || changes.back() != "1\t272\t0") {
        const auto line = watch.readLine();
        ASSERT_TRUE(line);
        changes.push_back(changeIn(*line));
    }
    ASSERT_GE(changes.size(), 3U);
    EXPECT_EQ(std::vector(changes.end() - 3, changes.end()),
        (std::vector<std::string>{"1\t272\t1", "0\t0\t0", "1\t272\t0"}));
    helper->kill();
    ASSERT_EQ(watch.wait(), 1);
    EXPECT_EQ(watch.readError(), "quorvictl: KyvarQuorviHelper is gone\n");
}

TEST_F(MouseByHand, HasNineInputs) {
    startHelper();
    for (const char* verb : {"press", "release"}) {
        for (const char* input : {"0", "10", "255", "256", "0xFFFFFFFF"})
            expectRefused({verb, input}, std::string(input) + " is not an input; inputs are 1 to 9");
        for (const char* input : {"", "-1", "one", "1 ", "4294967296"})
            expectMisused({verb, input}, std::string(input) + " is not a 32-bit number, decimal or 0x");
        for (const char* input : {"1", "7", "8", "9"})
            expectDone({verb, input}, "");
        expectMisused({verb}, std::string(verb) + " takes INPUT");
    }
    expectMisused({"watch", "1"}, "watch takes no arguments");
}

TEST_F(MouseByHand, HasToBePluggedIn) {
    startHelper();
    expectDone({"detach"}, "");
    expectRefused({"press", "1"}, "the simulated mouse is not plugged in");
    expectRefused({"release", "1"}, "the simulated mouse is not plugged in");
}

TEST_F(MouseByHand, NeedsARunningHelper) {
    expectRefused({"press", "1"}, "KyvarQuorviHelper is not running");
    expectRefused({"release", "1"}, "KyvarQuorviHelper is not running");
    expectRefused({"watch"}, "KyvarQuorviHelper is not running");
    const Participant other("KyvarQuorviHelper");
    expectRefused({"press", "1"}, "KyvarQuorviHelper has no simulated mouse");
}

} // namespace
} // namespace quorvi::test
