// The profile and the stage of the record that are in use.
#pragma once

#include <cstdint>

#include "engine/Configuration.h"
#include "engine/Output.h"

namespace quorvi::engine {

class Position {
  public:
    explicit Position(const Configuration& configuration) : m_configuration(configuration) {}

    /// The record's active profile and stage.
    void start();

    /// Call after the record has changed: leaves a profile or stage that no longer exists.
    void stayOnRecord();

    /// Starts with the profile's default stage. Does nothing if the profile is already running or not in use.
    void switchToProfile(int number);
    void goToProfileBeside(int direction);

    /// Stops at the ends of the list.
    void step(int direction);
    /// Continues from the last to the first.
    void cycle();

    // Each call needs a matching release.
    void holdLowest();
    void releaseLowest();
    void releaseAll();

    [[nodiscard]] const Running& running() const { return m_running; }
    [[nodiscard]] std::uint8_t profile() const { return m_profile; }

  private:
    void update();

    const Configuration& m_configuration;
    std::uint8_t m_profile = 0;
    std::uint8_t m_stage = 0; ///< the one that runs when the lowest is not held
    int m_lowestHolds = 0;
    Running m_running; ///< derived from the others; read for every report of the mouse
};

} // namespace quorvi::engine
