#include "Trees.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "Require.h"
#include "model/ConfigFileStore.h"
#include "model/ConfigMapping.h"
#include "model/Keys.h"
#include "model/NaiveEncoder.h"
#include "model/PollingRate.h"
#include "model/Sensitivity.h"

namespace quorvi::fuzz {

namespace {

using plist::Array;
using plist::Dictionary;

/// On the heap and of the exact size, so that the sanitizer sees any access beyond it.
std::unique_ptr<ConfigRecord> garbage() {
    auto record = std::make_unique<ConfigRecord>();
    std::memset(record.get(), 0xA5, sizeof *record);
    return record;
}

void requireSameBytes(const void* expected, const ConfigRecord& record, const char* what) {
    const auto* const wanted = static_cast<const std::uint8_t*>(expected);
    const auto* const given = reinterpret_cast<const std::uint8_t*>(&record);
    const auto* const differs = std::mismatch(wanted, wanted + sizeof record, given).first;
    if (differs != wanted + sizeof record)
        std::fprintf(
            stderr, "byte %td is %u instead of %u\n", differs - wanted, given[differs - wanted], *differs);
    require(differs == wanted + sizeof record, what);
}

bool isWithin(std::int32_t number, std::int32_t lowest, std::int32_t highest) {
    return number >= lowest && number <= highest;
}

void requireSensitivity(const Dictionary& dictionary) {
    require(isWithin(dictionary.integer(keys::dpiX), lowestDpi, highestDpi) &&
                isWithin(dictionary.integer(keys::dpiY), lowestDpi, highestDpi),
        "a sensitivity is one that the device has");
    require(dictionary.boolean(keys::independentXY) ==
                (dictionary.integer(keys::dpiX) != dictionary.integer(keys::dpiY)),
        "X and Y are independent when they differ");
}

void requireProfile(const Dictionary& profile) {
    require(profile.string(keys::name).size() <= limits::nameUnits, "a profile's name has 20 units at most");
    require(KyvarValidateProfile(profile), "a decoded profile is valid");
    const auto stages = profile.array(keys::stages);
    require(stages.size() <= limits::stages, "a profile has five stages at most");
    for (const auto& stage : stages.items())
        requireSensitivity(stage.dictionary());
    const auto buttons = profile.dictionary(keys::buttons);
    require(buttons.size() == limits::buttons, "a decoded profile has nine buttons");
    for (const auto& button : buttons.entries())
        for (const auto key : {keys::command, keys::param1, keys::param2})
            require(isWithin(button.value.dictionary().integer(key), 0, 255), "an assignment is three bytes");
}

void requireMacro(const Dictionary& macro) {
    require(macro.string(keys::name).size() <= limits::nameUnits, "a macro's name has 20 units at most");
    require(isWithin(macro.integer(keys::macroId), 0, limits::highestMacroId), "a macro's id is 0 to 69");
    require(isWithin(macro.integer(keys::delay), 0, limits::longestDelay), "a macro's delay has 24 bits");
    const auto steps = macro.array(keys::steps);
    require(steps && steps.size() <= limits::stepBytes, "a step takes a byte at least");
    for (const auto& item : steps.items()) {
        const auto step = item.dictionary();
        require(isWithin(step.integer(keys::command), 0, 255), "a step's command is a byte");
        require(isWithin(step.integer(keys::argument), 0, 0xFFFF), "a step's argument has 16 bits");
        require(isWithin(step.integer(keys::delay), 0, limits::longestDelay), "a step's delay has 24 bits");
    }
}

void requireLimits(const Dictionary& tree) {
    require(KyvarValidateConfig(tree, limits::writtenVersion), "a decoded tree is valid");
    const auto settings = tree.dictionary(keys::settings);
    requireSensitivity(settings);
    require(std::ranges::any_of(pollingRates,
                [&](const auto& rate) { return rate.hertz == settings.integer(keys::pollingRate); }),
        "a polling rate is one that the device has");
    require(tree.array(keys::profiles).size() <= limits::profiles, "there are five profiles at most");
    for (const auto& profile : tree.array(keys::profiles).items())
        requireProfile(profile.dictionary());
    require(
        tree.array(keys::macros).size() <= limits::macroSlots, "there are as many macros as slots at most");
    for (const auto& macro : tree.array(keys::macros).items())
        requireMacro(macro.dictionary());
}

} // namespace

Dictionary emptyTree() {
    auto tree = Dictionary::create();
    tree.set(keys::version, limits::writtenVersion);
    tree.set(keys::settings, Dictionary::create());
    tree.set(keys::profiles, Array::create());
    tree.set(keys::macros, Array::create());
    return tree;
}

void requireEncoding(const Dictionary& tree) {
    const auto record = garbage();
    const bool converts = KyvarConfigDictToStruct(tree, record.get());
    require(tree || !converts, "nothing does not convert");
    if (!tree)
        return;
    const auto expected = test::naiveEncode(tree);
    require(converts == expected.converts, "two encoders agree on whether a tree converts");
    require(sizeof *record == 13232 && expected.bytes.size() == sizeof *record, "a record has 13232 bytes");
    requireSameBytes(expected.bytes.data(), *record, "two encoders give the same record");
}

Dictionary requireDecoding(const ConfigRecord& record) {
    auto tree = KyvarConfigStructToDict(&record);
    requireLimits(tree);
    return tree;
}

void requireSettling(const Dictionary& tree) {
    const auto first = garbage();
    const auto second = garbage();
    if (!KyvarConfigDictToStruct(tree, first.get()))
        return;
    const auto decoded = requireDecoding(*first);
    if (!KyvarConfigDictToStruct(decoded, first.get()))
        return; // names and ids may mean that there is nothing
    require(KyvarConfigDictToStruct(KyvarConfigStructToDict(first.get()), second.get()),
        "what was encoded and decoded converts");
    requireSameBytes(first.get(), *second, "what was encoded and decoded is encoded to the same bytes");
}

} // namespace quorvi::fuzz
