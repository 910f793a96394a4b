// Profiles that switch by themselves with the application in front.
#pragma once

#include "helper/Helper.h"
#include "helper/front/ApplicationInFront.h"

namespace quorvi {

/// Tells the helper which profile to run whenever another application is in front or the profiles have been
/// read anew.
class ProfileFollower {
  public:
    /// The helper must live longer.
    ProfileFollower(EventBus& bus, EventLoop& loop, Helper& helper);

    /// Once the helper has started.
    void start() { m_front.start(); }

  private:
    void follow();

    Helper& m_helper;
    front::ApplicationInFront m_front;
};

} // namespace quorvi
