#include "helper/ProfileFollower.h"

#include <utility>

#include "helper/front/FollowedProfile.h"

namespace quorvi {

ProfileFollower::ProfileFollower(EventBus& bus, EventLoop& loop, Helper& helper)
    : m_helper(helper), m_front(bus, loop) {
    m_front.onApplication([this] { follow(); });
    m_helper.onProfilesRead([this] { follow(); });
}

void ProfileFollower::follow() {
    auto followed = front::profileFor(m_helper.profiles(), m_front.application());
    m_helper.followProfile(followed.profile, std::move(followed.reason));
}

} // namespace quorvi
