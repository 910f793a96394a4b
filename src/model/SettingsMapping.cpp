#include "model/SettingsMapping.h"

#include "model/Keys.h"
#include "model/PollingRate.h"
#include "model/SensitivityMapping.h"

namespace quorvi {

bool KyvarSettingsDictToStruct(const plist::Dictionary& settings, SettingsRecord* record) {
    if (!settings || !record)
        return false;
    const auto codes = sensitivityCodes(settings);
    *record = {
        .profileId = static_cast<std::uint8_t>(settings.integer(keys::profileId)),
        .pollingCode = pollingRateToCode(settings.integer(keys::pollingRate)),
        .stage = static_cast<std::uint8_t>(settings.integer(keys::stage)),
        .dpiXCode = codes.dpiXCode,
        .dpiYCode = codes.dpiYCode,
    };
    return true;
}

plist::Dictionary KyvarSettingsStructToDict(const SettingsRecord* record) {
    if (!record)
        return {};
    auto settings = plist::Dictionary::create();
    settings.append(keys::profileId, std::int32_t{record->profileId});
    settings.append(keys::pollingRate, codeToPollingRate(record->pollingCode));
    settings.append(keys::stage, std::int32_t{record->stage});
    appendSensitivity(settings, {record->dpiXCode, record->dpiYCode});
    return settings;
}

} // namespace quorvi
