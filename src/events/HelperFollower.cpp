#include "events/HelperFollower.h"

#include <string_view>
#include <utility>

#include "events/AsyncCalls.h"
#include "events/EventBusPrivate.h"
#include "events/FrontInterface.h"
#include "events/HelperInterface.h"
#include "events/HelperMessages.h"
#include "events/ProcessName.h"

namespace quorvi {

using namespace helperinterface;

namespace {

constexpr char kProperties[] = "org.freedesktop.DBus.Properties";

bool isOurs(std::string_view interface) {
    return interface == kInterface || interface == frontinterface::kInterface;
}

} // namespace

class HelperFollower::Private {
  public:
    Private(const EventBus& connected, const ProcessSerialNumber& process, HelperNewsListener& listening)
        : bus(connected), helper(events::uniqueName(process)), listener(listening),
          calls(connected.connection().bus.get()) {}

    void start();
    void send(const events::MessageRef& call, events::AsyncCalls::Answer answer);
    void send(const events::MessageRef& call, const Answer& answer);
    template <typename... Arguments>
    [[nodiscard]] events::MessageRef newCall(
        const char* interface, const char* method, const char* signature = "", Arguments... arguments) const {
        return calls.newCall(helper.c_str(), kPath, interface, method, signature, arguments...);
    }

    const EventBus& bus;
    const std::string helper; ///< its unique name
    HelperNewsListener& listener;
    HelperNews state;
    events::AsyncCalls calls;
    events::SlotPtr signals;
    bool asksForMice = false;

  private:
    static int signalled(sd_bus_message* signal, void* self, sd_bus_error* error);
    void receive(sd_bus_message* signal);
    void askForProperties(const char* interface);
    void askForMice();
    void takeProperties(sd_bus_message* properties);
    void receiveInput(sd_bus_message* signal) const;
    void receiveCode(sd_bus_message* signal) const;
};

void HelperFollower::Private::start() {
    // The bus answers in order: changes after the rule arrive as signals, earlier ones are in the queried
    // state.
    const std::string rule = "type='signal',sender='" + helper + "',path='" + kPath + "'";
    signals = events::matchSignal(bus.connection().bus.get(), rule.c_str(), signalled, this);
    askForProperties(kInterface);
    askForProperties(frontinterface::kInterface);
    askForMice();
}

void HelperFollower::Private::send(const events::MessageRef& call, events::AsyncCalls::Answer answer) {
    (void)calls.call(call, events::kForEver, std::move(answer));
    bus.connection().notifyPending();
}

void HelperFollower::Private::send(const events::MessageRef& call, const Answer& answer) {
    send(call, [answer](sd_bus_message*, std::string_view error) {
        if (answer)
            answer(error);
    });
}

void HelperFollower::Private::askForProperties(const char* interface) {
    send(newCall(kProperties, "GetAll", "s", interface),
        [this](sd_bus_message* reply, std::string_view error) {
            if (error.empty())
                takeProperties(reply);
        });
}

void HelperFollower::Private::askForMice() {
    // The helper answers after sending the signal, so the pending answer includes this change.
    if (std::exchange(asksForMice, true))
        return;
    send(newCall(kInterface, kListMice), [this](sd_bus_message* reply, std::string_view error) {
        asksForMice = false;
        if (!error.empty())
            return;
        auto mice = events::readMice(reply, kMostMice);
        if (std::exchange(state.mice, mice) != mice)
            listener.helperStateChanged();
    });
}

void HelperFollower::Private::takeProperties(sd_bus_message* properties) {
    const HelperNews before = state;
    events::readProperties(properties, state);
    if (state != before)
        listener.helperStateChanged();
}

int HelperFollower::Private::signalled(sd_bus_message* signal, void* self, sd_bus_error* /*error*/) {
    static_cast<Private*>(self)->receive(signal);
    return 0;
}

void HelperFollower::Private::receive(sd_bus_message* signal) {
    const char* sender = sd_bus_message_get_sender(signal);
    if (!sender || sender != helper)
        return;
    const char* interface = nullptr;
    if (sd_bus_message_is_signal(signal, kProperties, "PropertiesChanged") > 0) {
        if (sd_bus_message_read_basic(signal, 's', &interface) > 0 && isOurs(interface))
            takeProperties(signal);
    } else if (sd_bus_message_is_signal(signal, kInterface, kMiceChanged) > 0) {
        askForMice();
    } else if (sd_bus_message_is_signal(signal, kInterface, kInputChanged) > 0) {
        receiveInput(signal);
    } else if (sd_bus_message_is_signal(signal, kInterface, kCodeChanged) > 0) {
        receiveCode(signal);
    }
}

void HelperFollower::Private::receiveInput(sd_bus_message* signal) const {
    const char* mouse = nullptr;
    std::uint8_t input = 0;
    int pressed = 0;
    if (sd_bus_message_read(signal, kInputChangedSignature, &mouse, &input, &pressed) > 0)
        listener.helperInputChanged(mouse, input, pressed != 0);
}

void HelperFollower::Private::receiveCode(sd_bus_message* signal) const {
    const char* mouse = nullptr;
    std::uint16_t code = 0;
    int pressed = 0;
    if (sd_bus_message_read(signal, kCodeChangedSignature, &mouse, &code, &pressed) > 0)
        listener.helperCodeChanged(mouse, code, pressed != 0);
}

HelperFollower::HelperFollower(
    const EventBus& bus, const ProcessSerialNumber& helper, HelperNewsListener& listener)
    : d(std::make_unique<Private>(bus, helper, listener)) {
    if (bus.isConnected())
        d->start();
}

HelperFollower::~HelperFollower() = default;

const HelperNews& HelperFollower::state() const {
    return d->state;
}

void HelperFollower::use(const std::string& mouse, bool inUse, const Answer& answer) {
    d->send(d->newCall(kInterface, kUse, kUseSignature, mouse.c_str(), int{inUse}), answer);
}

void HelperFollower::setDpi(const std::string& mouse, std::uint16_t dpi, const Answer& answer) {
    d->send(d->newCall(kInterface, kSetDpi, kSetDpiSignature, mouse.c_str(), dpi), answer);
}

void HelperFollower::setCodes(const std::string& mouse, const Codes& codes, const Answer& answer) {
    const auto call = d->newCall(kInterface, kSetCodes, "s", mouse.c_str());
    if (call && sd_bus_message_append_array(call.get(), 'q', codes.data(), sizeof codes) >= 0)
        d->send(call, answer);
}

void HelperFollower::beginSetUp(const std::string& mouse, const Answer& answer) {
    d->send(d->newCall(kInterface, kBeginSetUp, kMouseSignature, mouse.c_str()), answer);
}

void HelperFollower::watchKey(std::uint16_t code) {
    d->send(d->newCall(kInterface, kWatchKey, kWatchKeySignature, code), Answer{});
}

void HelperFollower::endSetUp() {
    d->send(d->newCall(kInterface, kEndSetUp), Answer{});
}

void HelperFollower::enableGnomeExtension() {
    d->send(d->newCall(frontinterface::kInterface, frontinterface::kEnableGnomeExtension), Answer{});
}

} // namespace quorvi
