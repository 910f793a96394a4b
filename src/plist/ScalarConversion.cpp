#include "plist/ScalarConversion.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <system_error>

namespace quorvi::plist {

namespace {

constexpr std::int64_t kIntMax = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t kIntMin = std::numeric_limits<std::int32_t>::min();

bool isBlank(char16_t c) {
    return c == u' ' || (c >= u'\t' && c <= u'\r');
}
bool isDigit(char16_t c) {
    return c >= u'0' && c <= u'9';
}

std::u16string_view withoutBlanks(std::u16string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

/// Removes a leading sign from the text and returns whether it was a minus.
bool takeSign(std::u16string_view& text) {
    const bool negative = !text.empty() && text.front() == u'-';
    if (!text.empty() && (text.front() == u'-' || text.front() == u'+'))
        text.remove_prefix(1);
    return negative;
}

std::int32_t leadingInteger(std::u16string_view text) {
    text = withoutBlanks(text);
    const bool negative = takeSign(text);
    std::int64_t number = 0;
    for (; !text.empty() && isDigit(text.front()) && number <= kIntMax + 1; text.remove_prefix(1))
        number = number * 10 + (text.front() - u'0');
    return static_cast<std::int32_t>(negative ? std::max(-number, kIntMin) : std::min(number, kIntMax));
}

bool leadingTruth(std::u16string_view text) {
    text = withoutBlanks(text);
    takeSign(text);
    while (!text.empty() && text.front() == u'0')
        text.remove_prefix(1);
    return !text.empty() &&
           std::u16string_view(u"YyTt123456789").find(text.front()) != std::u16string_view::npos;
}

/// Whether a decimal outside the range of a double is too small rather than too large.
bool isTiny(std::string_view decimal) {
    const auto exponent = decimal.find_first_of("eE");
    if (exponent != std::string_view::npos)
        return decimal.substr(exponent + 1).starts_with('-');
    return decimal.starts_with('0') || decimal.starts_with('.');
}

/// The longest decimal that matters: a double has at most 309 digits before its point.
constexpr std::size_t kLongestReal = 400;

double leadingReal(std::u16string_view text) {
    text = withoutBlanks(text);
    const bool negative = takeSign(text);
    std::string ascii;
    for (const char16_t c : text.substr(0, kLongestReal)) {
        if (!isDigit(c) && std::u16string_view(u".eE+-").find(c) == std::u16string_view::npos)
            break;
        ascii.push_back(static_cast<char>(c));
    }
    if (ascii.starts_with('-')) // a second sign, which from_chars would accept
        return 0;
    double number = 0;
    const auto end = ascii.data() + ascii.size();
    if (std::from_chars(ascii.data(), end, number).ec == std::errc::result_out_of_range)
        number = isTiny(ascii) ? 0 : std::numeric_limits<double>::infinity();
    return negative ? -number : number;
}

std::int32_t truncated(double number) {
    if (std::isnan(number))
        return 0;
    return static_cast<std::int32_t>(
        std::clamp(std::trunc(number), static_cast<double>(kIntMin), static_cast<double>(kIntMax)));
}

/// Calls one of the four functions, by the scalar's type; returns the result type's zero for everything else.
template <typename Result, typename Number, typename Real, typename Text>
Result convert(const Value& value, Number&& fromNumber, Real&& fromReal, Text&& fromText) {
    return std::visit(
        [&](const auto& v) -> Result {
            using T = std::decay_t<decltype(v)>;
            if constexpr (std::is_same_v<T, bool> || std::is_same_v<T, std::int64_t>)
                return fromNumber(std::int64_t{v});
            else if constexpr (std::is_same_v<T, CarriedRef>)
                return fromNumber(carriedInteger(v));
            else if constexpr (std::is_same_v<T, double>)
                return fromReal(v);
            else if constexpr (std::is_same_v<T, std::u16string>)
                return fromText(std::u16string_view(v));
            else
                return Result{};
        },
        value.variant());
}

} // namespace

std::int32_t toInteger(const Value& value) {
    return convert<std::int32_t>(
        value, [](std::int64_t v) { return static_cast<std::int32_t>(v); }, truncated, leadingInteger);
}

bool toBoolean(const Value& value) {
    return convert<bool>(
        value, [](std::int64_t v) { return v != 0; }, [](double v) { return v != 0; }, leadingTruth);
}

double toReal(const Value& value) {
    // An integer is carried because it is above the signed range.
    if (const auto* carried = std::get_if<CarriedRef>(&value.variant()))
        return static_cast<double>(static_cast<std::uint64_t>(carriedInteger(*carried)));
    return convert<double>(
        value, [](std::int64_t v) { return static_cast<double>(v); }, [](double v) { return v; },
        leadingReal);
}

} // namespace quorvi::plist
