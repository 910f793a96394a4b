#include "support/Storm.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <vector>

#include <systemd/sd-bus.h>

#include "events/DeviceList.h"
#include "events/EventsInterface.h"
#include "events/ProcessName.h"
#include "events/SdBus.h"
#include "support/ChildProcess.h"

namespace quorvi::test {

namespace {

constexpr int kShortStorm = 400;
/// Answers are read at this rate, so that they do not pile up on the bus.
constexpr int kSentBetweenReads = 50;
constexpr std::size_t kLongText = 100'000;

using Bytes = std::vector<std::uint8_t>;

Bytes listBytes(std::size_t size, std::uint16_t count) {
    Bytes bytes(std::max<std::size_t>(size, 2), 0x5A);
    bytes[0] = static_cast<std::uint8_t>(count);
    bytes[1] = static_cast<std::uint8_t>(count >> 8);
    bytes.resize(size);
    return bytes;
}

std::shared_ptr<sd_bus_message> owned(sd_bus_message* message) {
    return {message, [](sd_bus_message* m) { sd_bus_message_unref(m); }};
}

/// One parameter with a value of bytes.
void appendBytes(sd_bus_message* message, const char* keyword, const char* type, const Bytes& bytes) {
    sd_bus_message_open_container(message, 'r', events::kParameterMembers);
    sd_bus_message_append(message, "ss", keyword, type);
    sd_bus_message_open_container(message, 'v', events::kBytesSignature);
    sd_bus_message_append_array(message, 'y', bytes.data(), bytes.size());
    sd_bus_message_close_container(message);
    sd_bus_message_close_container(message);
}

void appendEvent(sd_bus_message* message, const char* eventClass, const char* eventID, const char* type,
    const Bytes& bytes, int times = 1) {
    sd_bus_message_append(message, "ss", eventClass, eventID);
    sd_bus_message_open_container(message, 'a', events::kParameter);
    for (int i = 0; i < times; ++i)
        appendBytes(message, "----", type, bytes);
    sd_bus_message_close_container(message);
}

} // namespace

int stormSize() {
    const char* wanted = std::getenv("QUORVI_STORM");
    const int size = wanted ? std::atoi(wanted) : 0;
    return size > 0 ? size : kShortStorm;
}

void Storm::Close::operator()(sd_bus* bus) const {
    sd_bus_flush_close_unref(bus);
}

Storm::Storm(const ProcessSerialNumber& target, std::uint32_t seed)
    : m_target(events::uniqueName(target)), m_random(seed) {
    sd_bus* bus = nullptr;
    if (sd_bus_open_user(&bus) < 0)
        throw std::runtime_error("there is no bus for the storm");
    m_bus.reset(bus);
    sd_bus_flush(bus); // greets the bus: nothing is sent before
}

std::size_t Storm::random(std::size_t below) {
    return m_random() % below;
}

Storm::Message Storm::newCall(const char* path, const char* interface, const char* member) const {
    sd_bus_message* call = nullptr;
    if (sd_bus_message_new_method_call(m_bus.get(), &call, m_target.c_str(), path, interface, member) < 0)
        throw std::runtime_error("the bus has gone in the storm");
    return owned(call);
}

Storm::Message Storm::newSend() const {
    return newCall(events::kPath, events::kInterface, events::kSend);
}

void Storm::send(const Message& message) {
    if (sd_bus_send(m_bus.get(), message.get(), nullptr) < 0)
        throw std::runtime_error("the storm cannot be sent");
    if (++m_sent % kSentBetweenReads == 0)
        drain();
}

void Storm::drain() {
    sd_bus_flush(m_bus.get());
    while (sd_bus_process(m_bus.get(), nullptr) > 0) {
    }
}

void Storm::awaitPassedOn() {
    drain();
    if (sd_bus_call_method(m_bus.get(), events::kBusName, events::kBusPath, "org.freedesktop.DBus.Peer",
            "Ping", nullptr, nullptr, "") < 0)
        throw std::runtime_error("the bus does not answer the storm");
}

bool Storm::isTakenIn() {
    drain();
    const auto call = newCall("/", "org.freedesktop.DBus.Peer", "Ping");
    constexpr auto patience = std::chrono::microseconds(kPatience * 6);
    const bool answered = sd_bus_call(m_bus.get(), call.get(), static_cast<std::uint64_t>(patience.count()),
                              nullptr, nullptr) >= 0;
    drain();
    return answered;
}

void Storm::sendDeviceList(std::uint16_t count) {
    const auto message = newSend();
    sd_bus_message_set_expect_reply(message.get(), static_cast<int>(random(2)));
    appendEvent(message.get(), "KyvQ", "KyDL", "KYDL", listBytes(sizeof(DeviceList), count));
    send(message);
}

void Storm::sendListOfSize(std::size_t bytes) {
    const auto message = newSend();
    appendEvent(message.get(), "KyvQ", "KyDL", "KYDL", listBytes(bytes, 1));
    send(message);
}

void Storm::sendCommand(FourCharCode command, std::int32_t parameter) {
    const auto message = newSend();
    sd_bus_message_set_expect_reply(message.get(), 0);
    sd_bus_message_append(message.get(), "ssa(ssv)", "KyvQ", "KyvC", 2, "----", "magn", "u", command, "KyvC",
        "long", "i", parameter);
    send(message);
}

void Storm::sendMalformed() {
    constexpr std::array<Kind, 9> kinds{&Storm::sendWrongCodes, &Storm::sendWrongParameter,
        &Storm::sendWrongSize, &Storm::sendManyParameters, &Storm::sendWrongSignature, &Storm::sendToNobody,
        &Storm::sendUnwantedReplyToAnyCall, &Storm::sendForgedSignal, &Storm::sendUnknownCommand};
    (this->*kinds[random(kinds.size())])();
}

void Storm::sendWrongCodes() {
    const std::string text(kLongText, 'K');
    const std::array codes{"", "K", "Kyv", "KyvQQ", "Ky\xC3\xA9", "kyvq", "NONE", text.c_str()};
    const auto message = newSend();
    const char* right = random(2) == 0 ? "KyvQ" : "KyDL";
    const char* wrong = codes[random(codes.size())];
    const bool classIsRight = random(2) == 0;
    appendEvent(message.get(), classIsRight ? right : wrong, classIsRight ? wrong : "KyDL",
        random(2) == 0 ? "KYDL" : wrong, listBytes(sizeof(DeviceList), 0));
    send(message);
}

void Storm::sendWrongParameter() {
    const auto message = newSend();
    sd_bus_message_append(message.get(), "ss", "KyvQ", random(2) == 0 ? "KyDL" : "KyvC");
    const std::string text(kLongText, 'x');
    switch (random(8)) {
    case 0:
        sd_bus_message_append(message.get(), "a(ssv)", 0);
        break;
    case 1:
        sd_bus_message_append(message.get(), "a(ssv)", 1, "----", "KYDL", "u", 196U);
        break;
    case 2:
        sd_bus_message_append(message.get(), "a(ssv)", 1, "----", "KYDL", "s", text.c_str());
        break;
    case 3:
        sd_bus_message_append(message.get(), "a(ssv)", 1, "----", "KYDL", "ai", 2, -1, -1);
        break;
    case 4:
        sd_bus_message_append(
            message.get(), "a(ssv)", 1, "----", "KYDL", "v", "v", "v", "v", "v", "ay", 2, 1, 0);
        break;
    case 5:
        sd_bus_message_append(message.get(), "a(ssv)", 1, "----", "long", "i", -1);
        break;
    case 6:
        sd_bus_message_append(message.get(), "a(ssv)", 1, "----", "magn", "i", -1);
        break;
    default:
        sd_bus_message_append(message.get(), "a(ssv)", 2, "data", "KYDL", "ay", 1, 1, "----", "magn", "u",
            std::numeric_limits<std::uint32_t>::max());
        break;
    }
    send(message);
}

void Storm::sendWrongSize() {
    constexpr std::array<std::size_t, 9> sizes{0, 1, 2, 4, 195, 197, 392, 65536, 1'000'000};
    const std::size_t largest = random(20) == 0 ? sizes.size() : sizes.size() - 1;
    sendListOfSize(sizes[random(largest)]);
}

void Storm::sendManyParameters() {
    const auto message = newSend();
    // The first one counts, and is not a list.
    appendEvent(message.get(), "KyvQ", "KyDL", "KYDL", listBytes(8, 0), 500);
    send(message);
}

void Storm::sendWrongSignature() {
    const auto message = newSend();
    switch (random(5)) {
    case 0:
        break;
    case 1:
        sd_bus_message_append(message.get(), "ss", "KyvQ", "KyDL");
        break;
    case 2:
        sd_bus_message_append(message.get(), "ssa(ssi)", "KyvQ", "KyDL", 1, "----", "long", 1);
        break;
    case 3:
        sd_bus_message_append(message.get(), "ssa(ssv)s", "KyvQ", "KyDL", 0, "more");
        break;
    default:
        sd_bus_message_append(message.get(), "a{sv}", 1, "KyvQ", "u", 1U);
        break;
    }
    send(message);
}

void Storm::sendToNobody() {
    constexpr std::array<std::array<const char*, 3>, 6> places{{{"/", events::kInterface, events::kSend},
        {"/com/kyvar/Events/More", events::kInterface, events::kSend},
        {events::kPath, "com.kyvar.Event", events::kSend}, {events::kPath, events::kInterface, "Sent"},
        {events::kPath, "org.freedesktop.DBus.Properties", "GetAll"},
        {"/org/freedesktop/DBus", "org.freedesktop.DBus", "NameLost"}}};
    const auto& [path, interface, member] = places[random(places.size())];
    const auto message = newCall(path, interface, member);
    appendEvent(message.get(), "KyvQ", "KyDL", "KYDL", listBytes(sizeof(DeviceList), 0));
    send(message);
}

void Storm::sendUnwantedReplyToAnyCall() {
    const std::size_t number = 1 + random(1000); // which can only be guessed
    sendUnwantedReply(number, random(2) != 0);
}

void Storm::sendUnwantedReply(std::uint64_t number, bool isError) {
    const auto call = newSend();
    sd_bus_message_seal(call.get(), number, 0);
    sd_bus_message* answer = nullptr;
    const int made = isError
                         ? sd_bus_message_new_method_errorf(call.get(), &answer, SD_BUS_ERROR_FAILED, "No.")
                         : sd_bus_message_new_method_return(call.get(), &answer);
    if (made < 0 || sd_bus_message_set_destination(answer, m_target.c_str()) < 0)
        throw std::runtime_error("the answer cannot be made");
    send(owned(answer));
}

void Storm::sendForgedSignal() {
    constexpr std::array members{"NameOwnerChanged", "NameLost", "NameAcquired", "Send"};
    sd_bus_message* signal = nullptr;
    if (sd_bus_message_new_signal(m_bus.get(), &signal, "/org/freedesktop/DBus", "org.freedesktop.DBus",
            members[random(members.size())]) < 0 ||
        sd_bus_message_set_destination(signal, m_target.c_str()) < 0)
        throw std::runtime_error("the signal cannot be made");
    sd_bus_message_append(signal, "sss", "com.kyvar.KyvarQuorviHelper", m_target.c_str(), "");
    send(owned(signal));
}

void Storm::sendUnknownCommand() {
    constexpr auto lowest = std::numeric_limits<std::int32_t>::min();
    sendCommand(static_cast<FourCharCode>(m_random()), random(2) == 0 ? lowest : -1);
}

} // namespace quorvi::test
