// What the helper tells of itself on the session bus: the mice of this computer, and what runs now and why.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace quorvi {

/// A mouse of this computer, as the helper lists it (com.kyvar.Helper1.xml).
struct ListedHelperMouse {
    std::string id;
    std::string name;                     ///< as it says itself
    std::string connection;               ///< "usb", "bluetooth", "internal" or ""
    bool inUse = false;                   ///< its user has chosen it
    std::string state;                    ///< see HelperInterface.h, and events/InputdInterface.h
    std::uint16_t hardwareDpi = 0;        ///< of its sensor, by the hardware database; 0 when not known
    std::uint16_t dpi = 0;                ///< as its user says; 0 when they have not
    std::array<std::uint16_t, 7> codes{}; ///< of inputs 1 to 7 (EV_KEY), 0 for none
    bool fixedPollingRate = false;        ///< no software can set its polling rate
    bool fixedLights = false;             ///< likewise its lights

    bool operator==(const ListedHelperMouse&) const = default;
};

/// Each part has its default where the helper knows nothing of it.
struct HelperNews {
    // com.kyvar.Helper1
    bool hasService = false;          ///< the system's service for real mice is installed
    bool demonstration = false;       ///< no mouse is in use; the simulated one stands in
    std::uint32_t runningProfile = 0; ///< from 1; 0 for none
    std::uint32_t runningStage = 0;   ///< likewise
    std::string frontReason;          ///< the application that chose the profile; empty when the user did
    std::vector<ListedHelperMouse> mice;

    // com.kyvar.Front1
    bool followsFront = false;  ///< the helper looks for the application in front
    std::string frontSource;    ///< who tells it; empty when nobody on this desktop does
    std::string desktop;        ///< may be empty
    std::string gnomeExtension; ///< see com.kyvar.Front1.xml; empty where the desktop needs none

    bool operator==(const HelperNews&) const = default;
};

} // namespace quorvi
