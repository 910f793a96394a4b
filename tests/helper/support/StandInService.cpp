#include "helper/support/StandInService.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include <poll.h>

#include "events/InputdInterface.h"
#include "inputd/bus/OptionValues.h"

namespace quorvi::test {

using namespace inputd;

namespace {

events::BusPtr connect() {
    sd_bus* bus = nullptr;
    if (sd_bus_open_system(&bus) < 0)
        throw std::runtime_error("the stand-in has no bus");
    return events::BusPtr(bus);
}

std::string textIn(sd_bus_message* message) {
    const char* text = nullptr;
    return sd_bus_message_read_basic(message, 's', &text) > 0 ? text : "";
}

std::string recordIn(sd_bus_message* message) {
    const void* bytes = nullptr;
    std::size_t size = 0;
    return sd_bus_message_read_array(message, 'y', &bytes, &size) < 0
               ? ""
               : std::string(static_cast<const char*>(bytes), size);
}

} // namespace

const sd_bus_vtable StandInService::vtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD(kListMice, "", kListMiceResult, called, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD(kUse, kUseArguments, "", called, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD(kSetRecord, kSetRecordArguments, "", called, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD(kSetOptions, kSetOptionsArguments, "", called, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD(kForget, kForgetArguments, "", called, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD(kGetStatus, kGetStatusArguments, kStatus, called, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD(kWatch, kWatchArguments, "", called, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD(kWatchCodes, kWatchCodesArguments, "", called, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

StandInService::StandInService(std::vector<StandInMouse> mice) : m_mice(std::move(mice)), m_bus(connect()) {
    if (sd_bus_add_object_vtable(m_bus.get(), nullptr, kPath, kInterface, vtable, this) < 0 ||
        sd_bus_request_name(m_bus.get(), kName, 0) < 0)
        throw std::runtime_error("the stand-in has no name");
    m_thread = std::thread([this] { run(); });
}

StandInService::~StandInService() {
    m_ends = true;
    m_thread.join();
}

void StandInService::run() {
    pollfd bus{sd_bus_get_fd(m_bus.get()), POLLIN, 0};
    while (!m_ends) {
        {
            const std::lock_guard lock(m_mutex);
            answerSlow();
            while (sd_bus_process(m_bus.get(), nullptr) > 0)
                ;
        }
        poll(&bus, 1, 2); // milliseconds; what the test says is sent with the next round
    }
}

int StandInService::called(sd_bus_message* call, void* self, sd_bus_error* /*error*/) {
    static_cast<StandInService*>(self)->receive(call);
    return 1;
}

void StandInService::receive(sd_bus_message* call) {
    const std::string member = sd_bus_message_get_member(call);
    m_caller = sd_bus_message_get_sender(call);
    if (deniesLists) {
        m_calls.push_back(member);
        sd_bus_reply_method_errorf(call, kErrorAccessDenied, "not at the machine");
        return;
    }
    if (member == kListMice) {
        m_calls.push_back(member);
        sd_bus_message* raw = nullptr;
        sd_bus_message_new_method_return(call, &raw);
        const auto reply = events::adopt(raw);
        appendMice(raw);
        sd_bus_send(m_bus.get(), raw, nullptr);
        return;
    }
    if (member == kWatch) {
        int inputs = 0;
        sd_bus_message_read_basic(call, 'b', &inputs);
        m_calls.push_back(member + " " + std::to_string(inputs));
        sd_bus_reply_method_return(call, "");
        return;
    }
    const auto id = textIn(call);
    auto text = member + " " + id;
    const auto mouse = std::ranges::find(m_mice, id, &StandInMouse::id);
    if (member == kWatchCodes) {
        int wanted = 0;
        sd_bus_message_read_basic(call, 'b', &wanted);
        text += " " + std::to_string(wanted);
    }
    m_calls.push_back(text);
    if (member == kGetStatus) {
        sd_bus_reply_method_return(call, kStatus, kStateDriven, 1, 1, 800, 800, 0);
        return;
    }
    if (member == kUse && denies) {
        sd_bus_reply_method_errorf(call, kErrorAccessDenied, "not allowed");
        return;
    }
    if (member == kUse && mouse == m_mice.end()) {
        sd_bus_reply_method_errorf(call, kErrorNoSuchMouse, "no such mouse");
        return;
    }
    if (member == kUse || member == kSetRecord)
        m_records[id] = recordIn(call);
    if (member == kUse || member == kSetOptions) {
        if (const auto options = readOptions(call))
            m_options[id] = *options;
        else
            m_calls.back() += " with options out of bounds";
    }
    if (mouse != m_mice.end() && (member == kUse || member == kForget))
        mouse->used = member == kUse;
    if (member == kUse || member == kSetRecord)
        m_unanswered.push_back(events::adopt(sd_bus_message_ref(call)));
    else
        sd_bus_reply_method_return(call, "");
}

void StandInService::answerSlow() {
    if (isSlow)
        return;
    for (const auto& call : std::exchange(m_unanswered, {}))
        sd_bus_reply_method_return(call.get(), "");
}

void StandInService::appendMice(sd_bus_message* reply) const {
    sd_bus_message_open_container(reply, 'a', inputd::kMouse);
    for (const auto& mouse : m_mice)
        sd_bus_message_append(reply, inputd::kMouse, mouse.id.c_str(), mouse.name.c_str(), mouse.vendor,
            mouse.product, mouse.dpi, static_cast<int>(mouse.used));
    sd_bus_message_close_container(reply);
}

void StandInService::setMice(std::vector<StandInMouse> mice) {
    const std::lock_guard lock(m_mutex);
    m_mice = std::move(mice);
    sd_bus_emit_signal(m_bus.get(), kPath, kInterface, kMiceChanged, "");
}

events::MessageRef StandInService::newSignal(const char* member) const {
    sd_bus_message* raw = nullptr;
    sd_bus_message_new_signal(m_bus.get(), &raw, kPath, kInterface, member);
    sd_bus_message_set_destination(raw, m_caller.c_str());
    return events::adopt(raw);
}

void StandInService::tellStatus(
    const std::string& mouse, const std::string& state, int profile, int stage, int dpi) {
    const std::lock_guard lock(m_mutex);
    const auto signal = newSignal(kStatusChanged);
    sd_bus_message_append(
        signal.get(), kStatusChangedArguments, mouse.c_str(), state.c_str(), profile, stage, dpi, dpi, 0);
    sd_bus_send(m_bus.get(), signal.get(), nullptr);
}

void StandInService::tellInput(const std::string& mouse, int input, bool pressed) {
    const std::lock_guard lock(m_mutex);
    const auto signal = newSignal(kInputChanged);
    sd_bus_message_append(
        signal.get(), kInputChangedArguments, mouse.c_str(), input, static_cast<int>(pressed));
    sd_bus_send(m_bus.get(), signal.get(), nullptr);
}

void StandInService::tellCode(const std::string& mouse, int code, bool pressed) {
    const std::lock_guard lock(m_mutex);
    const auto signal = newSignal(kCodeChanged);
    sd_bus_message_append(
        signal.get(), kCodeChangedArguments, mouse.c_str(), code, static_cast<int>(pressed));
    sd_bus_send(m_bus.get(), signal.get(), nullptr);
}

std::vector<std::string> StandInService::calls() const {
    const std::lock_guard lock(m_mutex);
    return m_calls;
}

int StandInService::countOf(const std::string& call) const {
    const auto all = calls();
    return static_cast<int>(std::ranges::count(all, call));
}

std::string StandInService::recordOf(const std::string& mouse) const {
    const std::lock_guard lock(m_mutex);
    const auto found = m_records.find(mouse);
    return found == m_records.end() ? "" : found->second;
}

engine::Options StandInService::optionsOf(const std::string& mouse) const {
    const std::lock_guard lock(m_mutex);
    const auto found = m_options.find(mouse);
    return found == m_options.end() ? engine::Options{} : found->second;
}

std::string StandInService::caller() const {
    const std::lock_guard lock(m_mutex);
    return m_caller;
}

int StandInService::unanswered() const {
    const std::lock_guard lock(m_mutex);
    return static_cast<int>(m_unanswered.size());
}

} // namespace quorvi::test
