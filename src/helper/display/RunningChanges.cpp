#include "helper/display/RunningChanges.h"

#include <utility>

#include "model/Keys.h"

namespace quorvi {

namespace {

bool isSamePlace(const engine::Running& a, const engine::Running& b) {
    return a.profile == b.profile && a.stage == b.stage;
}

} // namespace

std::optional<ChangeShown> RunningChanges::note(
    const engine::Running& running, const plist::Array& profiles) {
    const auto before = std::exchange(m_last, running);
    if (isSamePlace(before, running))
        return {};
    const auto expected = std::exchange(m_expected, {});
    if (before.profile == 0 || running.profile == 0 || (expected && isSamePlace(*expected, running)))
        return {};
    const auto options = profiles.dictionary(running.profile - 1U).dictionary(keys::driver);
    const bool isOther = before.profile != running.profile;
    if (isOther && options.boolean(keys::profileDisplay))
        return ChangeShown::profile;
    const bool isOtherSensitivity = before.dpiX != running.dpiX || before.dpiY != running.dpiY;
    if (options.boolean(keys::sensitivityDisplay) && (!isOther || isOtherSensitivity))
        return ChangeShown::sensitivity;
    return {};
}

void RunningChanges::startWith(const engine::Running& running) {
    m_last = running;
    m_expected.reset();
}

void RunningChanges::expect(std::uint8_t profile, std::uint8_t stage) {
    const engine::Running wanted{profile, stage, 0, 0};
    if (!isSamePlace(wanted, m_last))
        m_expected = wanted;
}

} // namespace quorvi
