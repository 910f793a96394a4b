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

} // namespace

SettingsFiles SettingsFiles::ofThisProcess() {
    const auto application = ownPath().parent_path().parent_path().parent_path();
    return {userSettingsPath(homeFolder()), application.parent_path() / "Defaults.plist"};
}

bool DeviceSettings::reload() {
    const auto tree = loadSettings(m_files.user, m_files.defaults);
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
