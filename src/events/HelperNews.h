// The helper's state on the session bus: this computer's mice, and what runs now and why.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace quorvi {

/// A mouse of this computer, as the helper lists it (com.kyvar.Helper1.xml).
struct ListedHelperMouse {
    std::string id;
    std::string name;                     ///< its own name
    std::string connection;               ///< "usb", "bluetooth", "internal" or ""
    bool inUse = false;                   ///< its user has chosen it
    std::string state;                    ///< see HelperInterface.h, and events/InputdInterface.h
    std::uint16_t hardwareDpi = 0;        ///< of its sensor, from the hardware database; 0 if unknown
    std::uint16_t dpi = 0;                ///< set by the user; 0 if not set
    std::array<std::uint16_t, 7> codes{}; ///< of inputs 1 to 7 (EV_KEY), 0 for none
    bool fixedPollingRate = false;        ///< no software can set its polling rate
    bool fixedLights = false;             ///< likewise its lights

    bool operator==(const ListedHelperMouse&) const = default;
};

/// Parts that the helper does not report keep their defaults.
struct HelperNews {
    // com.kyvar.Helper1
    bool hasService = false;          ///< the system's service for real mice is installed
    bool demonstration = false;       ///< no mouse is in use; the simulated one stands in
    std::uint32_t runningProfile = 0; ///< from 1; 0 for none
    std::uint32_t runningStage = 0;   ///< likewise
    std::string frontReason;          ///< the application that chose the profile; empty if the user did
    std::vector<ListedHelperMouse> mice;

    // com.kyvar.Front1
    bool followsFront = false;  ///< the helper looks for the application in front
    std::string frontSource;    ///< its source; empty if this desktop has none
    std::string desktop;        ///< may be empty
    std::string gnomeExtension; ///< see com.kyvar.Front1.xml; empty where the desktop needs none

    bool operator==(const HelperNews&) const = default;
};

} // namespace quorvi
