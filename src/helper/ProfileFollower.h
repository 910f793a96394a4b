// Switches profiles with the application in front.
#pragma once

#include "helper/Helper.h"
#include "helper/front/ApplicationInFront.h"

namespace quorvi {

/// Sets the helper's profile whenever another application comes to the front or the profiles have been
/// re-read.
class ProfileFollower {
  public:
    /// The helper must outlive the object.
    ProfileFollower(EventBus& bus, EventLoop& loop, Helper& helper);

    /// Call this once the helper has started.
    void start() { m_front.start(); }

  private:
    void follow();

    Helper& m_helper;
    front::ApplicationInFront m_front;
};

} // namespace quorvi
