// The user's settings in the device's format.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>

#include "model/ConfigRecord.h"
#include "model/Limits.h"
#include "plist/Value.h"

namespace quorvi {

/// The settings files, in the order in which they are tried.
struct SettingsFiles {
    std::filesystem::path user;
    std::filesystem::path defaults;

    /// The user's file and the defaults of the panel's bundle that holds the helper's own application
    /// (<bundle>/Contents/Resources/KyvarQuorviHelper.app/Contents/Linux/KyvarQuorviHelper).
    [[nodiscard]] static SettingsFiles ofThisProcess();

    /// The panel's bundle, which contains the defaults.
    [[nodiscard]] std::filesystem::path bundle() const {
        return defaults.parent_path().parent_path().parent_path();
    }
};

/// The configuration record, rebuilt from the settings on request.
class DeviceSettings {
  public:
    explicit DeviceSettings(SettingsFiles files) : m_files(std::move(files)) {}

    /// Reads the settings again. The defaults replace a missing user's file.
    ///
    /// Returns false and keeps the old record if the user's file exists but cannot be used (damaged, old
    /// version, unreadable), no file holds valid settings, or they do not convert to a record. If there is no
    /// record yet, the defaults' record is used for the time being.
    bool reload();

    /// Makes the record run this profile (an index of profiles()) from its default stage, overriding the
    /// user's choice. std::nullopt, or an index without a profile, restores the user's profile, stage and
    /// sensitivity: the ones chosen last, in the panel or on the mouse. Stays in effect across reloads and
    /// writes no file. Returns false if the record is unchanged.
    bool follow(std::optional<std::size_t> profile);
    [[nodiscard]] std::optional<std::size_t> followed() const { return m_followed; }

    /// Notes the profile and stage that the mouse reports, from 1. If they differ from the record's, they
    /// were chosen with the mouse's own buttons, and count as the user's choice until the panel saves another
    /// one. While a profile is followed, only another profile counts, not a stage of the followed one;
    /// returning to the followed profile cancels the choice.
    void noteRunning(std::uint32_t profile, std::uint32_t stage);

    /// 13232 bytes; empty until the first reload that succeeds.
    [[nodiscard]] std::span<const std::uint8_t> record() const;

    /// The record's settings; zeros without a record.
    [[nodiscard]] SettingsRecord settings() const { return m_record ? m_record->settings : SettingsRecord{}; }

    /// "name" and "driver" of each profile, in the order of the record. Nil without a record.
    [[nodiscard]] const plist::Array& profiles() const { return m_profiles; }
    /// The acceleration of each profile of the record.
    [[nodiscard]] const std::array<float, limits::profiles>& acceleration() const { return m_acceleration; }

  private:
    /// Returns false and keeps the old record if the tree does not convert to a record.
    bool take(const plist::Dictionary& tree);
    [[nodiscard]] bool isFollowing() const { return m_followed && *m_followed < m_profiles.size(); }
    [[nodiscard]] bool isThere(const SettingsRecord& settings) const;
    [[nodiscard]] SettingsRecord settingsIn(const ProfileRecord& profile, std::uint8_t stage) const;
    [[nodiscard]] SettingsRecord settingsToRun() const;

    SettingsFiles m_files;
    std::unique_ptr<ConfigRecord> m_record;  ///< with the running settings
    SettingsRecord m_saved{};                ///< the settings in the file
    SettingsRecord m_chosen{};               ///< the settings to run while no profile is followed
    std::optional<SettingsRecord> m_onMouse; ///< the choice made on the mouse since the record was built
    std::optional<std::size_t> m_followed;
    plist::Array m_profiles;
    std::array<float, limits::profiles> m_acceleration{};
};

} // namespace quorvi
