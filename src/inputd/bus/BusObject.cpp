#include "inputd/bus/BusObject.h"

#include <algorithm>
#include <map>

#include "events/InputdInterface.h"
#include "inputd/bus/OptionValues.h"
#include "inputd/bus/WhoMay.h"
#include "model/ConfigRecord.h"

namespace quorvi::inputd {

namespace {

bool isAtTheSeat(uid_t user, const std::string& seat) {
    return mayUse(user, activeSession(seat));
}

std::string readText(sd_bus_message* message) {
    const char* text = nullptr;
    return sd_bus_message_read_basic(message, 's', &text) > 0 ? text : "";
}

/// Empty if it does not have a record's size. The message owns the bytes.
std::span<const std::uint8_t> readRecord(sd_bus_message* message) {
    const void* bytes = nullptr;
    std::size_t size = 0;
    if (sd_bus_message_read_array(message, 'y', &bytes, &size) < 0 || size != sizeof(ConfigRecord))
        return {};
    return {static_cast<const std::uint8_t*>(bytes), size};
}

constexpr char kNotARecord[] = "The record is not one of 13232 bytes with a profile";
constexpr char kNotOptions[] = "An option is unknown or out of its bounds";
constexpr char kTooMuch[] = "Too much is asked for at once";

} // namespace

template <void (BusObject::*Method)(const BusObject::Call&)>
int BusObject::called(sd_bus_message* message, void* self, sd_bus_error* error) {
    auto& object = *static_cast<BusObject*>(self);
    const auto kept = events::adopt(sd_bus_message_ref(message));
    const bool asked = object.m_questions.userOf(
        sd_bus_message_get_sender(message), [&object, kept](std::optional<uid_t> user) {
            if (user) // no answer to a caller that has left
                (object.*Method)({kept, *user});
        });
    return asked ? 1 : sd_bus_error_set(error, kErrorLimitsExceeded, kTooMuch);
}

const sd_bus_vtable BusObject::vtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_NAMES(kListMice, "", , kListMiceResult, SD_BUS_PARAM(mice),
        called<&BusObject::listMice>, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kUse, kUseArguments,
        SD_BUS_PARAM(mouse) SD_BUS_PARAM(record) SD_BUS_PARAM(options), "", , called<&BusObject::use>,
        SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kSetRecord, kSetRecordArguments, SD_BUS_PARAM(mouse) SD_BUS_PARAM(record), "", ,
        called<&BusObject::setRecord>, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kSetOptions, kSetOptionsArguments, SD_BUS_PARAM(mouse) SD_BUS_PARAM(options), "",
        , called<&BusObject::setOptions>, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kForget, kForgetArguments, SD_BUS_PARAM(mouse), "", , called<&BusObject::forget>,
        SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kGetStatus, kGetStatusArguments, SD_BUS_PARAM(mouse), kStatus,
        SD_BUS_PARAM(state) SD_BUS_PARAM(profile) SD_BUS_PARAM(stage) SD_BUS_PARAM(dpiX) SD_BUS_PARAM(dpiY)
            SD_BUS_PARAM(inputs),
        called<&BusObject::getStatus>, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kWatch, kWatchArguments, SD_BUS_PARAM(inputs), "", , called<&BusObject::watch>,
        SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD_WITH_NAMES(kWatchCodes, kWatchCodesArguments, SD_BUS_PARAM(mouse) SD_BUS_PARAM(wanted), "",
        , called<&BusObject::watchCodes>, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_SIGNAL(kMiceChanged, "", 0),
    SD_BUS_SIGNAL_WITH_NAMES(kStatusChanged, kStatusChangedArguments,
        SD_BUS_PARAM(mouse) SD_BUS_PARAM(state) SD_BUS_PARAM(profile) SD_BUS_PARAM(stage) SD_BUS_PARAM(dpiX)
            SD_BUS_PARAM(dpiY) SD_BUS_PARAM(inputs),
        0),
    SD_BUS_SIGNAL_WITH_NAMES(kInputChanged, kInputChangedArguments,
        SD_BUS_PARAM(mouse) SD_BUS_PARAM(input) SD_BUS_PARAM(pressed), 0),
    SD_BUS_SIGNAL_WITH_NAMES(
        kCodeChanged, kCodeChangedArguments, SD_BUS_PARAM(mouse) SD_BUS_PARAM(code) SD_BUS_PARAM(pressed), 0),
    SD_BUS_VTABLE_END,
};

BusObject::BusObject(sd_bus* bus, Questions& questions, const NodeList& nodes, UsedMice& mice,
    Watchers& watchers, AllowedUsers& allowed, std::function<void()> usedChanged)
    : m_bus(bus), m_questions(questions), m_nodes(nodes), m_mice(mice), m_watchers(watchers),
      m_allowed(allowed), m_usedChanged(std::move(usedChanged)) {}

bool BusObject::start() {
    sd_bus_slot* slot = nullptr;
    const bool offered = sd_bus_add_object_vtable(m_bus, &slot, kPath, kInterface, vtable, this) >= 0;
    m_slot.reset(slot);
    return offered && sd_bus_request_name(m_bus, kName, 0) >= 0;
}

void BusObject::tellMiceChanged() const {
    sd_bus_emit_signal(m_bus, kPath, kInterface, kMiceChanged, "");
}

void BusObject::reply(const Call& call) {
    sd_bus_reply_method_return(call.message.get(), "");
}

void BusObject::refuse(const Call& call, const char* error, const char* text) {
    sd_bus_reply_method_errorf(call.message.get(), error, "%s", text);
}

void BusObject::refuseAccess(const Call& call) {
    refuse(call, kErrorAccessDenied, "Only the user who sits at the machine may use its mice");
}

const Mouse* BusObject::findPluggedIn(const std::vector<Mouse>& mice, const std::string& id) const {
    const auto found = std::ranges::find(mice, id, &Mouse::id);
    return found == mice.end() ? nullptr : &*found;
}

void BusObject::listMice(const Call& call) {
    sd_bus_message* raw = nullptr;
    if (sd_bus_message_new_method_return(call.message.get(), &raw) < 0)
        return;
    const auto answer = events::adopt(raw);
    std::map<std::string, bool> maySeat; // each looked up once
    bool anySeat = isAtTheSeat(call.user, "seat0");
    sd_bus_message_open_container(raw, 'a', kMouse);
    for (const auto& mouse : m_nodes.mice()) {
        const auto [may, isNew] = maySeat.try_emplace(mouse.seat);
        if (isNew)
            may->second = isAtTheSeat(call.user, mouse.seat);
        if (!may->second)
            continue;
        anySeat = true;
        const auto* used = m_mice.find(mouse.id);
        sd_bus_message_append(raw, kMouse, mouse.id.c_str(), mouse.name.c_str(), mouse.vendor, mouse.product,
            mouse.dpi, static_cast<int>(used && used->owner == call.user));
    }
    sd_bus_message_close_container(raw);
    if (!anySeat)
        return refuseAccess(call);
    sd_bus_send(m_bus, raw, nullptr);
}

void BusObject::use(const Call& call) {
    auto* message = call.message.get();
    const auto id = readText(message);
    const auto record = readRecord(message);
    const auto options = readOptions(message);
    const auto mice = m_nodes.mice();
    const auto* mouse = findPluggedIn(mice, id);
    // A caller without permission does not even learn whether the mouse exists.
    if (!isAtTheSeat(call.user, mouse ? mouse->seat : "seat0"))
        return refuseAccess(call);
    if (record.empty())
        return refuse(call, kErrorInvalidArguments, kNotARecord);
    if (!options)
        return refuse(call, kErrorInvalidArguments, kNotOptions);
    if (!mouse)
        return refuse(call, kErrorNoSuchMouse, "No such mouse is plugged in");
    if (m_allowed.contains(call.user))
        return useAllowed(call, id, record, *options);
    // One request for each user: an administrator may take minutes, and other users have requests too.
    if (!m_asking.insert(call.user).second)
        return refuse(call, kErrorLimitsExceeded, "An administrator is being asked");
    const bool asked = m_questions.isAuthorized(sd_bus_message_get_sender(message), kPolkitAction,
        [this, call, id, record, options = *options](bool yes) {
            m_asking.erase(call.user);
            if (!yes)
                return refuse(
                    call, kErrorAccessDenied, "No administrator has let this user use input devices");
            m_allowed.add(call.user);
            useAllowed(call, id, record, options);
        });
    if (asked)
        return;
    m_asking.erase(call.user);
    refuse(call, kErrorLimitsExceeded, kTooMuch);
}

/// Checks again: the mouse and the user may have gone during the administrator's approval.
void BusObject::useAllowed(const Call& call, const std::string& id, std::span<const std::uint8_t> record,
    const engine::Options& options) {
    const auto mice = m_nodes.mice();
    const auto* mouse = findPluggedIn(mice, id);
    if (!mouse)
        return refuse(call, kErrorNoSuchMouse, "No such mouse is plugged in");
    if (!isAtTheSeat(call.user, mouse->seat))
        return refuseAccess(call);
    const auto result = m_mice.use(*mouse, call.user, record, options);
    m_usedChanged();
    switch (result) {
    case UsedMice::Result::done:
        return reply(call);
    case UsedMice::Result::notARecord:
        return refuse(call, kErrorInvalidArguments, kNotARecord);
    case UsedMice::Result::tooMany:
        return refuse(call, kErrorLimitsExceeded, "Too many mice are in use");
    case UsedMice::Result::noDevice:
        return refuse(call, kErrorFailed, "No input device can be made");
    }
}

UsedMouse* BusObject::readUsedMouse(const Call& call) {
    auto* mouse = m_mice.find(readText(call.message.get()));
    if (!isAtTheSeat(call.user, mouse ? mouse->seat : "seat0") || (mouse && mouse->owner != call.user)) {
        refuseAccess(call);
        return nullptr;
    }
    if (!mouse)
        refuse(call, kErrorNoSuchMouse, "No such mouse is in use");
    return mouse;
}

void BusObject::setRecord(const Call& call) {
    auto* mouse = readUsedMouse(call);
    if (!mouse)
        return;
    const auto record = readRecord(call.message.get());
    if (record.empty() || !m_mice.setRecord(*mouse, record))
        return refuse(call, kErrorInvalidArguments, kNotARecord);
    reply(call);
}

void BusObject::setOptions(const Call& call) {
    auto* mouse = readUsedMouse(call);
    if (!mouse)
        return;
    const auto options = readOptions(call.message.get());
    if (!options)
        return refuse(call, kErrorInvalidArguments, kNotOptions);
    m_mice.setOptions(*mouse, *options);
    reply(call);
}

void BusObject::forget(const Call& call) {
    const auto* mouse = readUsedMouse(call);
    if (!mouse)
        return;
    m_mice.forgetIf([&](const UsedMouse& each) { return &each == mouse; });
    m_usedChanged();
    reply(call);
}

void BusObject::getStatus(const Call& call) {
    const auto* mouse = readUsedMouse(call);
    sd_bus_message* answer = nullptr;
    if (!mouse || sd_bus_message_new_method_return(call.message.get(), &answer) < 0)
        return;
    const auto owner = events::adopt(answer);
    if (appendStatus(answer, *mouse, nameOf(mouse->driven.state())))
        sd_bus_send(m_bus, answer, nullptr);
}

void BusObject::watch(const Call& call) {
    int inputs = 0;
    sd_bus_message_read_basic(call.message.get(), 'b', &inputs);
    if (!isAtTheSeat(call.user, "seat0"))
        return refuseAccess(call);
    if (!m_watchers.add(sd_bus_message_get_sender(call.message.get()), call.user, inputs != 0))
        return refuse(call, kErrorLimitsExceeded, "Too many want to be told");
    reply(call);
}

void BusObject::watchCodes(const Call& call) {
    const auto* mouse = readUsedMouse(call);
    if (!mouse)
        return;
    int wanted = 0;
    sd_bus_message_read_basic(call.message.get(), 'b', &wanted);
    if (!m_watchers.addForCodes(
            sd_bus_message_get_sender(call.message.get()), call.user, wanted != 0 ? mouse->id : ""))
        return refuse(call, kErrorLimitsExceeded, "Too many want to be told");
    reply(call);
}

} // namespace quorvi::inputd
