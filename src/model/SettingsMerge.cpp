#include "model/SettingsMerge.h"

#include <algorithm>
#include <array>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/Dependants.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "model/Lookups.h"
#include "model/NamingRule.h"
#include "model/SettingsDocument.h"
#include "plist/DeepCopy.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

/// The kinds of values that are merged differently.
enum class Role : std::uint8_t {
    tree,
    settings,
    profiles,
    profile,
    buttons,
    driver,
    macros,
    lights,
    whole, ///< one thing, whatever its parts
    other,
};

Role roleOf(Role holder, std::string_view key) {
    switch (holder) {
    case Role::tree:
        return key == keys::settings   ? Role::settings
               : key == keys::profiles ? Role::profiles
               : key == keys::macros   ? Role::macros
                                       : Role::other;
    case Role::profile:
        return key == keys::ledState  ? Role::lights
               : key == keys::buttons ? Role::buttons
               : key == keys::driver  ? Role::driver
                                      : Role::other;
    case Role::buttons:
        return Role::whole;
    default:
        return Role::other;
    }
}

Role roleOfItem(Role array) {
    return array == Role::profiles ? Role::profile : Role::other;
}

constexpr std::array kCurrent{keys::profileId, keys::stage, keys::dpiX, keys::dpiY, keys::independentXY};
constexpr std::array kChosen{keys::profileId, keys::stage};
constexpr std::array kApplication{keys::application, keys::identifier, keys::signature, keys::executable};
constexpr std::array kStages{keys::defaultStage, keys::stages};

using KeysOfThing = std::span<const std::string_view>;

bool equalIn(const Dictionary& a, const Dictionary& b, KeysOfThing keysOfThing) {
    return std::all_of(
        keysOfThing.begin(), keysOfThing.end(), [&](auto key) { return a.value(key) == b.value(key); });
}

bool isNumber(const Value& value) {
    return std::holds_alternative<std::int64_t>(value.variant());
}

/// The three versions of one value.
template <typename T>
struct Three {
    T base;
    T ours;
    T theirs;
};

/// The keys of a dictionary that together are one thing, if any.
KeysOfThing keysOfOneThing(Role role, const Three<Dictionary>& of) {
    const auto [base, ours, theirs] = of;
    const auto stagesOf = [](const Dictionary& profile) { return profile.array(keys::stages).size(); };
    switch (role) {
    case Role::settings:
        return equalIn(base, ours, kChosen) && equalIn(base, theirs, kChosen) ? KeysOfThing()
                                                                              : KeysOfThing(kCurrent);
    case Role::driver:
        return kApplication;
    case Role::profile:
        return stagesOf(base) == stagesOf(ours) && stagesOf(base) == stagesOf(theirs) ? KeysOfThing()
                                                                                      : KeysOfThing(kStages);
    default:
        return {};
    }
}

bool isList(Role role) {
    return role == Role::profiles || role == Role::macros;
}

std::size_t limitOf(Role list) {
    return static_cast<std::size_t>(list == Role::profiles ? limits::profiles
                                    : list == Role::macros ? limits::macros
                                                           : 0);
}

/// Whether the list starts with the base's items, at most followed by more.
bool hasSameThings(Role role, const Array& base, const Array& list) {
    for (std::size_t index = 0; index < base.size(); ++index) {
        const Dictionary before = base.dictionary(index);
        const Dictionary now = list.dictionary(index);
        if (role == Role::macros && before.integer(keys::macroId) != now.integer(keys::macroId))
            return false;
        // An item with a new name may be a renamed one; an item with another item's name is not.
        const auto hasItsName = [&](const Value& item) {
            return item.dictionary().value(keys::name) == now.value(keys::name);
        };
        const auto& items = base.items();
        if (!(before.value(keys::name) == now.value(keys::name)) &&
            std::any_of(items.begin(), items.end(), hasItsName))
            return false;
    }
    return true;
}

/// Whether the arrays' items can be merged one by one.
bool fits(Role role, const Three<Array>& of) {
    const auto [base, ours, theirs] = of;
    const bool isLonger = ours.size() > base.size() || theirs.size() > base.size();
    return ours.size() >= base.size() && theirs.size() >= base.size() && (!isLonger || isList(role)) &&
           (!isList(role) || (hasSameThings(role, base, ours) && hasSameThings(role, base, theirs)));
}

void giveIdentifier(const Dictionary& tree, std::size_t macro, int macroId) {
    for (const ProfileInput& at : inputsThatRun(tree, macro))
        tree.array(keys::profiles)
            .dictionary(at.profile)
            .dictionary(keys::buttons)
            .dictionary(keys::button(at.input))
            .set(keys::param1, macroId);
    tree.array(keys::macros).dictionary(macro).set(keys::macroId, macroId);
}

/// If both have appended a macro with the same identifier, ours gets a free one. Ours rather than theirs:
/// their writer then finds its macro behind one with another identifier, and does not confuse the two.
void keepNewMacrosApart(const Dictionary& base, const Dictionary& ours, const Dictionary& theirs) {
    const Three<Array> of{base.array(keys::macros), ours.array(keys::macros), theirs.array(keys::macros)};
    const auto known = of.base.size();
    if (!of.base || !of.ours || !of.theirs || Value(of.ours) == Value(of.theirs) || !fits(Role::macros, of) ||
        of.ours.size() + of.theirs.size() - known > limitOf(Role::macros))
        return;
    for (std::size_t index = known; index < of.ours.size(); ++index) {
        const auto macroId = of.ours.dictionary(index).integer(keys::macroId);
        if (KyvarFindMacroInArray(macroId, nullptr, of.theirs) < static_cast<int>(known))
            continue;
        const auto others = Array::create();
        for (const auto& macro : of.theirs.items())
            others.append(macro);
        for (std::size_t other = known; other < of.ours.size(); ++other)
            if (other != index)
                others.append(of.ours.value(other));
        giveIdentifier(ours, index, KyvarFindUnusedMacroID(others));
    }
}

class Merger {
  public:
    Value merge(Role role, const Value& base, const Value& ours, const Value& theirs) {
        if (ours == theirs || theirs == base)
            return ours;
        if (ours == base)
            return theirs;
        if (role == Role::lights && isNumber(base) && isNumber(ours) && isNumber(theirs))
            return mergeLights(base.integer(), ours.integer(), theirs.integer());
        if (role != Role::whole && ours.dictionary() && theirs.dictionary())
            return mergeDictionaries(role, {base.dictionary(), ours.dictionary(), theirs.dictionary()});
        if (role != Role::whole && base.array() && ours.array() && theirs.array())
            return mergeArrays(role, {base.array(), ours.array(), theirs.array()});
        m_conflict = true;
        return ours;
    }

    [[nodiscard]] bool conflict() const { return m_conflict; }

  private:
    static std::int32_t mergeLights(std::int32_t base, std::int32_t ours, std::int32_t theirs) {
        const std::int32_t oursChanged = base ^ ours;
        return (theirs & ~oursChanged) | (ours & oursChanged);
    }

    Value mergeDictionaries(Role role, const Three<Dictionary>& of) {
        const auto [base, ours, theirs] = of;
        const KeysOfThing oneThing = keysOfOneThing(role, of);
        const bool takesOurs = !equalIn(base, ours, oneThing);
        if (takesOurs && !equalIn(base, theirs, oneThing) && !equalIn(ours, theirs, oneThing))
            m_conflict = true;
        const auto merged = Dictionary::create();
        const auto add = [&, base = base, ours = ours, theirs = theirs](const std::string& key) {
            const bool isOfThing = std::find(oneThing.begin(), oneThing.end(), key) != oneThing.end();
            const Value value =
                isOfThing ? (takesOurs ? ours : theirs).value(key)
                          : merge(roleOf(role, key), base.value(key), ours.value(key), theirs.value(key));
            if (!value.isNothing())
                merged.append(key, value);
        };
        for (const auto& entry : ours.entries())
            add(entry.key);
        for (const auto& entry : theirs.entries())
            if (!ours.has(entry.key))
                add(entry.key);
        return merged;
    }

    Value mergeArrays(Role role, const Three<Array>& of) {
        const Array merged = fits(role, of) ? mergeItems(role, of) : Array();
        if (merged)
            return merged;
        m_conflict = true;
        return of.ours;
    }

    /// Nil if there are too many, or they cannot be told apart.
    Array mergeItems(Role role, const Three<Array>& of) {
        const auto [base, ours, theirs] = of;
        const auto merged = Array::create();
        for (std::size_t index = 0; index < base.size(); ++index)
            merged.append(merge(roleOfItem(role), base.value(index), ours.value(index), theirs.value(index)));
        std::set<std::int32_t> identifiers;
        for (std::size_t index = base.size(); index < ours.size(); ++index) {
            merged.append(ours.value(index));
            identifiers.insert(ours.dictionary(index).integer(keys::macroId));
        }
        for (std::size_t index = base.size(); index < theirs.size(); ++index) {
            const Dictionary item = theirs.dictionary(index);
            if (role == Role::macros && !identifiers.insert(item.integer(keys::macroId)).second)
                return {};
            nameAnew(item, merged);
            merged.append(theirs.value(index));
        }
        const bool hasGrown = merged.size() > base.size();
        return hasGrown && merged.size() > limitOf(role) ? Array() : merged;
    }

    static void nameAnew(const Dictionary& item, const Array& list) {
        const auto* name = item.value(keys::name).string();
        if (!name)
            return;
        auto unique = makeNameUnique(*name, *name, list, keys::name, -1);
        if (unique != *name)
            item.set(keys::name, std::move(unique));
    }

    bool m_conflict = false;
};

/// Whether the tree has the profile and the stage that these settings name.
bool hasCurrent(const Dictionary& tree, const Dictionary& settings) {
    const auto isNumberOf = [&](std::string_view key, const Array& list) {
        const std::int32_t number = settings.integer(key);
        return number >= 1 && static_cast<std::size_t>(number) <= list.size();
    };
    const Array profiles = tree.array(keys::profiles);
    return isNumberOf(keys::profileId, profiles) &&
           isNumberOf(keys::stage,
               profiles.dictionary(static_cast<std::size_t>(settings.integer(keys::profileId) - 1))
                   .array(keys::stages));
}

void takeCurrent(const Dictionary& settings, const Dictionary& from) {
    for (const auto key : kCurrent)
        if (const Value& value = from.value(key); value.isNothing())
            settings.remove(key);
        else
            settings.set(key, value);
}

/// If what one side has chosen as current went with the other's change, what the other has chosen is current.
/// Returns whether that was so.
bool replacesCurrent(const Dictionary& merged, const Dictionary& side, const Dictionary& other) {
    const Dictionary settings = merged.dictionary(keys::settings);
    const Dictionary choice = side.dictionary(keys::settings);
    const Dictionary instead = other.dictionary(keys::settings);
    const bool isGone = settings && equalIn(settings, choice, kChosen) && hasCurrent(side, choice) &&
                        !hasCurrent(merged, choice);
    if (!isGone || !hasCurrent(merged, instead))
        return false;
    takeCurrent(settings, instead);
    return true;
}

/// Sets the other value, or updates in place if both are containers of one kind.
template <typename Set>
void bringValueTo(const Value& now, const Value& other, Set&& set);

void bringArrayTo(const Array& array, const Array& other) {
    while (array.size() > other.size())
        array.remove(array.size() - 1);
    for (std::size_t index = 0; index < array.size(); ++index)
        bringValueTo(Value(array.value(index)), other.value(index),
            [&](const Value& value) { array.replace(index, value); });
    for (std::size_t index = array.size(); index < other.size(); ++index)
        array.append(other.value(index));
}

template <typename Set>
void bringValueTo(const Value& now, const Value& other, Set&& set) {
    if (now.dictionary() && other.dictionary())
        bringTo(now.dictionary(), other.dictionary());
    else if (now.array() && other.array())
        bringArrayTo(now.array(), other.array());
    else if (!(now == other))
        set(other);
}

/// A file shows the keys' order.
void bringKeysInOrder(const Dictionary& tree, const Dictionary& other) {
    const auto& now = tree.entries();
    const auto& wanted = other.entries();
    if (std::equal(now.begin(), now.end(), wanted.begin(), wanted.end(),
            [](const plist::Entry& a, const plist::Entry& b) { return a.key == b.key; }))
        return;
    std::vector<plist::Entry> entries;
    entries.reserve(wanted.size());
    for (const auto& entry : wanted)
        entries.emplace_back(entry.key, tree.value(entry.key));
    tree.removeAll();
    for (auto& entry : entries)
        tree.append(entry.key, std::move(entry.value));
}

} // namespace

MergedSettings mergeSettings(const Value& base, const Dictionary& ours, const Dictionary& theirs) {
    const Value copyOfOurs = plist::deepCopy(ours);
    const Value copyOfTheirs = plist::deepCopy(theirs);
    keepNewMacrosApart(base.dictionary(), copyOfOurs.dictionary(), copyOfTheirs.dictionary());
    Merger merger;
    const auto merged = merger.merge(Role::tree, base, copyOfOurs, copyOfTheirs);
    const auto tree = plist::mutableDeepCopy(merged.dictionary());
    replacesCurrent(tree, copyOfOurs.dictionary(), copyOfTheirs.dictionary());
    const bool losesTheirs = replacesCurrent(tree, copyOfTheirs.dictionary(), copyOfOurs.dictionary());
    cleanUpSettings(tree);
    return {tree, merger.conflict() || losesTheirs};
}

void bringTo(const Dictionary& tree, const Dictionary& other) {
    std::vector<std::string> gone;
    for (const auto& entry : tree.entries())
        if (!other.has(entry.key))
            gone.push_back(entry.key);
    for (const auto& key : gone)
        tree.remove(key);
    for (const auto& entry : other.entries())
        bringValueTo(Value(tree.value(entry.key)), entry.value,
            [&](const Value& value) { tree.set(entry.key, value); });
    bringKeysInOrder(tree, other);
}

} // namespace quorvi
