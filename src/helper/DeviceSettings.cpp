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

/// Only what is certainly not there is missing: a folder that cannot be entered may well hold the file.
bool isMissing(const std::filesystem::path& file) {
    std::error_code error;
    return file.empty() ||
           std::filesystem::status(file, error).type() == std::filesystem::file_type::not_found;
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
    m_followed = profile;
    if (!m_record)
        return false;
    const auto before = std::exchange(m_record->settings, settingsToRun());
    return std::memcmp(&before, &m_record->settings, sizeof before) != 0;
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
    m_chosen = m_record->settings;
    m_profiles = profilesOfSlots(tree);
    m_acceleration = accelerationOfSlots(m_profiles);
    m_record->settings = settingsToRun();
    return true;
}

SettingsRecord DeviceSettings::settingsToRun() const {
    if (!m_followed || *m_followed >= m_profiles.size())
        return m_chosen;
    const auto& profile = m_record->profiles[*m_followed];
    auto settings = m_chosen;
    settings.profileId = profile.number;
    settings.stage = profile.defaultStage;
    if (profile.defaultStage >= 1 && profile.defaultStage <= profile.stages.size()) {
        const auto& stage = profile.stages[profile.defaultStage - 1U];
        settings.dpiXCode = stage.dpiXCode;
        settings.dpiYCode = stage.dpiYCode;
    }
    return settings;
}

} // namespace quorvi
