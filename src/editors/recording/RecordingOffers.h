// Messages after a recording that left a probable mistake in the macro, with a button that corrects it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "macros/StepMending.h"
#include "window/EditorContext.h"

namespace quorvi {

class RecordingOffers {
  public:
    /// Functions of other parts; none is empty.
    struct Others {
        std::function<void()> showSteps;
        std::function<void()> offerHasChanged; ///< the result of offersToMend() may have changed
    };

    RecordingOffers(const EditorContext& context, Others others);

    /// The run that ended, for the current macro as it is now.
    struct Run {
        std::size_t stepsBefore = 0;                ///< the number of steps before the run's
        std::optional<std::size_t> foundCapsLock{}; ///< MacroRecorder::placeOfFoundCapsLock()
    };
    /// Reports the run's probable mistakes and offers to correct each in one action.
    void tell(const Run& run);
    /// Withdraws the offers if another macro is current or its steps have changed: they no longer apply to
    /// anything on the screen.
    void show();
    /// Withdraws the offers.
    void withdraw();
    /// Whether a shown offer corrects the fault.
    [[nodiscard]] bool offersToMend(const StepCheck& fault) const;

  private:
    /// The macro that the offers are about, as it was left.
    struct Told {
        Run run;
        std::int32_t macro;
        plist::Value steps; ///< a copy
    };

    [[nodiscard]] bool isCurrent() const;
    void tellCapsLock();
    void tellKeysDown();
    void setOffersRelease(bool offers);
    [[nodiscard]] QString keysDownText(const std::vector<StepCheck>& left, const LettingGo& mending) const;
    /// The title of the offer and the name of its action.
    [[nodiscard]] QString titleOf(const LettingGo& mending) const;
    void letKeysGo();
    void removeFoundCapsLock();
    /// Ends the action that changed the steps, and reports the remaining mistake.
    void finish(const QString& action, Run run);

    EditorContext m_context;
    Others m_others;
    bool m_offersRelease = false; ///< of the keys that are down
    std::optional<Told> m_told;
};

} // namespace quorvi
