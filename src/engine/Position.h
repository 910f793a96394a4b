// Where the mouse is in its record: the profile and the stage that run.
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

    /// Behind a change of the record: to what there still is.
    void stayOnRecord();

    /// Starts in the profile's default stage. Nothing when it runs already or is not in use.
    void switchToProfile(int number);
    void goToProfileBeside(int direction);

    /// Stops at the ends of the list.
    void step(int direction);
    /// Goes from the last to the first.
    void cycle();

    // Each hold ends with a release.
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
    Running m_running; ///< what follows from all of these: each report of the mouse asks for it
};

} // namespace quorvi::engine
