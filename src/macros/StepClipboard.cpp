#include "macros/StepClipboard.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <optional>
#include <vector>

#include "macros/KeyPlaces.h"
#include "macros/StepCodes.h"
#include "macros/StepMaking.h"
#include "macros/TypedText.h"
#include "model/Keys.h"
#include "model/Limits.h"

namespace quorvi {

namespace {

constexpr std::int32_t kLongestDelay{limits::longestDelay};
constexpr std::int64_t kMillisecondsPerSecond = 1000;

struct ButtonName {
    std::string_view name;
    std::uint32_t code;
};

// In the order of the buttons.
constexpr std::array kButtonNames{ButtonName{"left", stepcodes::button1Down},
    ButtonName{"right", stepcodes::button2Down}, ButtonName{"middle", stepcodes::button3Down},
    ButtonName{"back", stepcodes::button4Down}, ButtonName{"forward", stepcodes::button5Down}};

// --- Steps to text

std::string movementText(const plist::Dictionary& step) {
    const auto code = static_cast<std::uint32_t>(step.integer(keys::command));
    const auto usage = static_cast<std::uint8_t>(step.integer(keys::argument));
    if (code == stepcodes::keyDown)
        return std::string("press ").append(nameOfKeyPlace(usage));
    if (code == stepcodes::keyUp)
        return std::string("release ").append(nameOfKeyPlace(usage));
    if (code == stepcodes::buttonsUp)
        return "release mouse button";
    const auto* button = std::ranges::find(kButtonNames, code, &ButtonName::code);
    if (button == kButtonNames.end())
        return {};
    return std::string("press ").append(button->name).append(" mouse button");
}

void appendPart(std::string& text, std::string_view part) {
    if (!text.empty())
        text += ", ";
    text += part;
}

// --- Text to steps

/// One part of the text, in lower case and without blanks, with its first word apart.
struct Part {
    std::string first;
    std::string rest;
};

bool isLineBreak(char16_t c) {
    return c == u'\n' || c == u'\r' || c == u'\u2028' || c == u'\u2029';
}

bool separates(std::u16string_view text, std::size_t at) {
    if (text[at] != u',')
        return isLineBreak(text[at]);
    const bool isDecimalSign =
        at > 0 && isDigit(text[at - 1]) && at + 1 < text.size() && isDigit(text[at + 1]);
    return !isDecimalSign;
}

/// The parts that are not empty.
std::vector<std::u16string_view> partsOf(std::u16string_view text) {
    std::vector<std::u16string_view> parts;
    std::size_t start = 0;
    for (std::size_t at = 0; at <= text.size(); ++at) {
        if (at < text.size() && !separates(text, at))
            continue;
        if (const auto part = trimmed(text.substr(start, at - start)); !part.empty())
            parts.push_back(part);
        start = at + 1;
    }
    return parts;
}

/// std::nullopt for a part with characters other than visible ASCII.
std::optional<Part> plainPart(std::u16string_view text) {
    Part part;
    bool inFirst = true;
    for (const char16_t c : text) {
        if (isBlank(c)) {
            inFirst = false;
            continue;
        }
        if (c < u'!' || c > u'~')
            return std::nullopt;
        const auto lower = static_cast<char>(c >= u'A' && c <= u'Z' ? c - u'A' + u'a' : c);
        (inFirst ? part.first : part.rest) += lower;
    }
    return part;
}

/// Takes the digits at the text's beginning; std::nullopt for none or too many.
std::optional<std::int64_t> takeNumber(std::string_view& text) {
    constexpr std::size_t kMostDigits = 9;
    const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
    if (count == 0 || count > kMostDigits)
        return std::nullopt;
    std::int64_t number = 0;
    for (const char digit : text.substr(0, count))
        number = number * 10 + (digit - '0');
    text.remove_prefix(count);
    return number;
}

/// Takes the decimals after a decimal sign, as thousandths; std::nullopt for more than three.
std::optional<std::int64_t> takeThousandths(std::string_view& text) {
    if (text.empty() || (text.front() != '.' && text.front() != ','))
        return 0;
    text.remove_prefix(1);
    const std::size_t before = text.size();
    const auto number = takeNumber(text);
    const std::size_t digits = before - text.size();
    if (!number || digits > 3)
        return std::nullopt;
    constexpr std::array<std::int64_t, 4> kScale{1000, 100, 10, 1};
    return *number * kScale[digits];
}

bool isOneOf(std::string_view text, std::initializer_list<std::string_view> words) {
    return std::ranges::find(words, text) != words.end();
}

/// The milliseconds of a text like "50ms" or "1.5s"; std::nullopt for any other.
std::optional<std::int32_t> delayOfText(std::string_view text) {
    const auto whole = takeNumber(text);
    const auto thousandths = whole ? takeThousandths(text) : std::nullopt;
    if (!thousandths)
        return std::nullopt;
    std::int64_t milliseconds = *whole;
    if (isOneOf(text, {"s", "sec", "second", "seconds"}))
        milliseconds = *whole * kMillisecondsPerSecond + *thousandths;
    else if (*thousandths != 0 || !isOneOf(text, {"", "ms", "msec", "millisecond", "milliseconds"}))
        return std::nullopt;
    return milliseconds <= kLongestDelay ? std::optional(static_cast<std::int32_t>(milliseconds))
                                         : std::nullopt;
}

std::optional<std::int32_t> delayOf(const Part& part) {
    const bool waits = isOneOf(part.first, {"wait", "delay", "pause"});
    return delayOfText(waits ? part.rest : part.first + part.rest);
}

/// The code of the mouse button's press; any button's release for "mousebutton" and "button".
std::optional<std::uint32_t> buttonOf(std::string name) {
    constexpr std::string_view kMouse = "mouse";
    if (const std::size_t at = name.find(kMouse); at != std::string::npos)
        name.erase(at, kMouse.size());
    if (isOneOf(name, {"button", "buttons"}))
        return stepcodes::buttonsUp;
    for (std::size_t index = 0; index < kButtonNames.size(); ++index)
        if (name == std::string(kButtonNames[index].name).append("button") ||
            name == std::string("button").append(std::to_string(index + 1)))
            return kButtonNames[index].code;
    return std::nullopt;
}

/// The step of the part; nil if it is not a step.
plist::Dictionary stepOf(const Part& part) {
    const bool presses = isOneOf(part.first, {"press", "hold"});
    if (!presses && part.first != "release")
        return {};
    if (const auto button = buttonOf(part.rest)) {
        const bool needsButton = presses && *button == stepcodes::buttonsUp;
        return needsButton ? plist::Dictionary() : makeStep(presses ? *button : stepcodes::buttonsUp, 0);
    }
    const auto usage = keyPlaceWithName(part.rest);
    return usage ? makeStep(presses ? stepcodes::keyDown : stepcodes::keyUp, *usage) : plist::Dictionary();
}

/// Adds to the last step's delay; false if there is no step, or if the delay becomes too long.
bool addDelay(const plist::Array& steps, std::int32_t delay) {
    if (steps.size() == 0)
        return false;
    const auto last = steps.dictionary(steps.size() - 1);
    const std::int64_t sum = std::int64_t{last.integer(keys::delay)} + delay;
    if (sum > kLongestDelay)
        return false;
    last.set(keys::delay, static_cast<std::int32_t>(sum));
    return true;
}

bool appendPartTo(const plist::Array& steps, std::u16string_view text) {
    const auto part = plainPart(text);
    if (!part)
        return false;
    if (const auto delay = delayOf(*part))
        return addDelay(steps, *delay);
    const auto step = stepOf(*part);
    if (step)
        steps.append(step);
    return bool(step);
}

} // namespace

std::string textOfSteps(const plist::Array& steps) {
    std::string text;
    for (std::size_t index = 0; index < steps.size(); ++index) {
        const auto step = steps.dictionary(index);
        const std::string movement = step ? movementText(step) : std::string();
        if (movement.empty())
            continue;
        appendPart(text, movement);
        const std::int32_t delay = step.integer(keys::delay);
        if (delay > 0 && delay <= kLongestDelay)
            appendPart(text, std::to_string(delay).append(" ms"));
    }
    return text;
}

StepsOfText stepsOfText(std::u16string_view text) {
    if (text.size() > kLongestStepsText)
        return {.steps = {}, .error = StepsTextError::tooLong, .part = {}};
    const auto parts = partsOf(text);
    if (parts.empty())
        return {.steps = {}, .error = StepsTextError::empty, .part = {}};
    const auto steps = plist::Array::create();
    for (const std::u16string_view part : parts)
        if (!appendPartTo(steps, part))
            return {.steps = {}, .error = StepsTextError::notAStep, .part = std::u16string(part)};
    return {.steps = steps, .error = StepsTextError::none, .part = {}};
}

} // namespace quorvi
