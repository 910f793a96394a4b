// Short notations for trees, and one valid configuration that each test breaks in one place.
#pragma once

#include <algorithm>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "plist/Value.h"

namespace quorvi::test {

[[nodiscard]] inline plist::Dictionary dict(
    std::initializer_list<std::pair<const char*, plist::Value>> entries = {}) {
    auto dictionary = plist::Dictionary::create();
    for (const auto& [key, value] : entries)
        dictionary.set(key, value);
    return dictionary;
}

[[nodiscard]] inline plist::Array list(std::initializer_list<plist::Value> items = {}) {
    auto array = plist::Array::create();
    for (const auto& item : items)
        array.append(item);
    return array;
}

[[nodiscard]] inline plist::Dictionary stage(int dpiX, int dpiY) {
    return dict({{"dpix", dpiX}, {"dpiy", dpiY}});
}

[[nodiscard]] inline plist::Dictionary assignment(int command, int param1, int param2) {
    return dict({{"command", command}, {"param1", param1}, {"param2", param2}});
}

[[nodiscard]] inline plist::Dictionary settings() {
    return dict({{"profileid", 2}, {"pollingrate", 1000}, {"stage", 3}, {"dpix", 800}, {"dpiy", 1600}});
}

[[nodiscard]] inline plist::Dictionary profile(std::u16string name = u"Game") {
    return dict({{"name", std::move(name)}, {"ledstate", 3}, {"defaultstage", 2},
        {"stages", list({stage(400, 400), stage(800, 1600)})},
        {"buttons", dict({{"01", assignment(1, 0, 0)}, {"09", assignment(65, 7, 1)}})}, {"driver", dict()}});
}

[[nodiscard]] inline plist::Dictionary macro(int macroId, std::u16string name = u"Jump") {
    return dict({{"macroid", macroId}, {"name", std::move(name)}, {"delay", 0x010203},
        {"steps", list({dict({{"command", 1}, {"argument", 4}, {"delay", 20}}),
                      dict({{"command", 0}, {"argument", 4}})})}});
}

[[nodiscard]] inline plist::Dictionary tree(plist::Array profiles, plist::Array macros) {
    return dict({{"version", 6}, {"firmware", 0x0102}, {"settings", settings()},
        {"profiles", std::move(profiles)}, {"macros", std::move(macros)}});
}

[[nodiscard]] inline plist::Dictionary tree() {
    return tree(list({profile()}), list({macro(7)}));
}

using Bytes = std::vector<std::uint8_t>;

/// The bytes of a record or of one of its fields.
template <typename Record>
[[nodiscard]] Bytes bytesOf(const Record& record) {
    static_assert(alignof(Record) == 1);
    const auto* first = reinterpret_cast<const std::uint8_t*>(&record);
    return {first, first + sizeof(Record)};
}

/// The bytes, followed by zeros up to the size.
[[nodiscard]] inline Bytes padded(Bytes bytes, std::size_t size) {
    bytes.resize(size, 0);
    return bytes;
}

[[nodiscard]] inline Bytes joined(Bytes first, const Bytes& second) {
    for (const auto byte : second)
        first.push_back(byte);
    return first;
}

/// Fills a record so that no byte matches a conversion's result by chance.
template <typename Record>
void fillWithGarbage(Record& record) {
    auto* first = reinterpret_cast<std::uint8_t*>(&record);
    std::fill(first, first + sizeof(Record), std::uint8_t{0xA5});
}

} // namespace quorvi::test
