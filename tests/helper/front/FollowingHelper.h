// The real helper on a real display, with two applications that have bound profiles.
#pragma once

#include <string>
#include <vector>

#include "helper/HelperFixture.h"
#include "helper/front/BoundApplications.h"

namespace quorvi::test {

class FollowingHelper : public HelperTest, protected BoundApplications {
  protected:
    FollowingHelper();

    [[nodiscard]] std::uint32_t profile();
    /// Waits until the mouse runs it.
    [[nodiscard]] bool comesToRun(std::uint32_t wanted);
    /// Of com.kyvar.Front1; "?" when it cannot be had.
    [[nodiscard]] std::string said(const std::string& property) const;
    [[nodiscard]] bool comesToSay(const std::string& property, const std::string& wanted);

    /// Brings the applications to the front in turn by the function, 30 times or as often as
    /// QUORVI_FRONT_SWITCHES says, looks each time for the profile, and prints how long that took from when
    /// the display had taken it. A quarter of the switches has to take no longer than 20 ms, whatever else
    /// the machine is at.
    void switchInTurn(const std::function<void(const std::string&)>& bringToFront);
    /// The helper sleeps for half a second, and is not woken by what the function does.
    void expectSleepDuring(const std::function<void()>& function);
    void expectLittleMemory() const;

    void bind(bool automatic = true) const { BoundApplications::bind(userSettings, automatic); }
};

} // namespace quorvi::test
