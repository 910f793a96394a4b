#include "events/FrontObject.h"

#include <array>
#include <utility>
#include <vector>

#include "events/EventBusPrivate.h"
#include "events/FrontInterface.h"

namespace quorvi {

using namespace frontinterface;

struct FrontObject::Registration {
    sd_bus* bus;
    FrontState state;
    std::function<void()> enable;
    events::SlotPtr slot;

    template <std::string FrontState::*text>
    static int give(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* registration,
        sd_bus_error*) {
        const auto& state = static_cast<const Registration*>(registration)->state;
        return sd_bus_message_append(reply, kTextSignature, (state.*text).c_str());
    }
    static int receiveEnable(sd_bus_message* call, void* registration, sd_bus_error*) {
        if (const auto& enable = static_cast<const Registration*>(registration)->enable)
            enable();
        return sd_bus_reply_method_return(call, "");
    }
    static const sd_bus_vtable vtable[];
};

const sd_bus_vtable FrontObject::Registration::vtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD(kEnableGnomeExtension, "", "", receiveEnable, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY(
        kApplication, kTextSignature, give<&FrontState::application>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY(
        kSource, kTextSignature, give<&FrontState::source>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY(kDesktop, kTextSignature, give<&FrontState::desktop>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY(kGnomeExtension, kTextSignature, give<&FrontState::gnomeExtension>, 0,
        SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_VTABLE_END,
};

FrontObject::~FrontObject() = default;

std::unique_ptr<FrontObject> FrontObject::offer(const EventBus& bus) {
    if (!bus.isConnected())
        return nullptr;
    std::unique_ptr<FrontObject> object(new FrontObject);
    object->m_registration =
        std::make_unique<Registration>(Registration{bus.connection().bus.get(), {}, nullptr, nullptr});
    sd_bus_slot* slot = nullptr;
    if (sd_bus_add_object_vtable(object->m_registration->bus, &slot, kPath, kInterface, Registration::vtable,
            object->m_registration.get()) < 0)
        return nullptr;
    object->m_registration->slot.reset(slot);
    return object;
}

void FrontObject::onEnableGnomeExtension(std::function<void()> function) {
    m_registration->enable = std::move(function);
}

void FrontObject::tell(const FrontState& state) const {
    const auto before = std::exchange(m_registration->state, state);
    std::vector<char*> names; // the library takes non-const pointers but does not write
    const auto compare = [&](const char* name, const std::string& was, const std::string& is) {
        if (was != is)
            names.push_back(const_cast<char*>(name));
    };
    compare(kApplication, before.application, state.application);
    compare(kSource, before.source, state.source);
    compare(kGnomeExtension, before.gnomeExtension, state.gnomeExtension);
    if (names.empty())
        return;
    names.push_back(nullptr);
    sd_bus_emit_properties_changed_strv(m_registration->bus, kPath, kInterface, names.data());
}

} // namespace quorvi
