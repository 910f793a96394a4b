#include "helper/front/FollowingHelper.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "events/FrontInterface.h"
#include "support/ProcessFigures.h"

namespace quorvi::test {

namespace {

using std::chrono::microseconds;
using std::chrono::steady_clock;

constexpr int kSwitchesOfOneRun = 30;
constexpr microseconds kLongestOfQuick = std::chrono::milliseconds(20);

void print(std::vector<microseconds> times) {
    std::ranges::sort(times);
    std::cout << times.size()
              << " switches, from what the display has taken to the profile, in microseconds: half within "
              << times[times.size() / 2].count() << ", 99 of 100 within "
              << times[times.size() * 99 / 100].count() << ", all within " << times.back().count()
              << std::endl;
}

} // namespace

FollowingHelper::FollowingHelper() {
    install(folder.path());
    bind();
}

std::uint32_t FollowingHelper::profile() {
    std::uint32_t runs = 99;
    EXPECT_EQ(getSimulatedMouseProfile(*bus, psn, runs), noErr);
    return runs;
}

bool FollowingHelper::comesToRun(std::uint32_t wantedProfile) {
    return waitFor(*bus, [&] { return profile() == wantedProfile; });
}

std::string FollowingHelper::said(const std::string& property) const {
    const auto result = runProgram({"busctl", "--user", "get-property", "com.kyvar.KyvarQuorviHelper",
        frontinterface::kPath, frontinterface::kInterface, property});
    const auto start = result.output.find('"');
    const auto end = result.output.rfind('"');
    return start < end && end != std::string::npos ? result.output.substr(start + 1, end - start - 1) : "?";
}

bool FollowingHelper::comesToSay(const std::string& property, const std::string& wantedText) {
    return waitFor(*bus, [&] { return said(property) == wantedText; });
}

void FollowingHelper::switchInTurn(const std::function<void(const std::string&)>& bringToFront) {
    const char* often = std::getenv("QUORVI_FRONT_SWITCHES");
    const int switches = often ? std::atoi(often) : kSwitchesOfOneRun;
    std::vector<microseconds> times;
    for (int i = 0; i < switches; ++i) {
        const bool toDrawing = i % 2 == 0;
        bringToFront(toDrawing ? drawing : writing);
        const auto start = steady_clock::now();
        const auto end = start + kPatience;
        while (profile() != (toDrawing ? ofDrawing : ofWriting) && steady_clock::now() < end)
            bus->process();
        times.push_back(std::chrono::duration_cast<microseconds>(steady_clock::now() - start));
        ASSERT_LT(times.back(), kPatience) << "switch " << i;
    }
    print(times);
    std::ranges::sort(times);
    EXPECT_LE(times[times.size() / 4], kLongestOfQuick);
}

void FollowingHelper::expectSleepDuring(const std::function<void()>& function) {
    ASSERT_TRUE(comesToRest(helper->pid()));
    const auto before = sleepsOf(helper->pid());
    function();
    ASSERT_TRUE(comesToRest(helper->pid()));
    EXPECT_EQ(sleepsOf(helper->pid()), before);
}

void FollowingHelper::expectLittleMemory() const {
#ifndef __SANITIZE_ADDRESS__
    EXPECT_LT(memoryOf(helper->pid()).resident, 8192) << "in KiB";
#endif
    std::cout << "memory in KiB: " << memoryOf(helper->pid()).resident << " in all, "
              << memoryOf(helper->pid()).anonymous << " of its own" << std::endl;
}

} // namespace quorvi::test
