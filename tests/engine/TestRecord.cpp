#include "engine/TestRecord.h"

#include <algorithm>

#include "model/BigEndian.h"
#include "model/Sensitivity.h"

namespace quorvi::test {

TestRecord::TestRecord() {
    for (std::size_t slot = 0; slot < m_record.profiles.size(); ++slot) {
        m_record.profiles[slot].number = static_cast<std::uint8_t>(slot + 1);
        m_record.profileNames[slot].name.fill(0xFF);
    }
    stages(1, {{1600, 1600}});
    active(1, 1);
}

TestRecord& TestRecord::profile(int number) {
    (void)used(number);
    return *this;
}

TestRecord& TestRecord::active(int profile, int stage) {
    m_record.settings.profileId = static_cast<std::uint8_t>(profile);
    m_record.settings.stage = static_cast<std::uint8_t>(stage);
    return *this;
}

TestRecord& TestRecord::function(int profile, int input, int command, int param1, int param2) {
    used(profile).buttons[static_cast<std::size_t>(input - 1)] = {static_cast<std::uint8_t>(input),
        static_cast<std::uint8_t>(command), static_cast<std::uint8_t>(param1),
        static_cast<std::uint8_t>(param2)};
    return *this;
}

TestRecord& TestRecord::stages(int profile, const std::vector<std::pair<int, int>>& dpi, int defaultStage) {
    ProfileRecord& record = used(profile);
    record.stages = {};
    record.stageCount = static_cast<std::uint8_t>(dpi.size());
    record.defaultStage = static_cast<std::uint8_t>(defaultStage);
    for (std::size_t stage = 0; stage < dpi.size(); ++stage)
        record.stages[stage] = {dpiToCode(dpi[stage].first), dpiToCode(dpi[stage].second)};
    return *this;
}

TestRecord& TestRecord::macro(
    int slot, int macroId, const std::vector<std::uint8_t>& steps, std::uint32_t delay) {
    auto& header = m_record.macroHeaders[static_cast<std::size_t>(slot)];
    auto& body = m_record.macroBodies[static_cast<std::size_t>(slot)];
    header.macroId = static_cast<std::uint8_t>(macroId);
    storeBigEndian(header.length, static_cast<std::uint32_t>(50 + steps.size()));
    body = {};
    body.name[0] = 'm';
    storeBigEndian(body.delay, delay);
    std::ranges::copy(steps, body.steps.begin());
    return *this;
}

std::span<const std::uint8_t> TestRecord::bytes() const {
    return {reinterpret_cast<const std::uint8_t*>(&m_record), sizeof m_record};
}

ProfileRecord& TestRecord::used(int number) {
    const auto slot = static_cast<std::size_t>(number - 1);
    if (isUnusedName(m_record.profileNames[slot].name)) {
        m_record.profileNames[slot].name.fill(0);
        m_record.profileNames[slot].name[0] = static_cast<std::uint8_t>('0' + number);
    }
    return m_record.profiles[slot];
}

} // namespace quorvi::test
