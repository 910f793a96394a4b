#include "macros/NaiveReplacement.h"

#include <map>
#include <optional>

namespace quorvi::test {

namespace {

const std::map<int, int> kPartners{
    {0, 1}, {1, 0}, {128, 129}, {129, 128}, {130, 128}, {132, 128}, {136, 128}, {144, 128}};

int partnerOf(int code) {
    const auto found = kPartners.find(code);
    return found == kPartners.end() ? 0 : found->second;
}

bool endsSomething(int code) {
    return code == 0 || code == 128;
}

bool ends(const TestStep& release, const TestStep& press) {
    return release.command == partnerOf(press.command) && release.argument == press.argument;
}

bool begins(const TestStep& press, const TestStep& release) {
    const bool fits =
        release.command == 128 ? press.command >= 129 && press.command <= 144 : press.command == 1;
    return fits && press.argument == release.argument;
}

std::optional<std::size_t> otherHalf(const TestMacro& macro, std::size_t row) {
    std::optional<std::size_t> found;
    for (std::size_t other = 0; other < macro.size(); ++other) {
        if (endsSomething(macro[row].command)) {
            if (other < row && begins(macro[other], macro[row]))
                found = other; // the last one counts
        } else if (other > row && !found && ends(macro[other], macro[row])) {
            found = other;
        }
    }
    return found;
}

} // namespace

TestMacro naivelyReplaced(TestMacro macro, std::size_t row, int code, int argument) {
    if (code != 0 && code != 1 && (code < 128 || code > 144))
        return macro;
    const bool wasRelease = endsSomething(macro[row].command);
    const auto other = otherHalf(macro, row);
    const int ownCode = wasRelease ? partnerOf(code) : code;
    const int otherCode = wasRelease ? code : partnerOf(code);
    macro[row] = {ownCode, argument, macro[row].delay};
    if (other)
        macro[*other] = {otherCode, argument, macro[*other].delay};
    return macro;
}

} // namespace quorvi::test
