// The service's object on the system bus: it checks the caller, then serves the call.
#pragma once

#include <set>
#include <string>

#include "inputd/bus/AllowedUsers.h"
#include "inputd/bus/Questions.h"
#include "inputd/bus/Watchers.h"
#include "inputd/devices/NodeList.h"
#include "inputd/devices/UsedMice.h"

namespace quorvi::inputd {

class BusObject {
  public:
    /// All arguments must outlive the object. `usedChanged` is called when a mouse comes into use or is
    /// forgotten.
    BusObject(sd_bus* bus, Questions& questions, const NodeList& nodes, UsedMice& mice, Watchers& watchers,
        AllowedUsers& allowed, std::function<void()> usedChanged);

    /// Registers the object and requests the name. Returns false if the bus refuses.
    [[nodiscard]] bool start();
    void tellMiceChanged() const;

  private:
    /// A call being answered, and its user.
    struct Call {
        events::MessageRef message;
        uid_t user;
    };
    template <void (BusObject::*Method)(const Call&)>
    static int called(sd_bus_message* message, void* self, sd_bus_error* error);
    static const sd_bus_vtable vtable[];

    void listMice(const Call& call);
    void use(const Call& call);
    void setRecord(const Call& call);
    void setOptions(const Call& call);
    void forget(const Call& call);
    void getStatus(const Call& call);
    void watch(const Call& call);
    void watchCodes(const Call& call);

    void useAllowed(const Call& call, const std::string& id, std::span<const std::uint8_t> record,
        const engine::Options& options);
    /// Reads an id from the call and returns the caller's mouse; if null, the error has been sent.
    [[nodiscard]] UsedMouse* readUsedMouse(const Call& call);
    [[nodiscard]] const Mouse* findPluggedIn(const std::vector<Mouse>& mice, const std::string& id) const;
    static void reply(const Call& call);
    static void refuse(const Call& call, const char* error, const char* text);
    static void refuseAccess(const Call& call);

    sd_bus* m_bus;
    Questions& m_questions;
    const NodeList& m_nodes;
    UsedMice& m_mice;
    Watchers& m_watchers;
    AllowedUsers& m_allowed;
    std::set<uid_t> m_asking; ///< users with a pending polkit request
    std::function<void()> m_usedChanged;
    events::SlotPtr m_slot;
};

} // namespace quorvi::inputd
