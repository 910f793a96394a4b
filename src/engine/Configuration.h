// The engine's view of the record.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "engine/Functions.h"
#include "model/ConfigRecord.h"

namespace quorvi::engine {

/// Profiles and stages by their numbers, from 1.
class Configuration {
  public:
    /// Returns false and keeps the old record if the bytes are not a record (see Engine::setRecord).
    [[nodiscard]] bool take(std::span<const std::uint8_t> bytes);

    [[nodiscard]] const SettingsRecord& settings() const { return m_record.settings; }

    /// Whether a profile in use has the number. Accepts any number.
    [[nodiscard]] bool hasProfile(int number) const;

    /// The next profile in use in that direction (1 or -1), wrapping at the ends; the profile itself if there
    /// is no other.
    [[nodiscard]] std::uint8_t profileBeside(std::uint8_t number, int direction) const;

    /// The profile that runs first: the active one, or the first in use.
    [[nodiscard]] std::uint8_t activeProfile() const;

    /// 0 to 5.
    [[nodiscard]] std::uint8_t stageCount(std::uint8_t profile) const;

    /// The number if the profile has that stage, else the first; 0 if it has none.
    [[nodiscard]] std::uint8_t validStage(std::uint8_t profile, std::uint8_t stage) const;
    [[nodiscard]] std::uint8_t defaultStage(std::uint8_t profile) const;

    /// The stage with the lowest sensitivity, both axes added, the first of equals; 0 if there is none.
    [[nodiscard]] std::uint8_t lowestStage(std::uint8_t profile) const;

    /// The codes of the stage; those of the settings for stage 0.
    [[nodiscard]] StageEntry sensitivity(std::uint8_t profile, std::uint8_t stage) const;

    /// The input is 1 to 9.
    [[nodiscard]] const ButtonAssignment& assignment(std::uint8_t profile, std::uint8_t input) const;

    struct Macro {
        std::span<const std::uint8_t> steps;
        std::uint32_t delay = 0; ///< milliseconds before the first step
    };
    /// The first macro with the identifier, or std::nullopt.
    [[nodiscard]] std::optional<Macro> macro(std::uint8_t macroId) const;

  private:
    [[nodiscard]] const ProfileRecord& profile(std::uint8_t number) const;

    ConfigRecord m_record{};
};

} // namespace quorvi::engine
