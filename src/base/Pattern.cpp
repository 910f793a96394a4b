#include "base/Pattern.h"

namespace quorvi {

std::u16string filledPattern(std::u16string_view pattern, std::initializer_list<std::u16string_view> parts) {
    std::u16string filled;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        const bool isMark = pattern[at] == u'^' && at + 1 < pattern.size() && pattern[at + 1] >= u'1' &&
                            pattern[at + 1] <= u'9';
        const std::size_t part = isMark ? static_cast<std::size_t>(pattern[at + 1] - u'1') : parts.size();
        if (part >= parts.size()) {
            filled += pattern[at];
            continue;
        }
        filled += parts.begin()[part];
        ++at;
    }
    return filled;
}

std::u16string_view separatorIn(std::u16string_view pattern) {
    const std::size_t first = pattern.find(u"^1");
    const std::size_t second = pattern.find(u"^2");
    return first < second && second != pattern.npos ? pattern.substr(first + 2, second - first - 2)
                                                    : std::u16string_view();
}

} // namespace quorvi
