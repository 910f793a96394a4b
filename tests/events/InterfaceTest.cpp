// The interface description files say what the running objects say.
#include <fstream>
#include <regex>
#include <sstream>

#include <systemd/sd-bus.h>

#include "events/BusFixture.h"
#include "platform/events/EventsInterface.h"
#include "platform/events/ProcessName.h"

namespace quorvi::test {
namespace {

std::string fileText(const std::string& path) {
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

/// The <interface> element of the name, without the blanks between its elements.
std::string interfaceElement(const std::string& xml, const std::string& name) {
    const auto start = xml.find("<interface name=\"" + name + "\">");
    if (start == std::string::npos)
        return "no interface " + name + " in: " + xml;
    const auto end = xml.find("</interface>", start);
    return std::regex_replace(xml.substr(start, end - start), std::regex(">\\s+"), ">");
}

std::string introspect(const ProcessSerialNumber& psn, const char* path) {
    sd_bus* bus = nullptr;
    sd_bus_message* reply = nullptr;
    const char* xml = "";
    if (sd_bus_open_user(&bus) >= 0 &&
        sd_bus_call_method(bus, events::uniqueName(psn).c_str(), path, "org.freedesktop.DBus.Introspectable",
            "Introspect", nullptr, &reply, nullptr) >= 0)
        sd_bus_message_read(reply, "s", &xml);
    std::string result = xml;
    sd_bus_message_unref(reply);
    sd_bus_flush_close_unref(bus);
    return result;
}

TEST(InterfaceDescription, OfEventsIsWhatTheRunningObjectOffers) {
    const PrivateBus privateBus;
    const Participant participant("Somebody");
    EXPECT_EQ(interfaceElement(fileText(QUORVI_EVENTS_SOURCE "/com.kyvar.Events.xml"), "com.kyvar.Events"),
        interfaceElement(introspect(participant.psn(), events::kPath), events::kInterface));
}

} // namespace
} // namespace quorvi::test
