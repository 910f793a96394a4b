// What the mouse is told to do: the user's settings in the form that the device takes.
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

/// The files that settings come from, in the order in which they are tried.
struct SettingsFiles {
    std::filesystem::path user;
    std::filesystem::path defaults;

    /// The user's file and the defaults of the panel's bundle that holds the helper's own application
    /// (<bundle>/Contents/Resources/KyvarQuorviHelper.app/Contents/Linux/KyvarQuorviHelper).
    [[nodiscard]] static SettingsFiles ofThisProcess();

    /// The panel's bundle, whose resources the defaults are among.
    [[nodiscard]] std::filesystem::path bundle() const {
        return defaults.parent_path().parent_path().parent_path();
    }
};

/// The configuration record, rebuilt from the settings on request.
class DeviceSettings {
  public:
    explicit DeviceSettings(SettingsFiles files) : m_files(std::move(files)) {}

    /// Reads the settings again. The defaults stand for a user's file that is not there.
    ///
    /// False when they were not taken over: the user's file is there and cannot be used (damaged, of an old
    /// version, not to be read), no file holds valid settings, or they give no record. The old record is kept
    /// then. Where there is none yet, the mouse gets that of the defaults meanwhile.
    bool reload();

    /// Has the record run this profile (an index of profiles()) from its default stage on, whichever one its
    /// user chose; nothing gives theirs back, stage and sensitivity with it, and so does an index that no
    /// profile has. Theirs is what was chosen last, in the panel or on the mouse. It is kept across reloads,
    /// and writes nothing. False when the record is as before.
    bool follow(std::optional<std::size_t> profile);
    [[nodiscard]] std::optional<std::size_t> followed() const { return m_followed; }

    /// The mouse says that it runs this profile and stage, numbers from 1. Others than the record's were
    /// chosen by its own buttons, and count as what the user chose until the panel saves another choice.
    /// While a profile is followed only another profile counts: stages of the followed one are its own
    /// affair, and who comes back to it has thought better of it.
    void noteRunning(std::uint32_t profile, std::uint32_t stage);

    /// 13232 bytes; empty until the first reload that succeeds.
    [[nodiscard]] std::span<const std::uint8_t> record() const;

    /// Those of the record; zeros without one.
    [[nodiscard]] SettingsRecord settings() const { return m_record ? m_record->settings : SettingsRecord{}; }

    /// "name" and "driver" of each profile, in the order of the record. Nil as long as there is no record.
    [[nodiscard]] const plist::Array& profiles() const { return m_profiles; }
    /// The acceleration of each profile of the record.
    [[nodiscard]] const std::array<float, limits::profiles>& acceleration() const { return m_acceleration; }

  private:
    /// False, with the old record kept, when the tree gives no record.
    bool take(const plist::Dictionary& tree);
    [[nodiscard]] bool isFollowing() const { return m_followed && *m_followed < m_profiles.size(); }
    [[nodiscard]] bool isThere(const SettingsRecord& settings) const;
    [[nodiscard]] SettingsRecord settingsIn(const ProfileRecord& profile, std::uint8_t stage) const;
    [[nodiscard]] SettingsRecord settingsToRun() const;

    SettingsFiles m_files;
    std::unique_ptr<ConfigRecord> m_record;  ///< with the settings that run
    SettingsRecord m_saved{};                ///< the settings as the file has them
    SettingsRecord m_chosen{};               ///< those that run while no profile is followed
    std::optional<SettingsRecord> m_onMouse; ///< what was chosen there since the record was made
    std::optional<std::size_t> m_followed;
    plist::Array m_profiles;
    std::array<float, limits::profiles> m_acceleration{};
};

} // namespace quorvi
