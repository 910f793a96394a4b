#include "document/Snapshot.h"

#include <cmath>

#include "model/Keys.h"

namespace quorvi {

namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

/// NaN equals itself here.
bool isSameScalar(const Value& a, const Value& b) {
    const auto isNaN = [](const Value& value) {
        const auto* real = std::get_if<double>(&value.variant());
        return real && std::isnan(*real);
    };
    return a == b || (isNaN(a) && isNaN(b));
}

Dictionary snapshotOfDictionary(const Dictionary& dictionary, const Dictionary& earlier);
Array snapshotOfArray(const Array& array, const Array& earlier);

struct Taken {
    Value value;
    bool isEarlier = false; ///< the value is the earlier one itself
};

// NOLINTNEXTLINE(misc-no-recursion): as deep as the tree, which the reader bounds
Taken take(const Value& value, const Value& earlier) {
    if (const Dictionary dictionary = value.dictionary()) {
        const Dictionary before = earlier.dictionary();
        Dictionary taken = snapshotOfDictionary(dictionary, before);
        const bool isEarlier = before && taken.isSameAs(before);
        return {std::move(taken), isEarlier};
    }
    if (const Array array = value.array()) {
        const Array before = earlier.array();
        Array taken = snapshotOfArray(array, before);
        const bool isEarlier = before && taken.isSameAs(before);
        return {std::move(taken), isEarlier};
    }
    return {value, isSameScalar(value, earlier)};
}

// NOLINTNEXTLINE(misc-no-recursion): as above
Dictionary snapshotOfDictionary(const Dictionary& dictionary, const Dictionary& earlier) {
    if (dictionary.isSameAs(earlier)) // a snapshot itself
        return earlier;
    const auto& now = dictionary.entries();
    const auto& before = earlier.entries();
    Dictionary taken; // made at the first difference
    const auto begin = [&](std::size_t same) {
        taken = Dictionary::create();
        taken.reserve(now.size());
        for (std::size_t index = 0; index < same; ++index)
            taken.append(before[index].key, before[index].value);
    };
    for (std::size_t index = 0; index < now.size(); ++index) {
        const bool isAtPlace = index < before.size() && before[index].key == now[index].key;
        Taken next = take(now[index].value, isAtPlace ? before[index].value : earlier.value(now[index].key));
        if (!taken && !(isAtPlace && next.isEarlier))
            begin(index);
        if (taken)
            taken.append(now[index].key, std::move(next.value));
    }
    if (!taken && (!earlier || now.size() != before.size()))
        begin(now.size());
    return taken ? taken : earlier;
}

// NOLINTNEXTLINE(misc-no-recursion): as above
Array snapshotOfArray(const Array& array, const Array& earlier) {
    if (array.isSameAs(earlier))
        return earlier;
    const auto& now = array.items();
    const auto& before = earlier.items();
    Array taken;
    const auto begin = [&](std::size_t same) {
        taken = Array::create();
        taken.reserve(now.size());
        for (std::size_t index = 0; index < same; ++index)
            taken.append(before[index]);
    };
    for (std::size_t index = 0; index < now.size(); ++index) {
        Taken next = take(now[index], earlier.value(index));
        // After an added or removed item, compare the others counted from the end.
        if (!next.isEarlier && before.size() != now.size() && index + before.size() >= now.size())
            if (Taken moved = take(now[index], earlier.value(index + before.size() - now.size()));
                moved.isEarlier) {
                moved.isEarlier = false;
                next = std::move(moved);
            }
        if (!taken && !next.isEarlier)
            begin(index);
        if (taken)
            taken.append(std::move(next.value));
    }
    if (!taken && (!earlier || now.size() != before.size()))
        begin(now.size());
    return taken ? taken : earlier;
}

} // namespace

Dictionary snapshotOf(const Dictionary& tree, const Dictionary& earlier) {
    return tree ? snapshotOfDictionary(tree, earlier) : Dictionary();
}

Dictionary snapshotOfProfile(const Dictionary& tree, const Dictionary& earlier, std::size_t profile) {
    const Dictionary settings = tree.dictionary(keys::settings);
    const Dictionary one = tree.array(keys::profiles).dictionary(profile);
    const Dictionary settingsBefore = earlier.dictionary(keys::settings);
    const Dictionary oneBefore = earlier.array(keys::profiles).dictionary(profile);
    if (!settings || !one || !settingsBefore || !oneBefore)
        return snapshotOf(tree, earlier);
    const Dictionary settingsNow = snapshotOf(settings, settingsBefore);
    const Dictionary oneNow = snapshotOf(one, oneBefore);
    if (settingsNow.isSameAs(settingsBefore) && oneNow.isSameAs(oneBefore))
        return earlier;
    const auto profiles = Array::create();
    const Array before = earlier.array(keys::profiles);
    for (const Value& item : before.items())
        profiles.append(item);
    profiles.replace(profile, oneNow);
    auto taken = Dictionary::create();
    taken.reserve(earlier.size());
    for (const plist::Entry& entry : earlier.entries())
        taken.append(entry.key, entry.value);
    taken.set(keys::settings, settingsNow);
    taken.set(keys::profiles, profiles);
    return taken;
}

} // namespace quorvi
