#include "model/ConfigMapping.h"

#include <cstring>
#include <utility>

#include "model/Keys.h"
#include "model/MacroMapping.h"
#include "model/ProfileMapping.h"
#include "model/SettingsMapping.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;

void storeFirmware(std::int32_t firmware, ConfigRecord& record) {
    const auto value = static_cast<std::uint16_t>(firmware);
    std::memcpy(record.firmware.data(), &value, sizeof value);
}

std::int32_t readFirmware(const ConfigRecord& record) {
    std::uint16_t value = 0;
    std::memcpy(&value, record.firmware.data(), sizeof value);
    return value;
}

void storeMacros(const Array& macros, ConfigRecord& record) {
    std::size_t filled = 0;
    for (const auto& item : macros.items()) {
        if (filled == limits::macros)
            break;
        if (KyvarMacroDictToStruct(
                item.dictionary(), &record.macroHeaders[filled], &record.macroBodies[filled]))
            ++filled;
    }
}

/// Returns the number of slots filled.
std::size_t storeProfiles(const Array& profiles, ConfigRecord& record) {
    std::size_t filled = 0;
    for (const auto& item : profiles.items()) {
        if (filled == record.profiles.size())
            break;
        if (KyvarProfileDictToStruct(item.dictionary(), static_cast<int>(filled) + 1,
                &record.profiles[filled], &record.profileNames[filled]))
            ++filled;
    }
    return filled;
}

Array readProfiles(const ConfigRecord& record) {
    auto profiles = Array::create();
    for (std::size_t i = 0; i < record.profiles.size(); ++i) {
        if (auto profile =
                KyvarProfileStructToDict(&record.profiles[i], &record.profileNames[i], Dictionary::create()))
            profiles.append(std::move(profile));
    }
    return profiles;
}

Array readMacros(const ConfigRecord& record) {
    auto macros = Array::create();
    for (std::size_t i = 0; i < record.macroHeaders.size(); ++i) {
        if (auto macro = KyvarMacroStructToDict(&record.macroHeaders[i], &record.macroBodies[i]))
            macros.append(std::move(macro));
    }
    return macros;
}

} // namespace

bool KyvarConfigDictToStruct(const Dictionary& tree, ConfigRecord* record) {
    if (!tree || !record)
        return false;
    *record = {};
    storeFirmware(tree.integer(keys::firmware), *record);
    if (!KyvarSettingsDictToStruct(tree.dictionary(keys::settings), &record->settings))
        return false;
    storeMacros(tree.array(keys::macros), *record);
    const auto filled = storeProfiles(tree.array(keys::profiles), *record);
    for (auto slot = filled; slot < record->profiles.size(); ++slot)
        clearProfileSlot(static_cast<int>(slot) + 1, record->profiles[slot], record->profileNames[slot]);
    return filled > 0;
}

Dictionary KyvarConfigStructToDict(const ConfigRecord* record) {
    if (!record)
        return {};
    auto tree = Dictionary::create();
    tree.append(keys::version, limits::writtenVersion);
    tree.append(keys::firmware, readFirmware(*record));
    tree.append(keys::settings, KyvarSettingsStructToDict(&record->settings));
    tree.append(keys::profiles, readProfiles(*record));
    tree.append(keys::macros, readMacros(*record));
    return tree;
}

} // namespace quorvi
