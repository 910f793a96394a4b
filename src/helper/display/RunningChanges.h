// Selects the changes of profile and stage that the user wants to see on the screen.
#pragma once

#include <optional>

#include "engine/Output.h"
#include "plist/Value.h"

namespace quorvi {

enum class ChangeShown { profile, sensitivity };

class RunningChanges {
  public:
    /// Notes the running state, with the profiles' "driver" options by slot. Returns the change to show, by
    /// the options of the running profile; std::nullopt for the first state, for an expected one, and if
    /// profile and stage are unchanged: the panel itself shows sensitivity changed by its sliders.
    [[nodiscard]] std::optional<ChangeShown> note(
        const engine::Running& running, const plist::Array& profiles);

    /// Starts with another mouse; its state does not count as a change.
    void startWith(const engine::Running& running);

    /// The user has chosen this profile and stage in the panel, which shows them. If the next change leads to
    /// these, it is not shown.
    void expect(std::uint8_t profile, std::uint8_t stage);

  private:
    engine::Running m_last{};
    std::optional<engine::Running> m_expected; ///< only its profile and stage
};

} // namespace quorvi
