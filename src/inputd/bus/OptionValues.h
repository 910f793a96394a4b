// The options of a mouse as they come over the bus.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include <systemd/sd-bus.h>

#include "engine/Options.h"

namespace quorvi::inputd {

// Each takes a value over when it is within its bounds; false, and nothing taken over, when it is not.
[[nodiscard]] bool setSensorDpi(engine::Options& options, std::uint16_t dpi);
[[nodiscard]] bool setAcceleration(engine::Options& options, std::span<const double> factors);
[[nodiscard]] bool setButtonCodes(engine::Options& options, std::span<const std::uint16_t> codes);
[[nodiscard]] bool setLetterKeys(engine::Options& options, std::span<const std::uint16_t> keys);

/// Reads an a{sv} of InputdInterface.h. Nothing when it has a name that is none, a value of another type or
/// out of its bounds.
[[nodiscard]] std::optional<engine::Options> readOptions(sd_bus_message* message);

} // namespace quorvi::inputd
