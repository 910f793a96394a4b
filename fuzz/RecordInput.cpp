#include "RecordInput.h"

#include <algorithm>

#include "model/ProfileMapping.h"

namespace quorvi::fuzz {

namespace {

void takeProfile(Input& input, std::size_t slot, ConfigRecord& record) {
    record.profileNames[slot] = {};
    input.take(&record.profileNames[slot], sizeof(ProfileNameEntry));
    input.take(&record.profiles[slot], sizeof(ProfileRecord));
}

void takeMacro(Input& input, std::size_t slot, ConfigRecord& record) {
    input.take(&record.macroHeaders[slot], sizeof(MacroHeader));
    input.take(&record.macroBodies[slot], sizeof(MacroBody));
}

} // namespace

void Input::take(void* target, std::size_t size) {
    const auto there = m_bytes.first(std::min(size, m_bytes.size()));
    std::ranges::copy(there, static_cast<std::uint8_t*>(target));
    m_bytes = m_bytes.subspan(there.size());
}

std::unique_ptr<ConfigRecord> takeHead(Input& input) {
    auto record = std::make_unique<ConfigRecord>();
    for (int slot = 0; slot < limits::profiles; ++slot)
        clearProfileSlot(slot + 1, record->profiles[static_cast<std::size_t>(slot)],
            record->profileNames[static_cast<std::size_t>(slot)]);
    input.take(record.get(), offsetof(ConfigRecord, profileNames));
    return record;
}

void takeSlot(Input& input, ConfigRecord& record) {
    const auto tag = input.number<std::uint8_t>();
    const std::size_t slot = tag % (limits::profiles + limits::macroSlots);
    if (slot < limits::profiles)
        takeProfile(input, slot, record);
    else
        takeMacro(input, slot - limits::profiles, record);
}

} // namespace quorvi::fuzz
