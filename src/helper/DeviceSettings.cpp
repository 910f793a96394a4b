#include "helper/DeviceSettings.h"

#include <cstring>
#include <utility>

#include "helper/ProfileSlots.h"
#include "model/ConfigMapping.h"
#include "model/SettingsDocument.h"

namespace quorvi {

namespace {

std::filesystem::path ownPath() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

/// Only certain absence counts: a folder that cannot be entered may hold the file.
bool isMissing(const std::filesystem::path& file) {
    std::error_code error;
    return file.empty() ||
           std::filesystem::status(file, error).type() == std::filesystem::file_type::not_found;
}

/// The polling rate belongs to the mouse, not to the profile.
bool isSameChoice(const SettingsRecord& a, SettingsRecord b) {
    b.pollingCode = a.pollingCode;
    return std::memcmp(&a, &b, sizeof a) == 0;
}

} // namespace

SettingsFiles SettingsFiles::ofThisProcess() {
    const auto application = ownPath().parent_path().parent_path().parent_path();
    return {userSettingsPath(homeFolder()), application.parent_path() / "Defaults.plist"};
}

bool DeviceSettings::reload() {
    if (const auto tree = loadSettings(m_files.user, {}))
        return take(tree);
    const bool missing = isMissing(m_files.user);
    if (!missing && m_record)
        return false;
    return take(loadSettings(m_files.defaults, {})) && missing;
}

bool DeviceSettings::follow(std::optional<std::size_t> profile) {
    if (const auto onMouse = std::exchange(m_onMouse, {}))
        m_chosen = *onMouse;
    m_followed = profile;
    if (!m_record)
        return false;
    const auto before = std::exchange(m_record->settings, settingsToRun());
    return !isSameChoice(before, m_record->settings);
}

void DeviceSettings::noteRunning(std::uint32_t profile, std::uint32_t stage) {
    if (!m_record || profile == 0 || profile > m_profiles.size())
        return;
    const auto& told = m_record->settings;
    const bool isAsTold = profile == told.profileId && (isFollowing() || stage == told.stage);
    m_onMouse.reset();
    if (!isAsTold)
        m_onMouse = settingsIn(m_record->profiles[profile - 1U], static_cast<std::uint8_t>(stage));
}

std::span<const std::uint8_t> DeviceSettings::record() const {
    if (!m_record)
        return {};
    return {reinterpret_cast<const std::uint8_t*>(m_record.get()), sizeof(ConfigRecord)};
}

bool DeviceSettings::take(const plist::Dictionary& tree) {
    auto record = std::make_unique<ConfigRecord>();
    if (!KyvarConfigDictToStruct(tree, record.get()))
        return false;
    m_record = std::move(record);
    m_profiles = profilesOfSlots(tree);
    // A new choice in the panel wins. Saving anything else keeps the choice made on the mouse.
    const bool choosesAnew = !isSameChoice(std::exchange(m_saved, m_record->settings), m_record->settings);
    if (choosesAnew || !isThere(m_chosen))
        m_chosen = m_saved;
    if (choosesAnew || (m_onMouse && !isThere(*m_onMouse)))
        m_onMouse.reset();
    m_acceleration = accelerationOfSlots(m_profiles);
    m_record->settings = settingsToRun();
    return true;
}

bool DeviceSettings::isThere(const SettingsRecord& settings) const {
    return settings.profileId >= 1 && settings.profileId <= m_profiles.size();
}

SettingsRecord DeviceSettings::settingsIn(const ProfileRecord& profile, std::uint8_t stage) const {
    auto settings = m_saved;
    settings.profileId = profile.number;
    settings.stage = stage;
    if (stage >= 1 && stage <= profile.stages.size()) {
        settings.dpiXCode = profile.stages[stage - 1U].dpiXCode;
        settings.dpiYCode = profile.stages[stage - 1U].dpiYCode;
    }
    return settings;
}

SettingsRecord DeviceSettings::settingsToRun() const {
    auto settings = m_chosen;
    if (isFollowing()) {
        const auto& profile = m_record->profiles[*m_followed];
        settings = settingsIn(profile, profile.defaultStage);
    }
    settings.pollingCode = m_saved.pollingCode;
    return settings;
}

} // namespace quorvi
