// The options of a mouse as received over the bus.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include <systemd/sd-bus.h>

#include "engine/Options.h"

namespace quorvi::inputd {

// Each sets a value within its bounds; returns false and changes nothing otherwise.
[[nodiscard]] bool setSensorDpi(engine::Options& options, std::uint16_t dpi);
[[nodiscard]] bool setAcceleration(engine::Options& options, std::span<const double> factors);
[[nodiscard]] bool setButtonCodes(engine::Options& options, std::span<const std::uint16_t> codes);
[[nodiscard]] bool setLetterKeys(engine::Options& options, std::span<const std::uint16_t> keys);

/// Reads an a{sv} of InputdInterface.h. Returns std::nullopt for an unknown name, or a value of the wrong
/// type or out of its bounds.
[[nodiscard]] std::optional<engine::Options> readOptions(sd_bus_message* message);

} // namespace quorvi::inputd
