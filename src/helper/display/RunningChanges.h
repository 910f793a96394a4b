// Which changes of what the mouse runs its user wants to see on the screen.
#pragma once

#include <optional>

#include "engine/Output.h"
#include "plist/Value.h"

namespace quorvi {

enum class ChangeShown { profile, sensitivity };

class RunningChanges {
  public:
    /// What runs now, with the profiles' "driver" options by slot. What is to be shown of the change, by the
    /// options of the profile that runs now; nothing for the first one, for one that was expected, and as
    /// long as profile and stage stay: sensitivity that the panel's sliders change is seen there.
    [[nodiscard]] std::optional<ChangeShown> note(
        const engine::Running& running, const plist::Array& profiles);

    /// Another mouse is the one that is looked at: what it runs is no change.
    void startWith(const engine::Running& running);

    /// The user has chosen this profile and stage in the panel, which shows them. The next change is not
    /// shown when it is the one to these.
    void expect(std::uint8_t profile, std::uint8_t stage);

  private:
    engine::Running m_last{};
    std::optional<engine::Running> m_expected; ///< its profile and stage alone
};

} // namespace quorvi
