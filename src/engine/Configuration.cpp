#include "engine/Configuration.h"

#include <algorithm>
#include <cstring>

#include "model/CodedSteps.h"

namespace quorvi::engine {

namespace {

/// A record of zeros would have five named profiles without clicks; the slot numbers reveal it.
bool isSound(const ConfigRecord& record) {
    bool hasProfile = false;
    for (std::size_t slot = 0; slot < record.profiles.size(); ++slot) {
        if (isUnusedName(record.profileNames[slot].name))
            continue;
        if (record.profiles[slot].number != slot + 1)
            return false;
        hasProfile = true;
    }
    return hasProfile;
}

int sumOf(StageEntry stage) {
    return stage.dpiXCode + stage.dpiYCode;
}

} // namespace

bool Configuration::take(std::span<const std::uint8_t> bytes) {
    ConfigRecord record;
    if (bytes.size() != sizeof record)
        return false;
    std::memcpy(&record, bytes.data(), sizeof record);
    if (!isSound(record))
        return false;
    m_record = record;
    return true;
}

bool Configuration::hasProfile(int number) const {
    return number >= 1 && number <= limits::profiles &&
           !isUnusedName(m_record.profileNames[static_cast<std::size_t>(number - 1)].name);
}

std::uint8_t Configuration::profileBeside(std::uint8_t number, int direction) const {
    int beside = number;
    do
        beside = (beside - 1 + direction + limits::profiles) % limits::profiles + 1;
    while (beside != number && !hasProfile(beside));
    return static_cast<std::uint8_t>(beside);
}

std::uint8_t Configuration::activeProfile() const {
    const auto active = m_record.settings.profileId;
    return hasProfile(active) ? active : profileBeside(limits::profiles, 1);
}

std::uint8_t Configuration::stageCount(std::uint8_t number) const {
    return std::min(profile(number).stageCount, std::uint8_t{limits::stages});
}

std::uint8_t Configuration::validStage(std::uint8_t number, std::uint8_t stage) const {
    const auto count = stageCount(number);
    return stage >= 1 && stage <= count ? stage : std::min(count, std::uint8_t{1});
}

std::uint8_t Configuration::defaultStage(std::uint8_t number) const {
    return validStage(number, profile(number).defaultStage);
}

std::uint8_t Configuration::lowestStage(std::uint8_t number) const {
    const auto stages = std::span(profile(number).stages).first(stageCount(number));
    if (stages.empty())
        return 0;
    return static_cast<std::uint8_t>(std::ranges::min_element(stages, {}, sumOf) - stages.begin() + 1);
}

StageEntry Configuration::sensitivity(std::uint8_t number, std::uint8_t stage) const {
    if (stage == 0)
        return {m_record.settings.dpiXCode, m_record.settings.dpiYCode};
    return profile(number).stages[stage - 1U];
}

const ButtonAssignment& Configuration::assignment(std::uint8_t number, std::uint8_t input) const {
    return profile(number).buttons[input - 1U];
}

std::optional<Configuration::Macro> Configuration::macro(std::uint8_t macroId) const {
    for (std::size_t slot = 0; slot < m_record.macroHeaders.size(); ++slot) {
        const auto& body = m_record.macroBodies[slot];
        const auto steps = stepBytesOf(m_record.macroHeaders[slot], body);
        if (steps && m_record.macroHeaders[slot].macroId == macroId)
            return Macro{*steps, loadBigEndian(body.delay)};
    }
    return std::nullopt;
}

const ProfileRecord& Configuration::profile(std::uint8_t number) const {
    return m_record.profiles[number - 1U];
}

} // namespace quorvi::engine
