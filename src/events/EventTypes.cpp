#include "events/EventTypes.h"

#include <algorithm>

namespace quorvi {

std::string fourCharText(FourCharCode code) {
    std::string text(4, '\0');
    for (std::size_t i = 0; i < 4; ++i)
        text[i] = static_cast<char>(code >> (24 - 8 * i) & 0xFF);
    return text;
}

std::optional<FourCharCode> fourCharCodeFromText(std::string_view text) {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c - 1) < 0x7F; };
    if (text.size() != 4 || !std::all_of(text.begin(), text.end(), isAscii))
        return std::nullopt;
    FourCharCode code = 0;
    for (const char c : text)
        code = code << 8 | static_cast<unsigned char>(c);
    return code;
}

bool EventParameter::isWellFormed() const {
    if (type == typeMagnitude)
        return std::holds_alternative<std::uint32_t>(value);
    if (type == typeSInt32)
        return std::holds_alternative<std::int32_t>(value);
    return std::holds_alternative<EventBytes>(value);
}

void Event::putMagnitude(FourCharCode keyword, std::uint32_t value) {
    parameters.push_back({keyword, typeMagnitude, value});
}

void Event::putInteger(FourCharCode keyword, std::int32_t value) {
    parameters.push_back({keyword, typeSInt32, value});
}

void Event::putBytes(FourCharCode keyword, FourCharCode type, EventBytes bytes) {
    parameters.push_back({keyword, type, std::move(bytes)});
}

const EventParameter* Event::findParameter(FourCharCode keyword) const {
    const auto found = std::find_if(parameters.begin(), parameters.end(),
        [&](const EventParameter& parameter) { return parameter.keyword == keyword; });
    return found == parameters.end() ? nullptr : &*found;
}

namespace {

template <typename T>
Status get(const Event& event, FourCharCode keyword, FourCharCode type, T& result) {
    const auto* parameter = event.findParameter(keyword);
    if (!parameter)
        return errAEDescNotFound;
    const T* value = std::get_if<T>(&parameter->value);
    if (parameter->type != type || !value)
        return errAECoercionFail;
    result = *value;
    return noErr;
}

} // namespace

Status Event::getMagnitude(FourCharCode keyword, std::uint32_t& value) const {
    return get(*this, keyword, typeMagnitude, value);
}

Status Event::getInteger(FourCharCode keyword, std::int32_t& value) const {
    return get(*this, keyword, typeSInt32, value);
}

Status Event::getBytes(FourCharCode keyword, FourCharCode type, EventBytes& bytes) const {
    return get(*this, keyword, type, bytes);
}

Event makeCommand(FourCharCode message, std::int32_t parameter) {
    Event event{kEventClassQuorvi, kEventCommand, {}};
    event.putMagnitude(keyDirectObject, message);
    event.putInteger(kKeyCommandParameter, parameter);
    return event;
}

} // namespace quorvi
