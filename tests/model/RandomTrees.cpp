#include "model/RandomTrees.h"

#include <array>
#include <limits>
#include <string>

namespace quorvi::test {

using plist::Array;
using plist::Dictionary;
using plist::Value;

std::uint32_t RandomTrees::below(std::uint32_t count) {
    return static_cast<std::uint32_t>(m_random() % count);
}

std::int32_t RandomTrees::number() {
    static constexpr std::array<std::int32_t, 34> edges = {0, 1, 2, 3, 4, 5, 6, 16, 17, 18, 19, 20, 69, 70,
        75, 99, 100, 101, 125, 128, 255, 256, 500, 1000, 6475, 6500, 65535, 65536, 16777215, 16777216, -1,
        -256, std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()};
    switch (below(4)) {
    case 0:
        return static_cast<std::int32_t>(m_random());
    case 1:
        return static_cast<std::int32_t>(below(300));
    default:
        return edges[below(edges.size())];
    }
}

std::u16string RandomTrees::name() {
    static constexpr std::array<std::u16string_view, 6> pieces = {
        u"a", u"\u00E4", u"\u0416", u"\u5B57", u"\U0001F600", u"\U00010000"};
    std::u16string result;
    const auto length = oneIn(2) ? 18 + below(5) : below(24);
    while (result.size() < length)
        result += pieces[below(pieces.size())];
    return result;
}

Value RandomTrees::otherType() {
    switch (below(7)) {
    case 0:
        return Value(u" 300 and more");
    case 1:
        return Value(65535.75);
    case 2:
        return Value(true);
    case 3:
        return Value(std::int64_t{0x123456789AB});
    case 4:
        return Value(Array::create());
    case 5:
        return Value(Dictionary::create());
    default:
        return Value(plist::Data{1, 2});
    }
}

void RandomTrees::set(const Dictionary& dictionary, const char* key, Value value) {
    if (oneIn(40))
        return;
    dictionary.set(key, oneIn(40) ? otherType() : std::move(value));
}

Dictionary RandomTrees::numbers(std::initializer_list<const char*> keys) {
    auto dictionary = Dictionary::create();
    for (const auto* key : keys)
        set(dictionary, key, number());
    return dictionary;
}

template <typename Make>
Array RandomTrees::arrayOf(std::uint32_t count, Make make) {
    auto array = Array::create();
    for (std::uint32_t i = 0; i < count; ++i)
        array.append(oneIn(60) ? otherType() : Value(make()));
    return array;
}

Dictionary RandomTrees::step() {
    auto step = numbers({"command"});
    if (oneIn(2))
        set(step, "argument", number());
    if (oneIn(2))
        set(step, "delay", number());
    return step;
}

Dictionary RandomTrees::macro() {
    auto macro = numbers({"macroid", "delay"});
    set(macro, "name", name());
    const auto steps = oneIn(4) ? 30 + below(40) : below(8); // some 45 fill the step bytes
    set(macro, "steps", arrayOf(steps, [&] { return step(); }));
    return macro;
}

Dictionary RandomTrees::buttons() {
    auto buttons = Dictionary::create();
    for (const auto* key : {"01", "02", "03", "04", "05", "06", "07", "08", "09", "10", "1"}) {
        if (!oneIn(4))
            set(buttons, key, numbers({"command", "param1", "param2"}));
    }
    return buttons;
}

Dictionary RandomTrees::profile() {
    auto profile = numbers({"ledstate", "defaultstage"});
    const auto stages = oneIn(50) ? 254 + below(5) : below(8);
    set(profile, "name", name());
    set(profile, "stages", arrayOf(stages, [&] { return numbers({"dpix", "dpiy"}); }));
    set(profile, "buttons", buttons());
    return profile;
}

Dictionary RandomTrees::next() {
    auto tree = numbers({"version", "firmware"});
    set(tree, "settings", numbers({"profileid", "pollingrate", "stage", "dpix", "dpiy"}));
    set(tree, "profiles", arrayOf(below(8), [&] { return profile(); }));
    set(tree, "macros", arrayOf(below(15), [&] { return macro(); }));
    return tree;
}

} // namespace quorvi::test
