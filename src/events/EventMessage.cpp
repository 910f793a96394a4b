#include "events/EventMessage.h"

#include <cstring>

#include "events/EventsInterface.h"

namespace quorvi::events {

namespace {

const char* valueSignature(FourCharCode type) {
    if (type == typeMagnitude)
        return kMagnitudeSignature;
    return type == typeSInt32 ? kIntegerSignature : kBytesSignature;
}

bool writeCode(sd_bus_message* message, FourCharCode code) {
    const std::string text = fourCharText(code);
    return fourCharCodeFromText(text) && sd_bus_message_append_basic(message, 's', text.c_str()) >= 0;
}

bool writeValue(sd_bus_message* message, const EventParameter& parameter) {
    if (const auto* magnitude = std::get_if<std::uint32_t>(&parameter.value))
        return sd_bus_message_append_basic(message, 'u', magnitude) >= 0;
    if (const auto* integer = std::get_if<std::int32_t>(&parameter.value))
        return sd_bus_message_append_basic(message, 'i', integer) >= 0;
    const auto& bytes = std::get<EventBytes>(parameter.value);
    return sd_bus_message_append_array(message, 'y', bytes.data(), bytes.size()) >= 0;
}

bool writeParameter(sd_bus_message* message, const EventParameter& parameter) {
    return parameter.isWellFormed() && sd_bus_message_open_container(message, 'r', kParameterMembers) >= 0 &&
           writeCode(message, parameter.keyword) && writeCode(message, parameter.type) &&
           sd_bus_message_open_container(message, 'v', valueSignature(parameter.type)) >= 0 &&
           writeValue(message, parameter) && sd_bus_message_close_container(message) >= 0 &&
           sd_bus_message_close_container(message) >= 0;
}

bool readCode(sd_bus_message* message, FourCharCode& code) {
    const char* text = nullptr;
    if (sd_bus_message_read_basic(message, 's', &text) <= 0)
        return false;
    const auto read = fourCharCodeFromText(text);
    code = read.value_or(0);
    return read.has_value();
}

bool readValue(sd_bus_message* message, EventParameter& parameter) {
    if (parameter.type == typeMagnitude)
        return sd_bus_message_read_basic(message, 'u', &parameter.value.emplace<std::uint32_t>()) > 0;
    if (parameter.type == typeSInt32)
        return sd_bus_message_read_basic(message, 'i', &parameter.value.emplace<std::int32_t>()) > 0;
    const void* data = nullptr;
    std::size_t size = 0;
    if (sd_bus_message_read_array(message, 'y', &data, &size) < 0)
        return false;
    auto& bytes = parameter.value.emplace<EventBytes>(size);
    if (size > 0)
        std::memcpy(bytes.data(), data, size);
    return true;
}

bool readParameter(sd_bus_message* message, EventParameter& parameter) {
    // Entering the variant fails if its signature does not match the descriptor type.
    return readCode(message, parameter.keyword) && readCode(message, parameter.type) &&
           sd_bus_message_enter_container(message, 'v', valueSignature(parameter.type)) > 0 &&
           readValue(message, parameter) && sd_bus_message_exit_container(message) >= 0;
}

} // namespace

bool writeParameters(sd_bus_message* message, const Event& event) {
    if (sd_bus_message_open_container(message, 'a', kParameter) < 0)
        return false;
    for (const auto& parameter : event.parameters)
        if (!writeParameter(message, parameter))
            return false;
    return sd_bus_message_close_container(message) >= 0;
}

bool writeEvent(sd_bus_message* message, const Event& event) {
    return writeCode(message, event.eventClass) && writeCode(message, event.eventID) &&
           writeParameters(message, event);
}

bool readParameters(sd_bus_message* message, Event& event) {
    if (sd_bus_message_enter_container(message, 'a', kParameter) < 0)
        return false;
    int more = 0;
    while ((more = sd_bus_message_enter_container(message, 'r', kParameterMembers)) > 0) {
        if (!readParameter(message, event.parameters.emplace_back()))
            return false;
        if (sd_bus_message_exit_container(message) < 0)
            return false;
    }
    return more == 0 && sd_bus_message_exit_container(message) >= 0;
}

std::optional<Event> readEvent(sd_bus_message* message) {
    Event event;
    if (readCode(message, event.eventClass) && readCode(message, event.eventID) &&
        readParameters(message, event))
        return event;
    return std::nullopt;
}

} // namespace quorvi::events
