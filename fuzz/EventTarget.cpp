// Events from other processes: messages of the right shape with arbitrary content, and of similar shapes.
//
// A message is put together with the bus library's own calls, because the bus lets no other through.
#include <array>
#include <cstring>

#include <fuzzer/FuzzedDataProvider.h>
#include <sys/socket.h>

#include "Require.h"
#include "events/DeviceList.h"
#include "events/EventMessage.h"
#include "events/ProcessName.h"

using namespace quorvi;

namespace {

using fuzz::require;

/// A connection without a peer, which messages need.
class Connection {
  public:
    Connection() {
        std::array<int, 2> ends{};
        require(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) == 0, "there is a socket");
        require(sd_bus_new(&m_bus) >= 0 && sd_bus_set_fd(m_bus, ends[0], ends[0]) >= 0 &&
                    sd_bus_start(m_bus) >= 0,
            "there is a connection");
    }
    [[nodiscard]] events::MessageRef newMessage() const {
        sd_bus_message* message = nullptr;
        sd_bus_message_new_method_call(
            m_bus, &message, "com.kyvar.Any", "/com/kyvar/Events", "com.kyvar.Events", "Send");
        return events::adopt(message);
    }

  private:
    sd_bus* m_bus = nullptr;
};

const Connection& connection() {
    static const Connection theOne;
    return theOne;
}

/// As the message arrives.
bool deliver(const events::MessageRef& message) {
    return sd_bus_message_seal(message.get(), 1, 0) >= 0 && sd_bus_message_rewind(message.get(), 1) >= 0;
}

class MessageMaker {
  public:
    MessageMaker(FuzzedDataProvider& data, sd_bus_message* message) : m_data(data), m_message(message) {}

    void codes() {
        code();
        code();
    }
    void parameters() {
        if (m_data.ConsumeIntegralInRange(0, 31) == 31)
            return;
        sd_bus_message_open_container(m_message, 'a', "(ssv)");
        while (m_data.remaining_bytes() > 0)
            parameter();
        sd_bus_message_close_container(m_message);
    }

  private:
    void parameter() {
        sd_bus_message_open_container(m_message, 'r', "ssv");
        code();
        code();
        value();
        sd_bus_message_close_container(m_message);
    }

    void code() {
        static constexpr std::array kCodes{
            "KyvQ", "KyvC", "KyDL", "KyEV", "----", "magn", "long", "KYDL", "psn "};
        const auto which = m_data.ConsumeIntegralInRange<std::size_t>(0, 15);
        const std::string text =
            which < kCodes.size() ? kCodes[which] : m_data.ConsumeBytesAsString(which < 14 ? 4 : which - 11);
        if (sd_bus_message_append_basic(m_message, 's', text.c_str()) < 0)
            sd_bus_message_append_basic(m_message, 's', "none");
    }

    void value() {
        static constexpr std::array kOthers{"y", "b", "n", "q", "x", "t", "d", "s", "g"};
        switch (const auto kind = m_data.ConsumeIntegralInRange<std::size_t>(0, 15); kind) {
        case 0:
        case 1:
            number("u");
            break;
        case 2:
        case 3:
            number("i");
            break;
        case 4:
            sd_bus_message_append(m_message, "v", "as", 2, "one", "two");
            break;
        case 5:
            sd_bus_message_append(m_message, "v", "v", "ay", 2, 1, 2);
            break;
        default:
            if (kind - 6 < kOthers.size() && kind > 12)
                other(kOthers[m_data.ConsumeIntegralInRange<std::size_t>(0, kOthers.size() - 1)]);
            else
                bytes();
        }
    }

    void number(const char* signature) {
        sd_bus_message_append(m_message, "v", signature, m_data.ConsumeIntegral<std::uint32_t>());
    }

    void other(const char* signature) {
        const auto bits = m_data.ConsumeIntegral<std::uint64_t>();
        sd_bus_message_open_container(m_message, 'v', signature);
        const void* content = &bits;
        if (*signature == 's' || *signature == 'g')
            content = "ay";
        sd_bus_message_append_basic(m_message, *signature, content);
        sd_bus_message_close_container(m_message);
    }

    /// Often as long as a list of devices, or beside it.
    void bytes() {
        const auto kind = m_data.ConsumeIntegralInRange<std::size_t>(0, 3);
        std::vector<std::uint8_t> content(kind == 0 ? 195 + m_data.ConsumeIntegralInRange<std::size_t>(0, 2)
                                                    : m_data.ConsumeIntegral<std::uint8_t>());
        if (!content.empty())
            m_data.ConsumeData(content.data(), content.size());
        sd_bus_message_open_container(m_message, 'v', "ay");
        sd_bus_message_append_array(m_message, 'y', content.data(), content.size());
        sd_bus_message_close_container(m_message);
    }

    FuzzedDataProvider& m_data;
    sd_bus_message* m_message;
};

void requireCode(FourCharCode code) {
    require(fourCharCodeFromText(fourCharText(code)) == code, "a code that was read is four characters");
}

void requireDeviceList(const Event& event) {
    DeviceList list;
    list.count = 0xABCD;
    EventBytes bytes;
    const bool fits =
        event.getBytes(keyDirectObject, typeDeviceList, bytes) == noErr && bytes.size() == sizeof(DeviceList);
    require(getDeviceList(event, list) == fits, "a list of devices has its size and its type");
    if (!fits) {
        require(list.count == 0xABCD, "what is no list leaves the old one");
        return;
    }
    EventBytes again;
    require(
        makeDeviceListEvent(list).getBytes(keyDirectObject, typeDeviceList, again) == noErr && again == bytes,
        "a list of devices is sent as it came");
}

void requireParameters(const Event& event) {
    for (const auto& parameter : event.parameters) {
        requireCode(parameter.keyword);
        requireCode(parameter.type);
        require(parameter.isWellFormed(), "a value that was read fits its type");
        std::uint32_t magnitude = 0;
        std::int32_t integer = 0;
        const auto* first = event.findParameter(parameter.keyword);
        require(
            (event.getMagnitude(parameter.keyword, magnitude) == noErr) == (first->type == typeMagnitude) &&
                (event.getInteger(parameter.keyword, integer) == noErr) == (first->type == typeSInt32),
            "a value is given as its type");
    }
}

void requireSameAgain(const Event& event) {
    const auto message = connection().newMessage();
    require(
        events::writeEvent(message.get(), event) && deliver(message), "an event that was read is written");
    require(events::readEvent(message.get()) == event, "an event is read as it was written");
    const auto reply = connection().newMessage();
    require(events::writeParameters(reply.get(), event) && deliver(reply), "so is a reply");
    Event answer{event.eventClass, event.eventID, {}};
    require(
        events::readParameters(reply.get(), answer) && answer == event, "a reply is read as it was written");
}

void requireName(const std::string& name) {
    if (const auto psn = events::psnFromUniqueName(name))
        require(events::psnFromUniqueName(events::uniqueName(*psn)) == psn, "a serial number is kept");
    require(events::processNameOf(events::wellKnownName(name)) == name || name.empty(), "a name is kept");
    require(events::sameProcessName(name, name), "a name is itself");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider provider(data, size);
    requireName(provider.ConsumeRandomLengthString(16));
    const bool isReply = provider.ConsumeBool();
    const auto message = connection().newMessage();
    MessageMaker maker(provider, message.get());
    if (!isReply)
        maker.codes();
    maker.parameters();
    if (!deliver(message))
        return 0;
    auto event =
        isReply ? std::optional(makeCommand(kMessagePaneShown, 1)) : events::readEvent(message.get());
    if (!event || (isReply && !events::readParameters(message.get(), *event)))
        return 0;
    requireCode(event->eventClass);
    requireCode(event->eventID);
    requireParameters(*event);
    requireDeviceList(*event);
    requireSameAgain(*event);
    return 0;
}
