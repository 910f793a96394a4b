#include "vm/support/Caller.h"

#include <gtest/gtest.h>

#include <string_view>

#include <unistd.h>

namespace quorvi::test {

using namespace inputd; // the names of the interface

Caller::Caller(uid_t user) {
    // The bus asks the kernel who connects.
    EXPECT_EQ(seteuid(user), 0);
    sd_bus* bus = nullptr;
    const char* name = nullptr;
    EXPECT_GE(sd_bus_open_system(&bus), 0);
    EXPECT_GE(sd_bus_get_unique_name(bus, &name), 0);
    EXPECT_EQ(seteuid(0), 0);
    m_bus.reset(bus);
    EXPECT_GE(
        sd_bus_add_match(bus, nullptr, "type='signal',interface='com.kyvar.Inputd1'", received, this), 0);
}

std::string Caller::call(const char* method, const std::function<void(sd_bus_message*)>& append,
    const std::function<void(sd_bus_message*)>& read) {
    sd_bus_message* raw = nullptr;
    if (sd_bus_message_new_method_call(m_bus.get(), &raw, kName, kPath, kInterface, method) < 0)
        return "no message";
    const auto message = events::adopt(raw);
    append(raw);
    events::BusError error;
    sd_bus_message* answer = nullptr;
    const int result = sd_bus_call(m_bus.get(), raw, 0, error.get(), &answer);
    const auto owner = events::adopt(answer);
    if (result < 0)
        return error.get()->name ? error.get()->name : "no answer";
    read(answer);
    return {};
}

std::string Caller::list(std::vector<ListedMouse>& mice) {
    mice.clear();
    return call(
        kListMice, [](auto*) {},
        [&](sd_bus_message* answer) {
            sd_bus_message_enter_container(answer, 'a', kMouse);
            ListedMouse mouse;
            const char* id = nullptr;
            const char* name = nullptr;
            int used = 0;
            while (sd_bus_message_read(
                       answer, kMouse, &id, &name, &mouse.vendor, &mouse.product, &mouse.dpi, &used) > 0) {
                mouse.id = id;
                mouse.name = name;
                mouse.used = used != 0;
                mice.push_back(mouse);
            }
        });
}

namespace {

void appendRecord(sd_bus_message* message, const TestRecord& record) {
    const auto bytes = record.bytes();
    sd_bus_message_append_array(message, 'y', bytes.data(), bytes.size());
}

void appendUse(sd_bus_message* message, const std::string& mouse, const TestRecord& record) {
    sd_bus_message_append(message, "s", mouse.c_str());
    appendRecord(message, record);
    sd_bus_message_append(message, "a{sv}", 0);
}

} // namespace

std::string Caller::use(const std::string& mouse, const TestRecord& record) {
    return call(kUse, [&](sd_bus_message* message) { appendUse(message, mouse, record); });
}

void Caller::useWithoutWaiting(const std::string& mouse, const TestRecord& record) {
    sd_bus_message* message = nullptr;
    ASSERT_GE(sd_bus_message_new_method_call(m_bus.get(), &message, kName, kPath, kInterface, kUse), 0);
    const auto owner = events::adopt(message);
    appendUse(message, mouse, record);
    ASSERT_GE(sd_bus_send(m_bus.get(), message, nullptr), 0);
    sd_bus_flush(m_bus.get());
}

void Caller::signal(
    const char* destination, const char* path, const char* interface, const char* member, bool value) {
    sd_bus_message* message = nullptr;
    ASSERT_GE(sd_bus_message_new_signal(m_bus.get(), &message, path, interface, member), 0);
    const auto owner = events::adopt(message);
    if (*destination != '\0')
        sd_bus_message_set_destination(message, destination);
    sd_bus_message_append(message, "b", static_cast<int>(value));
    ASSERT_GE(sd_bus_send(m_bus.get(), message, nullptr), 0);
    sd_bus_flush(m_bus.get());
}

std::string Caller::setRecord(const std::string& mouse, const TestRecord& record) {
    return call(kSetRecord, [&](sd_bus_message* message) {
        sd_bus_message_append(message, "s", mouse.c_str());
        appendRecord(message, record);
    });
}

std::string Caller::forget(const std::string& mouse) {
    return call(
        kForget, [&](sd_bus_message* message) { sd_bus_message_append(message, "s", mouse.c_str()); });
}

std::string Caller::status(const std::string& mouse, Status& status) {
    return call(
        kGetStatus, [&](sd_bus_message* message) { sd_bus_message_append(message, "s", mouse.c_str()); },
        [&](sd_bus_message* answer) {
            const char* state = "";
            std::uint8_t profile = 0;
            std::uint8_t stage = 0;
            std::uint16_t dpiX = 0;
            std::uint16_t dpiY = 0;
            std::uint16_t inputs = 0;
            sd_bus_message_read(answer, inputd::kStatus, &state, &profile, &stage, &dpiX, &dpiY, &inputs);
            status = {state, profile, stage, dpiX, dpiY, inputs};
        });
}

std::string Caller::watch(bool inputs) {
    return call(kWatch,
        [&](sd_bus_message* message) { sd_bus_message_append(message, "b", static_cast<int>(inputs)); });
}

std::string Caller::introspection() {
    sd_bus_message* answer = nullptr;
    const char* xml = "";
    if (sd_bus_call_method(m_bus.get(), kName, kPath, "org.freedesktop.DBus.Introspectable", "Introspect",
            nullptr, &answer, nullptr) >= 0)
        sd_bus_message_read(answer, "s", &xml);
    const auto owner = events::adopt(answer);
    return xml;
}

std::string Caller::mouseNamed(const std::string& name) {
    std::vector<ListedMouse> mice;
    std::string id;
    if (list(mice).empty())
        for (const auto& mouse : mice)
            if (mouse.name == name)
                id = mouse.id;
    return id;
}

std::string Caller::watchCodes(const std::string& mouse, bool wanted) {
    return call(kWatchCodes, [&](sd_bus_message* message) {
        sd_bus_message_append(message, kWatchCodesArguments, mouse.c_str(), static_cast<int>(wanted));
    });
}

const std::vector<std::string>& Caller::signalsSoFar() {
    while (sd_bus_process(m_bus.get(), nullptr) > 0)
        ;
    return m_signals;
}

int Caller::received(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
    std::string text = sd_bus_message_get_member(message);
    const char* mouse = nullptr;
    if (text == kStatusChanged) {
        const char* state = nullptr;
        std::uint8_t profile = 0;
        std::uint8_t stage = 0;
        sd_bus_message_read(message, "ssyy", &mouse, &state, &profile, &stage);
        text += std::string(" ") + state + " " + std::to_string(profile) + " " + std::to_string(stage);
    } else if (text == kInputChanged) {
        std::uint8_t input = 0;
        int pressed = 0;
        sd_bus_message_read(message, kInputChangedArguments, &mouse, &input, &pressed);
        text += " " + std::to_string(input) + " " + std::to_string(pressed);
    } else if (text == kCodeChanged) {
        std::uint16_t code = 0;
        int pressed = 0;
        sd_bus_message_read(message, kCodeChangedArguments, &mouse, &code, &pressed);
        text += " " + std::to_string(code) + " " + std::to_string(pressed);
    }
    static_cast<Caller*>(self)->m_signals.push_back(text);
    return 0;
}

} // namespace quorvi::test
