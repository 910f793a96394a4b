// What the mouse is told to do: the user's settings in the form that the device takes.
#pragma once

#include <array>
#include <filesystem>
#include <span>
#include <vector>

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

    /// 13232 bytes; empty until the first reload that succeeds.
    [[nodiscard]] std::span<const std::uint8_t> record() const { return m_record; }

    /// The acceleration of each profile of the record.
    [[nodiscard]] const std::array<float, limits::profiles>& acceleration() const { return m_acceleration; }

  private:
    /// False, with the old record kept, when the tree gives no record.
    bool take(const plist::Dictionary& tree);

    SettingsFiles m_files;
    std::vector<std::uint8_t> m_record;
    std::array<float, limits::profiles> m_acceleration{};
};

} // namespace quorvi
