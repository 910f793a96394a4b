// Mice where there are none, for pictures and for trying: stands in for the system's service on the bus that
// DBUS_SYSTEM_BUS_ADDRESS names, with a mouse for each name that it is given, until its input ends. A line of
// the input is a button's code, which the first mouse presses and releases.
#include <iostream>
#include <string>

#include "helper/support/StandInService.h"

int main(int count, char** arguments) {
    std::vector<quorvi::test::StandInMouse> mice;
    for (int i = 1; i < count; ++i)
        mice.push_back({.id = "1e7d:" + std::to_string(1000 + i) + ":" + std::to_string(i),
            .name = arguments[i],
            .product = static_cast<std::uint16_t>(0x1000 + i)});
    quorvi::test::StandInService service(mice);
    for (std::string line; std::getline(std::cin, line);)
        for (const bool pressed : {true, false})
            service.tellCode(mice.at(0).id, std::stoi(line), pressed);
}
