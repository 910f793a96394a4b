#include "macros/DelayText.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

#include "base/Pattern.h"
#include "macros/TypedText.h"
#include "model/Limits.h"

namespace quorvi {

namespace {

constexpr std::int32_t kSecond = 1000;
constexpr std::int32_t kMinute = 60 * kSecond;
constexpr std::size_t kGroup = 3;
/// Replaces every sign that only groups digits.
constexpr char16_t kGroupSign = u'\'';

std::u16string inDigits(std::int32_t number) {
    std::u16string digits;
    for (const char digit : std::to_string(number))
        digits += static_cast<char16_t>(digit);
    return digits;
}

std::u16string inSeconds(std::int32_t milliseconds, char16_t decimalSign) {
    std::u16string text = inDigits(milliseconds / kSecond);
    if (milliseconds % kSecond == 0)
        return text;
    text += decimalSign;
    text += inDigits(kSecond + milliseconds % kSecond).substr(1); // with the zeros before it
    text.erase(text.find_last_not_of(u'0') + 1);
    return text;
}

/// The language's decimal sign, as point or comma.
char16_t pointOrComma(char16_t decimalSign) {
    return decimalSign == u',' ? u',' : u'.';
}

// Typed texts, with fewer kinds of characters

/// Whether the character is a mark that only sets the direction of the text.
bool isDirectionMark(char16_t character) {
    return character == u'\u061C' || character == u'\u200E' || character == u'\u200F' ||
           (character >= u'\u202A' && character <= u'\u202E') ||
           (character >= u'\u2066' && character <= u'\u2069');
}

/// The digit in ASCII, if it is of a script that the panel's users are likely to type.
char16_t plainDigit(char16_t character) {
    // Arabic, Persian, Devanagari, Bengali, Thai
    constexpr std::array zeros{u'\u0660', u'\u06F0', u'\u0966', u'\u09E6', u'\u0E50'};
    for (const char16_t zero : zeros)
        if (character >= zero && character < zero + 10)
            return static_cast<char16_t>(u'0' + (character - zero));
    return character;
}

/// The ASCII character for its full-width form, which Chinese and Japanese input methods type.
char16_t ofUsualWidth(char16_t character) {
    constexpr char16_t shift = u'\uFF01' - u'!';
    const bool isWide = character >= u'\uFF01' && character <= u'\uFF5E';
    return isWide ? static_cast<char16_t>(character - shift) : character;
}

char16_t plainSign(char16_t character, char16_t decimalSign) {
    switch (character) {
    case u'\u066B': // the decimal sign of Arabic
        return decimalSign;
    case u'\u066C': // its sign between groups
    case u'\u2019':
        return kGroupSign;
    case u'\u2212':
        return u'-';
    default:
        return character;
    }
}

/// The small letter for a capital Latin or Cyrillic letter.
char16_t small(char16_t letter) {
    constexpr char16_t toSmall = 0x20;
    const bool capital = (letter >= u'A' && letter <= u'Z') || (letter >= u'\u00C0' && letter <= u'\u00DE') ||
                         (letter >= u'\u0410' && letter <= u'\u042F');
    return capital ? static_cast<char16_t>(letter + toSmall) : letter;
}

/// The text with ASCII digits and signs, small letters and plain blanks, and without blanks at its ends.
std::u16string plainText(std::u16string_view text, char16_t decimalSign) {
    std::u16string plain;
    for (const char16_t character : text)
        if (!isDirectionMark(character))
            plain += isBlank(character) ? u' '
                                        : small(plainSign(plainDigit(ofUsualWidth(character)), decimalSign));
    return std::u16string(trimmed(plain));
}

// Units

/// The name of a unit without blanks and without a point at its end.
std::u16string bareName(std::u16string_view name) {
    std::u16string bare;
    std::ranges::copy_if(plainText(name, u'.'), std::back_inserter(bare),
        [](char16_t character) { return character != u' '; });
    if (bare.ends_with(u'.'))
        bare.pop_back();
    return bare;
}

/// Whether the comma-separated list contains the unit.
bool names(std::u16string_view list, std::u16string_view unit) {
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(u','), list.size());
        if (bareName(list.substr(0, end)) == unit)
            return true;
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return false;
}

/// The unit in milliseconds; std::nullopt for an unknown unit.
std::optional<std::int32_t> unitNamed(std::u16string_view name, const TextLookup& lookup) {
    const std::u16string unit = bareName(name);
    const auto is = [&](std::u16string_view english, const std::u16string& pattern,
                        const std::u16string& listed) {
        return names(english, unit) || bareName(filledPattern(pattern, {u""})) == unit || names(listed, unit);
    };
    if (unit.empty() || is(u"ms,msec,msecs,millisecond,milliseconds", lookup(u"^1 ms"),
                            lookup(u"ms, msec, millisecond, milliseconds")))
        return 1;
    if (is(u"s,sec,secs,second,seconds", lookup(u"^1 s"), lookup(u"s, sec, second, seconds")))
        return kSecond;
    if (is(u"min,mins,minute,minutes", u"min", lookup(u"min, minute, minutes")))
        return kMinute;
    return std::nullopt;
}

// Numbers

struct Number {
    std::u16string whole;    ///< digits, without zeros before them
    std::u16string fraction; ///< digits, without zeros behind them
};

bool isOfDigits(std::u16string_view text) {
    return std::ranges::all_of(text, isDigit);
}

/// The digits without the sign between groups of three; std::nullopt if the groups have other sizes.
std::optional<std::u16string> ungrouped(std::u16string_view text, char16_t sign) {
    std::size_t end = text.find(sign);
    if (end == std::u16string_view::npos)
        return isOfDigits(text) ? std::optional<std::u16string>(text) : std::nullopt;
    std::u16string digits(text.substr(0, end));
    if (digits.empty() || digits.size() > kGroup || digits.front() == u'0')
        return std::nullopt;
    while (end != std::u16string_view::npos) {
        text.remove_prefix(end + 1);
        end = text.find(sign);
        const std::u16string_view group = text.substr(0, end);
        if (group.size() != kGroup)
            return std::nullopt;
        digits += group;
    }
    return isOfDigits(digits) ? std::optional(digits) : std::nullopt;
}

/// The digits before the decimal sign, which may be grouped by any other sign.
std::optional<std::u16string> wholePart(std::u16string_view text, char16_t decimalSign) {
    const char16_t other = decimalSign == u'.' ? u',' : u'.';
    for (const char16_t sign : {other, kGroupSign, u' '})
        if (auto digits = ungrouped(text, sign))
            return digits;
    return std::nullopt;
}

std::optional<Number> numberSplitAt(std::u16string_view text, char16_t decimalSign) {
    const std::size_t sign = text.find(decimalSign);
    const bool isWhole = sign == std::u16string_view::npos;
    auto whole = wholePart(text.substr(0, sign), decimalSign);
    std::u16string fraction(isWhole ? std::u16string_view() : text.substr(sign + 1));
    if (!whole || !isOfDigits(fraction) || (isWhole ? whole->empty() : fraction.empty()))
        return std::nullopt;
    whole->erase(0, std::min(whole->find_first_not_of(u'0'), whole->size()));
    fraction.erase(fraction.find_last_not_of(u'0') + 1);
    return Number{*whole, fraction};
}

std::optional<Number> numberIn(std::u16string_view text, char16_t decimalSign) {
    if (auto number = numberSplitAt(text, decimalSign))
        return number;
    return numberSplitAt(text, decimalSign == u'.' ? u',' : u'.');
}

std::int64_t valueOf(std::u16string_view digits) {
    std::int64_t value = 0;
    for (const char16_t digit : digits)
        value = value * 10 + (digit - u'0');
    return value;
}

std::variant<std::int32_t, DelayFault> delayOf(const Number& number, std::int32_t unit) {
    constexpr std::size_t mostDigits = 9;   // more than the longest delay has
    constexpr std::size_t mostDecimals = 5; // a minute has 60000 = 3 * 2^5 * 5^4 milliseconds
    if (number.whole.size() > mostDigits)
        return DelayFault::tooLong;
    const std::int64_t whole = valueOf(number.whole) * unit;
    if (whole > limits::longestDelay)
        return DelayFault::tooLong;
    if (number.fraction.size() > mostDecimals)
        return DelayFault::tooFine;
    std::int64_t parts = 1;
    for (std::size_t digit = 0; digit < number.fraction.size(); ++digit)
        parts *= 10;
    const std::int64_t rest = valueOf(number.fraction) * unit;
    if (rest % parts != 0)
        return DelayFault::tooFine;
    const std::int64_t delay = whole + rest / parts;
    if (delay > limits::longestDelay)
        return DelayFault::tooLong;
    return static_cast<std::int32_t>(delay);
}

std::variant<std::int32_t, DelayFault> delayInPlainText(
    std::u16string_view text, const DelayLanguage& language) {
    constexpr std::u16string_view inNumbers = u"0123456789.,' ";
    const std::size_t end = std::min(text.find_first_not_of(inNumbers), text.size());
    const auto number = numberIn(trimmed(text.substr(0, end)), pointOrComma(language.decimalSign));
    const auto unit = unitNamed(text.substr(end), language.lookup);
    if (!number || !unit)
        return DelayFault::nonsense;
    return delayOf(*number, *unit);
}

} // namespace

std::u16string delayText(std::int32_t milliseconds, const DelayLanguage& language) {
    if (milliseconds <= 0)
        return u"0";
    if (milliseconds < kSecond)
        return filledPattern(language.lookup(u"^1 ms"), {inDigits(milliseconds)});
    return filledPattern(
        language.lookup(u"^1 s"), {inSeconds(milliseconds, pointOrComma(language.decimalSign))});
}

std::variant<std::int32_t, DelayFault> delayInText(std::u16string_view text, const DelayLanguage& language) {
    const std::u16string plain = plainText(text, pointOrComma(language.decimalSign));
    if (!plain.starts_with(u'-'))
        return delayInPlainText(plain, language);
    const auto amount = delayInPlainText(trimmed(std::u16string_view(plain).substr(1)), language);
    return amount == std::variant<std::int32_t, DelayFault>(DelayFault::nonsense) ? DelayFault::nonsense
                                                                                  : DelayFault::negative;
}

std::optional<std::int32_t> factorInText(std::u16string_view text, char16_t decimalSign) {
    const char16_t sign = pointOrComma(decimalSign);
    const auto number = numberIn(plainText(text, sign), sign);
    if (!number)
        return std::nullopt;
    // As many thousandths are in a whole as milliseconds in a second.
    const auto thousandths = delayOf(*number, kSecond);
    const auto* factor = std::get_if<std::int32_t>(&thousandths);
    return factor && *factor > 0 ? std::optional(*factor) : std::nullopt;
}

} // namespace quorvi
