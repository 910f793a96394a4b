#include "inputd/bus/Questions.h"

#include <algorithm>

#include <fcntl.h>

namespace quorvi::inputd {

namespace {

constexpr std::uint64_t kUsualTimeout = 25'000'000; // microseconds
/// Time for an administrator to type a password.
constexpr std::uint64_t kPatientTimeout = 300'000'000;
constexpr std::uint32_t kAllowUserInteraction = 1;

events::MessageRef newCall(
    sd_bus* bus, const char* name, const char* path, const char* interface, const char* method) {
    sd_bus_message* call = nullptr;
    sd_bus_message_new_method_call(bus, &call, name, path, interface, method);
    return events::adopt(call);
}

} // namespace

bool Questions::ask(
    const events::MessageRef& call, std::uint64_t timeout, std::function<void(sd_bus_message*)> answer) {
    if (!call)
        return false;
    auto question = std::make_unique<Question>();
    question->owner = this;
    question->answer = std::move(answer);
    sd_bus_slot* slot = nullptr;
    if (sd_bus_call_async(m_bus, &slot, call.get(), answered, question.get(), timeout) < 0)
        return false;
    question->slot.reset(slot);
    m_questions.insert(std::move(question));
    return true;
}

int Questions::answered(sd_bus_message* reply, void* question, sd_bus_error* /*error*/) {
    auto& questions = static_cast<Question*>(question)->owner->m_questions;
    const auto found =
        std::ranges::find_if(questions, [&](const auto& each) { return each.get() == question; });
    auto own = std::move(questions.extract(found).value());
    own->answer(sd_bus_message_is_method_error(reply, nullptr) > 0 ? nullptr : reply);
    return 0;
}

bool Questions::userOf(const char* connection, std::function<void(std::optional<uid_t>)> answer) {
    const auto call =
        newCall(m_bus, events::kBusName, events::kBusPath, events::kBusName, "GetConnectionUnixUser");
    if (!call || !hasRoom() || sd_bus_message_append_basic(call.get(), 's', connection) < 0)
        return false;
    return ask(call, kUsualTimeout, [answer = std::move(answer)](sd_bus_message* reply) {
        std::uint32_t user = 0;
        if (reply && sd_bus_message_read_basic(reply, 'u', &user) > 0)
            answer(user);
        else
            answer({});
    });
}

bool Questions::isAuthorized(const char* connection, const char* action, std::function<void(bool)> answer) {
    const auto call = newCall(m_bus, "org.freedesktop.PolicyKit1", "/org/freedesktop/PolicyKit1/Authority",
        "org.freedesktop.PolicyKit1.Authority", "CheckAuthorization");
    if (!call || !hasRoom() ||
        sd_bus_message_append(call.get(), "(sa{sv})sa{ss}us", "system-bus-name", 1, "name", "s", connection,
            action, 0, kAllowUserInteraction, "") < 0)
        return false;
    return ask(call, kPatientTimeout, [answer = std::move(answer)](sd_bus_message* reply) {
        int yes = 0;
        int challenge = 0;
        answer(reply && sd_bus_message_enter_container(reply, 'r', "bba{ss}") > 0 &&
               sd_bus_message_read(reply, "bb", &yes, &challenge) > 0 && yes != 0);
    });
}

bool Questions::delaySleep(const char* why, std::function<void(int)> answer) {
    const auto call = newCall(m_bus, "org.freedesktop.login1", "/org/freedesktop/login1",
        "org.freedesktop.login1.Manager", "Inhibit");
    if (!call || sd_bus_message_append(call.get(), "ssss", "sleep", "Kyvar Quorvi", why, "delay") < 0)
        return false;
    return ask(call, kUsualTimeout, [answer = std::move(answer)](sd_bus_message* reply) {
        int descriptor = -1; // owned by the message
        if (reply && sd_bus_message_read_basic(reply, 'h', &descriptor) > 0)
            descriptor = fcntl(descriptor, F_DUPFD_CLOEXEC, 0);
        answer(descriptor);
    });
}

bool Questions::isPreparingForSleep(std::function<void(std::optional<bool>)> answer) {
    const auto call = newCall(
        m_bus, "org.freedesktop.login1", "/org/freedesktop/login1", "org.freedesktop.DBus.Properties", "Get");
    if (!call ||
        sd_bus_message_append(call.get(), "ss", "org.freedesktop.login1.Manager", "PreparingForSleep") < 0)
        return false;
    return ask(call, kUsualTimeout, [answer = std::move(answer)](sd_bus_message* reply) {
        int yes = 0;
        if (reply && sd_bus_message_read(reply, "v", "b", &yes) > 0)
            answer(yes != 0);
        else
            answer({});
    });
}

} // namespace quorvi::inputd
