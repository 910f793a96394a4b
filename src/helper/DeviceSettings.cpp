#include "helper/DeviceSettings.h"

#include <bit>
#include <memory>

#include "helper/Acceleration.h"
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
    if (!missing && !m_record.empty())
        return false;
    return take(loadSettings(m_files.defaults, {})) && missing;
}

bool DeviceSettings::take(const plist::Dictionary& tree) {
    const auto record = std::make_unique<ConfigRecord>();
    if (!KyvarConfigDictToStruct(tree, record.get()))
        return false;
    const auto bytes = std::as_bytes(std::span(record.get(), 1));
    const auto* first = reinterpret_cast<const std::uint8_t*>(bytes.data());
    m_record.assign(first, first + bytes.size());
    m_acceleration = accelerationOfSlots(tree);
    return true;
}

} // namespace quorvi
