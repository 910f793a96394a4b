#include "helper/display/ChangeTexts.h"

#include <algorithm>
#include <utility>

#include "base/Pattern.h"
#include "base/Unicode.h"
#include "model/Keys.h"

namespace quorvi {

namespace {

constexpr std::size_t kLongestName = 80; // UTF-16 units, as the panel shows
constexpr char16_t kFirstStrongIsolate = u'\u2068';
constexpr char16_t kPopIsolate = u'\u2069';

bool isControl(char16_t unit) {
    constexpr std::u16string_view directions = u"\u200e\u200f\u061c\u2028\u2029";
    return unit < u' ' || (unit >= 0x7F && unit < 0xA0) || (unit >= 0x202A && unit <= 0x202E) ||
           (unit >= 0x2066 && unit <= 0x2069) || directions.find(unit) != directions.npos;
}

std::u16string shownName(std::u16string name) {
    std::erase_if(name, isControl);
    if (name.size() > kLongestName) {
        const bool cutsAPair = name[kLongestName - 1] >= 0xD800 && name[kLongestName - 1] < 0xDC00;
        name.resize(cutsAPair ? kLongestName - 1 : kLongestName);
        name += u'…';
    }
    return kFirstStrongIsolate + name + kPopIsolate;
}

void putNumber(std::u16string& text, int number) {
    const auto digits = std::to_string(number);
    if (const auto place = text.find(u"%d"); place != std::u16string::npos)
        text.replace(place, 2, std::u16string(digits.begin(), digits.end()));
}

} // namespace

std::string textOf(
    ChangeShown change, const engine::Running& running, const plist::Array& profiles, const Bundle& bundle) {
    const auto localized = [&bundle](
                               const char16_t* key) { return bundle.localizedString(key, "Localizable"); };
    if (change == ChangeShown::profile) {
        auto name = profiles.dictionary(running.profile - 1U).string(keys::name);
        if (name.empty())
            name = localized(u"Default Profile");
        return toUtf8(filledPattern(localized(u"Profile: ^1"), {shownName(std::move(name))}));
    }
    auto text = localized(running.dpiX == running.dpiY ? u"%d DPI" : u"%d × %d DPI");
    putNumber(text, running.dpiX);
    if (running.dpiX != running.dpiY)
        putNumber(text, running.dpiY);
    return toUtf8(text);
}

} // namespace quorvi
