#include "helper/ProfileFollower.h"

#include "helper/front/FollowedProfile.h"

namespace quorvi {

ProfileFollower::ProfileFollower(EventBus& bus, EventLoop& loop, Helper& helper)
    : m_helper(helper), m_front(bus, loop) {
    m_front.onApplication([this] { follow(); });
    m_helper.onProfilesRead([this] { follow(); });
}

void ProfileFollower::follow() {
    m_helper.followProfile(front::profileFor(m_helper.profiles(), m_front.application()).profile);
}

} // namespace quorvi
