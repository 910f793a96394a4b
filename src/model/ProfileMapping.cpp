#include "model/ProfileMapping.h"

#include <algorithm>
#include <utility>

#include "model/Keys.h"
#include "model/KyvarName.h"
#include "model/SensitivityMapping.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;

void storeStages(const Array& stages, ProfileRecord& record) {
    // The device counts stages in one byte; 256 stages count as none.
    record.stageCount =
        std::min(static_cast<std::uint8_t>(stages.size()), static_cast<std::uint8_t>(limits::stages));
    record.defaultStage = std::min(record.defaultStage, record.stageCount);
    for (std::size_t i = 0; i < record.stageCount; ++i) {
        if (const auto stage = stages.dictionary(i))
            record.stages[i] = sensitivityCodes(stage);
    }
}

void storeButtons(const Dictionary& buttons, ProfileRecord& record) {
    for (int number = 1; number <= limits::buttons; ++number) {
        const auto assignment = buttons.dictionary(keys::button(number));
        if (!assignment)
            continue;
        record.buttons[static_cast<std::size_t>(number - 1)] = {
            static_cast<std::uint8_t>(number),
            static_cast<std::uint8_t>(assignment.integer(keys::command)),
            static_cast<std::uint8_t>(assignment.integer(keys::param1)),
            static_cast<std::uint8_t>(assignment.integer(keys::param2)),
        };
    }
}

Array readStages(const ProfileRecord& record) {
    auto stages = Array::create();
    const auto count = std::min<std::size_t>(record.stageCount, record.stages.size());
    stages.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        auto stage = Dictionary::create();
        appendSensitivity(stage, record.stages[i]);
        stages.append(std::move(stage));
    }
    return stages;
}

Dictionary readButtons(const ProfileRecord& record) {
    auto buttons = Dictionary::create();
    buttons.reserve(limits::buttons);
    for (int number = 1; number <= limits::buttons; ++number) {
        const auto& entry = record.buttons[static_cast<std::size_t>(number - 1)];
        auto assignment = Dictionary::create();
        assignment.append(keys::command, std::int32_t{entry.command});
        assignment.append(keys::param1, std::int32_t{entry.param1});
        assignment.append(keys::param2, std::int32_t{entry.param2});
        buttons.append(keys::button(number), std::move(assignment));
    }
    return buttons;
}

} // namespace

bool KyvarProfileDictToStruct(
    const Dictionary& profile, int number, ProfileRecord* record, ProfileNameEntry* nameEntry) {
    if (!profile || !record || number < 1 || number > limits::profiles)
        return false;
    *record = {};
    const auto buttons = profile.dictionary(keys::buttons);
    const auto stages = profile.array(keys::stages);
    if (!buttons || !stages)
        return false;
    record->number = static_cast<std::uint8_t>(number);
    record->ledState = static_cast<std::uint8_t>(profile.integer(keys::ledState));
    record->defaultStage = static_cast<std::uint8_t>(profile.integer(keys::defaultStage));
    storeStages(stages, *record);
    storeButtons(buttons, *record);
    return nameEntry && KyvarStringToName(profile.value(keys::name).string(), nameEntry->name.data(),
                            nameEntry->name.size()) > 0;
}

Dictionary KyvarProfileStructToDict(
    const ProfileRecord* record, const ProfileNameEntry* nameEntry, const Dictionary& driver) {
    if (!record || !nameEntry || !driver || isUnusedName(nameEntry->name))
        return {};
    auto profile = Dictionary::create();
    profile.append(
        keys::name, KyvarNameToString(nameEntry->name.data(), nameEntry->name.size()).value_or(u""));
    profile.append(keys::ledState, std::int32_t{record->ledState});
    profile.append(keys::defaultStage, std::int32_t{record->defaultStage});
    profile.append(keys::stages, readStages(*record));
    profile.append(keys::buttons, readButtons(*record));
    profile.append(keys::driver, driver);
    return profile;
}

void clearProfileSlot(int number, ProfileRecord& record, ProfileNameEntry& nameEntry) {
    record = {};
    record.number = static_cast<std::uint8_t>(number);
    nameEntry.name.fill(0xFF);
}

} // namespace quorvi
