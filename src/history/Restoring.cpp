#include <optional>
#include <utility>

#include "history/Backup.h"
#include "model/CommandCodes.h"
#include "model/ConfigFileStore.h"
#include "model/Dependants.h"
#include "model/ItemFile.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/Lookups.h"
#include "model/SettingsDocument.h"
#include "model/SettingsMerge.h"
#include "plist/DeepCopy.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;
using What = LeftOut::What;

/// A parameter that cleanUpSettings() treats as missing, for macros and profiles.
constexpr std::int32_t kNowhere = -1;

/// Calls the function with each input of the profile that does anything, and its assignment.
template <typename Function>
void forEachAssignment(const Dictionary& profile, const Function& function) {
    const Dictionary buttons = profile.dictionary(keys::buttons);
    for (int input = 1; input <= limits::buttons; ++input)
        if (const Dictionary assignment = buttons.dictionary(keys::button(input)))
            function(input, assignment);
}

std::optional<What> faultOfMacro(const Dictionary& macro) {
    if (!macro.has(keys::name) || !macro.has(keys::steps))
        return What::damagedMacro;
    if (macro.array(keys::steps).size() > limits::macroSteps)
        return What::macroOfManySteps;
    return std::nullopt;
}

std::optional<What> faultOfProfile(const Dictionary& profile) {
    return KyvarValidateProfile(profile) ? std::nullopt : std::optional(What::damagedProfile);
}

/// The restored items of one of the backup's lists, in order.
struct Taken {
    Array items = Array::create();
    std::vector<std::size_t> numbers; ///< the number of each in the backup, from 1

    /// The new number for this one; std::nullopt if it was left out or never existed.
    [[nodiscard]] std::optional<std::int32_t> newNumber(std::int32_t number) const {
        for (std::size_t index = 0; index < numbers.size(); ++index)
            if (static_cast<std::int64_t>(numbers[index]) == number)
                return static_cast<std::int32_t>(index + 1);
        return std::nullopt;
    }
};

template <typename FaultOf>
Taken taken(const Array& list, int most, What beyond, FaultOf&& faultOf, std::vector<LeftOut>& leftOut) {
    Taken result;
    for (std::size_t index = 0; index < list.size(); ++index) {
        const Dictionary item = list.dictionary(index);
        std::optional<What> fault = faultOf(item);
        if (!fault && static_cast<int>(result.items.size()) >= most)
            fault = beyond;
        if (fault) {
            leftOut.push_back({*fault, item.string(keys::name), index + 1});
            continue;
        }
        result.items.append(item);
        result.numbers.push_back(index + 1);
    }
    return result;
}

/// Sets the parameter to the target, or clears it and adds that to the list.
void redirect(const Dictionary& assignment, std::optional<std::int32_t> target, LeftOut otherwise,
    std::vector<LeftOut>& leftOut) {
    if (!target)
        leftOut.push_back(std::move(otherwise));
    if (assignment.integer(keys::param1) != target.value_or(kNowhere))
        assignment.set(keys::param1, target.value_or(kNowhere));
}

/// Redirects the inputs of the profile, which has that number in the backup, with the two functions.
template <typename MacroNow, typename ProfileNow>
void redirectInputs(const Dictionary& profile, std::size_t number, const MacroNow& macroNow,
    const ProfileNow& profileNow, std::vector<LeftOut>& leftOut) {
    forEachAssignment(profile, [&](int input, const Dictionary& assignment) {
        const std::int32_t target = assignment.integer(keys::param1);
        const auto cleared = [&](What what) {
            return LeftOut{what, profile.string(keys::name), number, input};
        };
        switch (assignment.integer(keys::command)) {
        case commands::runMacro:
            redirect(assignment, macroNow(target), cleared(What::inputsMacro), leftOut);
            break;
        case commands::switchToProfile:
            redirect(assignment, profileNow(target), cleared(What::inputsProfile), leftOut);
            break;
        default:
            break;
        }
    });
}

void followCurrentProfile(const Dictionary& tree, const Taken& profiles) {
    const Dictionary settings = tree.dictionary(keys::settings);
    const std::int32_t current = settings.integer(keys::profileId);
    if (const std::int32_t now = profiles.newNumber(current).value_or(1); now != current)
        settings.set(keys::profileId, now);
}

/// Whether the two are equivalent.
bool isSameMacro(const Dictionary& a, const Dictionary& b) {
    const auto withoutNames = [](const Dictionary& macro) {
        const auto content = Dictionary::create();
        for (const auto& entry : macro.entries())
            if (entry.key != keys::macroId && entry.key != keys::name)
                content.append(entry.key, entry.value);
        return plist::Value(content);
    };
    return withoutNames(a) == withoutNames(b);
}

/// The identifier of an equivalent macro in the list, preferably with the same name.
std::optional<std::int32_t> identifierOfSame(const Dictionary& macro, const Array& macros) {
    std::optional<std::int32_t> found;
    for (std::size_t index = 0; index < macros.size(); ++index) {
        const Dictionary other = macros.dictionary(index);
        const std::int32_t macroId = other.integer(keys::macroId);
        const bool isRunByIt = KyvarFindMacroInArray(macroId, nullptr, macros) == static_cast<int>(index);
        if (!isRunByIt || !isSameMacro(macro, other))
            continue;
        if (other.value(keys::name) == macro.value(keys::name))
            return macroId;
        if (!found)
            found = macroId;
    }
    return found;
}

/// Adds the macro unless an equivalent one exists. Returns its identifier, or why there is none.
std::pair<std::optional<std::int32_t>, What> addMacro(
    const Dictionary& macro, const Array& macros, const std::u16string& defaultName) {
    if (const auto fault = faultOfMacro(macro))
        return {std::nullopt, *fault};
    if (const auto same = identifierOfSame(macro, macros))
        return {same, {}};
    const int macroId = KyvarFindUnusedMacroID(macros);
    if (macroId < 0)
        return {std::nullopt, What::macroBeyond};
    const auto added = plist::mutableDeepCopy(macro);
    added.set(keys::macroId, macroId);
    appendItem(macros, added, defaultName);
    return {macroId, {}};
}

/// The identifiers of macros in a backup, and the corresponding ones in the tree.
struct Identifiers {
    std::vector<std::pair<std::int32_t, std::int32_t>> pairs;

    [[nodiscard]] std::optional<std::int32_t> now(std::int32_t then) const {
        for (const auto& [before, after] : pairs)
            if (before == then)
                return after;
        return std::nullopt;
    }
};

/// Adds the macros that the profile runs, as far as there is room.
Identifiers addMacrosOf(const Dictionary& profile, const Array& source, const Array& macros,
    const std::u16string& defaultName, std::vector<LeftOut>& leftOut) {
    Identifiers result;
    for (const std::size_t index : macrosRunBy(profile, source)) {
        const Dictionary macro = source.dictionary(index);
        const auto [macroId, why] = addMacro(macro, macros, defaultName);
        if (macroId)
            result.pairs.emplace_back(macro.integer(keys::macroId), *macroId);
        else
            leftOut.push_back({why, macro.string(keys::name), index + 1});
    }
    return result;
}

} // namespace

std::vector<LeftOut> restoreEverything(const Dictionary& tree, const Backup& backup) {
    std::vector<LeftOut> leftOut;
    const auto next = plist::mutableDeepCopy(backup.tree);
    if (!tree || !next || backup.contents != BackupContents::everything)
        return leftOut;
    const auto profiles =
        taken(next.array(keys::profiles), limits::profiles, What::profileBeyond, faultOfProfile, leftOut);
    const auto macros =
        taken(next.array(keys::macros), limits::macros, What::macroBeyond, faultOfMacro, leftOut);
    next.set(keys::profiles, profiles.items);
    next.set(keys::macros, macros.items);
    const auto macroNow = [&](std::int32_t macroId) {
        return KyvarFindMacroInArray(macroId, nullptr, macros.items) < 0 ? std::nullopt
                                                                         : std::optional(macroId);
    };
    for (std::size_t index = 0; index < profiles.items.size(); ++index)
        redirectInputs(
            profiles.items.dictionary(index), profiles.numbers[index], macroNow,
            [&](std::int32_t number) { return profiles.newNumber(number); }, leftOut);
    followCurrentProfile(next, profiles);
    cleanUpSettings(next);
    bringTo(tree, next);
    return leftOut;
}

AddedProfile addProfile(const Dictionary& tree, const Backup& backup, const DefaultNames& names) {
    const Array profiles = tree.array(keys::profiles);
    const Array macros = tree.array(keys::macros);
    const auto profile = plist::mutableDeepCopy(backup.tree.array(keys::profiles).dictionary(0));
    if (!profiles || !macros)
        return {};
    std::optional<What> fault = faultOfProfile(profile);
    if (!fault && profiles.size() >= static_cast<std::size_t>(limits::profiles))
        fault = What::profileBeyond;
    if (fault)
        return {std::nullopt, {{*fault, profile.string(keys::name), 1}}};
    AddedProfile result{profiles.size(), {}};
    const auto identifiers =
        addMacrosOf(profile, backup.tree.array(keys::macros), macros, names.macro, result.leftOut);
    const auto count = static_cast<std::int32_t>(profiles.size()) + 1;
    const auto profileNow = [&](std::int32_t number) {
        return number >= 1 && number <= count ? std::optional(number) : std::nullopt;
    };
    redirectInputs(
        profile, 1, [&](std::int32_t macroId) { return identifiers.now(macroId); }, profileNow,
        result.leftOut);
    appendItem(profiles, profile, names.profile);
    cleanUpSettings(tree);
    return result;
}

} // namespace quorvi
