#include "events/HelperObject.h"

#include "events/EventBusPrivate.h"
#include "events/EventsInterface.h"
#include "events/HelperInterface.h"
#include "events/ProcessName.h"

namespace quorvi {

namespace {

using namespace helperinterface;

HelperControls& controlsOf(void* userdata) {
    return *static_cast<HelperControls*>(userdata);
}

int answer(sd_bus_message* call, sd_bus_error* error, MouseResult result) {
    switch (result) {
    case MouseResult::done:
        return sd_bus_reply_method_return(call, "");
    case MouseResult::noSuchMouse:
        return sd_bus_error_set(error, kErrorNoSuchMouse, "There is no such mouse");
    case MouseResult::invalid:
        return sd_bus_error_set(error, events::kErrorInvalidArguments, "A value is out of its bounds");
    case MouseResult::notInUse:
        return sd_bus_error_set(error, kErrorNotInUse, "The mouse is not in use");
    case MouseResult::notWritten:
        return sd_bus_error_set(error, kErrorNotWritten, "What was chosen cannot be written down");
    case MouseResult::busy:
        break;
    }
    return sd_bus_error_set(error, kErrorBusy, "Another program sets up a mouse");
}

void appendMouse(sd_bus_message* reply, const MouseEntry& mouse) {
    sd_bus_message_open_container(reply, 'r', kMouseMembers);
    sd_bus_message_append(reply, "sssbsqq", mouse.id.c_str(), mouse.name.c_str(), mouse.connection.c_str(),
        static_cast<int>(mouse.inUse), mouse.state.c_str(), mouse.hardwareDpi, mouse.dpi);
    sd_bus_message_append_array(reply, 'q', mouse.codes.data(), sizeof mouse.codes);
    sd_bus_message_append(reply, "as", 2, kCannotPollingRate, kCannotLights);
    sd_bus_message_close_container(reply);
}

int receiveListMice(sd_bus_message* call, void* controls, sd_bus_error*) {
    const auto kept = events::adopt(sd_bus_message_ref(call));
    controlsOf(controls).listMice([kept](const std::vector<MouseEntry>& mice) {
        sd_bus_message* raw = nullptr;
        if (sd_bus_message_new_method_return(kept.get(), &raw) < 0)
            return;
        const auto reply = events::adopt(raw);
        sd_bus_message_open_container(raw, 'a', kMouse);
        for (const auto& mouse : mice)
            appendMouse(raw, mouse);
        sd_bus_message_close_container(raw);
        sd_bus_send(sd_bus_message_get_bus(kept.get()), raw, nullptr);
    });
    return 1;
}

int receiveUse(sd_bus_message* call, void* controls, sd_bus_error* error) {
    const char* mouse = nullptr;
    int inUse = 0;
    if (const int read = sd_bus_message_read(call, kUseSignature, &mouse, &inUse); read < 0)
        return read;
    return answer(call, error, controlsOf(controls).useMouse(mouse, inUse != 0));
}

int receiveSetDpi(sd_bus_message* call, void* controls, sd_bus_error* error) {
    const char* mouse = nullptr;
    std::uint16_t dpi = 0;
    if (const int read = sd_bus_message_read(call, kSetDpiSignature, &mouse, &dpi); read < 0)
        return read;
    return answer(call, error, controlsOf(controls).setDpi(mouse, dpi));
}

int receiveSetCodes(sd_bus_message* call, void* controls, sd_bus_error* error) {
    const char* mouse = nullptr;
    const void* codes = nullptr;
    std::size_t bytes = 0;
    if (const int read = sd_bus_message_read_basic(call, 's', &mouse); read < 0)
        return read;
    if (const int read = sd_bus_message_read_array(call, 'q', &codes, &bytes); read < 0)
        return read;
    const std::span all(static_cast<const std::uint16_t*>(codes), bytes / sizeof(std::uint16_t));
    return answer(call, error, controlsOf(controls).setCodes(mouse, all));
}

ProcessSerialNumber senderOf(sd_bus_message* call) {
    const char* sender = sd_bus_message_get_sender(call);
    return events::psnFromUniqueName(sender ? sender : "").value_or(ProcessSerialNumber{});
}

int receiveBeginSetUp(sd_bus_message* call, void* controls, sd_bus_error* error) {
    const char* mouse = nullptr;
    if (const int read = sd_bus_message_read_basic(call, 's', &mouse); read < 0)
        return read;
    return answer(call, error, controlsOf(controls).beginSetUp(mouse, senderOf(call)));
}

int receiveWatchKey(sd_bus_message* call, void* controls, sd_bus_error* error) {
    std::uint16_t code = 0;
    if (const int read = sd_bus_message_read_basic(call, 'q', &code); read < 0)
        return read;
    return answer(call, error, controlsOf(controls).watchKey(code, senderOf(call)));
}

int receiveEndSetUp(sd_bus_message* call, void* controls, sd_bus_error*) {
    controlsOf(controls).endSetUp(senderOf(call));
    return sd_bus_reply_method_return(call, "");
}

int giveService(
    sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* controls, sd_bus_error*) {
    return sd_bus_message_append(reply, "b", static_cast<int>(controlsOf(controls).hasService()));
}

int giveDemonstration(
    sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* controls, sd_bus_error*) {
    return sd_bus_message_append(reply, "b", static_cast<int>(controlsOf(controls).isDemonstration()));
}

int giveProfile(
    sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* controls, sd_bus_error*) {
    return sd_bus_message_append(reply, "u", controlsOf(controls).runningProfile());
}

int giveStage(
    sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* controls, sd_bus_error*) {
    return sd_bus_message_append(reply, "u", controlsOf(controls).runningStage());
}

int giveFrontReason(
    sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* controls, sd_bus_error*) {
    return sd_bus_message_append(reply, "s", controlsOf(controls).frontReason().c_str());
}

int giveInputs(
    sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* controls, sd_bus_error*) {
    return sd_bus_message_append(reply, "q", controlsOf(controls).pressedInputs());
}

const sd_bus_vtable kG_vtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_NAMES(
        kListMice, "", /* no names */, kMice, kMiceNames, receiveListMice, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kUse, kUseSignature, kUseNames, "",
        /* no others */, receiveUse, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kSetDpi, kSetDpiSignature, kSetDpiNames, "",
        /* no others */, receiveSetDpi, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kSetCodes, kSetCodesSignature, kSetCodesNames, "",
        /* no others */, receiveSetCodes, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kBeginSetUp, kMouseSignature, kMouseNames, "",
        /* no others */, receiveBeginSetUp, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kWatchKey, kWatchKeySignature, kWatchKeyNames, "",
        /* no others */, receiveWatchKey, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD(kEndSetUp, "", "", receiveEndSetUp, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_SIGNAL(kMiceChanged, "", 0),
    SD_BUS_SIGNAL_WITH_NAMES(kInputChanged, kInputChangedSignature, kInputChangedNames, 0),
    SD_BUS_SIGNAL_WITH_NAMES(kCodeChanged, kCodeChangedSignature, kCodeChangedNames, 0),
    SD_BUS_PROPERTY(kService, "b", giveService, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY(kDemonstration, "b", giveDemonstration, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY(kRunningProfile, "u", giveProfile, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY(kRunningStage, "u", giveStage, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY(kFrontReason, "s", giveFrontReason, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY(kInputs, "q", giveInputs, 0, 0),
    SD_BUS_VTABLE_END,
};

} // namespace

struct HelperObject::Registration {
    sd_bus* bus;
    events::SlotPtr slot;

    /// Sends a signal to that process only; the arguments are as for sd_bus_message_append.
    template <typename... Arguments>
    void tell(const ProcessSerialNumber& process, const char* member, const char* signature,
        Arguments... arguments) const {
        sd_bus_message* made = nullptr;
        if (sd_bus_message_new_signal(bus, &made, kPath, kInterface, member) < 0)
            return;
        const auto message = events::adopt(made);
        if (sd_bus_message_set_destination(made, events::uniqueName(process).c_str()) >= 0 &&
            sd_bus_message_append(made, signature, arguments...) >= 0)
            sd_bus_send(bus, made, nullptr);
    }
};

void HelperObject::tellMiceChanged() const {
    sd_bus_emit_signal(m_registration->bus, kPath, kInterface, kMiceChanged, "");
}

void HelperObject::tellService() const {
    sd_bus_emit_properties_changed(m_registration->bus, kPath, kInterface, kService, nullptr);
}

void HelperObject::tellDemonstration() const {
    sd_bus_emit_properties_changed(m_registration->bus, kPath, kInterface, kDemonstration, nullptr);
}

void HelperObject::tellRunning() const {
    sd_bus_emit_properties_changed(
        m_registration->bus, kPath, kInterface, kRunningProfile, kRunningStage, nullptr);
}

void HelperObject::tellFrontReason() const {
    sd_bus_emit_properties_changed(m_registration->bus, kPath, kInterface, kFrontReason, nullptr);
}

void HelperObject::tellInput(const std::set<ProcessSerialNumber>& processes, const std::string& mouse,
    std::uint8_t input, bool pressed) const {
    for (const auto& process : processes)
        m_registration->tell(
            process, kInputChanged, kInputChangedSignature, mouse.c_str(), input, static_cast<int>(pressed));
}

void HelperObject::tellCode(
    const ProcessSerialNumber& process, const std::string& mouse, std::uint16_t code, bool pressed) const {
    m_registration->tell(
        process, kCodeChanged, kCodeChangedSignature, mouse.c_str(), code, static_cast<int>(pressed));
}

HelperObject::~HelperObject() = default;

std::unique_ptr<HelperObject> HelperObject::offer(const EventBus& bus, HelperControls& controls) {
    sd_bus_slot* slot = nullptr;
    if (!bus.isConnected() || sd_bus_add_object_vtable(bus.connection().bus.get(), &slot, kPath, kInterface,
                                  kG_vtable, &controls) < 0)
        return nullptr;
    std::unique_ptr<HelperObject> object(new HelperObject);
    object->m_registration =
        std::make_unique<Registration>(Registration{bus.connection().bus.get(), events::SlotPtr(slot)});
    return object;
}

} // namespace quorvi
