// The introspection data of bus objects, and the description files.
#pragma once

#include <fstream>
#include <regex>
#include <sstream>
#include <string>

#include <systemd/sd-bus.h>

#include "events/ProcessName.h"

namespace quorvi::test {

inline std::string fileText(const std::string& path) {
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

/// The <interface> element of the name, without the blanks between its elements.
inline std::string interfaceElement(const std::string& xml, const std::string& name) {
    const auto start = xml.find("<interface name=\"" + name + "\">");
    if (start == std::string::npos)
        return "no interface " + name + " in: " + xml;
    const auto end = xml.find("</interface>", start);
    return std::regex_replace(xml.substr(start, end - start), std::regex(">\\s+"), ">");
}

inline std::string introspect(const ProcessSerialNumber& psn, const char* path) {
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

} // namespace quorvi::test
