// The window's side of recording a macro. The recorder decides what is recorded, and how.
#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

#include "capture/KeySink.h"
#include "document/Document.h"
#include "editors/recording/RecordingOffers.h"
#include "editors/recording/RecordingView.h"
#include "macros/MacroRecorder.h"
#include "window/EditorContext.h"

class QMouseEvent;
class QWidget;

namespace quorvi {

/// Records keys, and clicks in the tables, into the current macro. Whatever ends it goes through stop().
class Recording final : public KeySink {
  public:
    /// Functions of other parts; none is empty.
    struct Surroundings {
        std::function<double()> clock; ///< in seconds
        /// Calls the action once after the seconds, unless the context is destroyed before.
        std::function<void(double seconds, QObject* context, std::function<void()> action)> callLater;
        std::function<void()> reloadSteps;         ///< shows the present steps in their table
        std::function<void(bool runs)> tellHelper; ///< a recording has begun, or ended
        std::function<void()> keyCaptureBeganOrEnded;
        std::function<void()> offerHasChanged; ///< offersToMend() may give another answer
    };

    /// The tables accept the focus except during a recording.
    Recording(const EditorContext& context, const RecordingView::Views& views, std::vector<QWidget*> tables,
        Surroundings surroundings);

    /// Starts recording into the current macro: steps are appended or, for one step, the selected one is
    /// replaced and the recording stops. Does nothing while one runs.
    void start(bool oneStep);
    /// The same for a recording that inserts its steps before the one at the index.
    void startAt(std::size_t index);
    /// Stops the recording and saves. Does nothing while none runs.
    void stop();
    /// Starts or stops a recording, for the window's controls.
    void startOrStop(bool start, bool oneStep) { start ? this->start(oneStep) : stop(); }
    /// Shows the progress of a running recording. Otherwise shows the last one's offers, if it left keys
    /// down, as long as they apply to the shown macro.
    void show();

    /// Whether the fault is one that an offer of the last recording, on the screen, puts right.
    [[nodiscard]] bool offersToMend(const StepCheck& fault) const { return m_offers.offersToMend(fault); }

    [[nodiscard]] bool isRunning() const { return m_recorder.isRecording(); }
    /// The present title of the command that starts and stops a recording, in the user's language.
    [[nodiscard]] QString commandTitle() const { return m_view.commandTitle(isRunning()); }

    /// Records the step of a mouse event; the type is a table's number. Returns whether it consumed the
    /// event.
    bool receiveMouseEvent(const QMouseEvent& event, int type);
    /// Replaces the step of the current macro at the index, together with its partner, or appends one if
    /// there is none (as for -1). A full macro stays unchanged.
    void setStep(std::uint32_t code, std::uint8_t argument, std::int32_t index);
    /// Appends a step to the current macro. The time since the run's last step becomes the delay before it.
    void appendStep(std::uint32_t code, std::uint8_t argument);

    [[nodiscard]] bool wantsKeys() const override { return isRunning(); }
    [[nodiscard]] bool awaitsOneKey() const override { return isRunning() && m_recorder.isForOneStep(); }
    void receiveKey(const CapturedKey& key) override;
    void followModifiers(std::uint16_t modifiers) override { m_recorder.findModifiers(modifiers); }

  private:
    void run(const std::function<void()>& startRecorder);
    void didStartOrStop(const Change& change);
    void tellOffers();
    /// The name of the ended run's action; empty if it recorded nothing.
    [[nodiscard]] std::u16string action() const;
    void takeFocusFromCells();
    void setTablesTakeFocus(bool take);
    [[nodiscard]] RecordingTarget target() const;
    /// Call after a step was added or replaced; it ends a run of one step.
    void showRecordedStep();
    /// Starts waiting to end the recording if Escape was just pressed, and stops waiting after any other
    /// event.
    void followHeldEscape();
    void endByEscape();

    EditorContext m_context;
    RecordingView m_view;
    RecordingOffers m_offers;
    std::vector<QWidget*> m_tables;
    Surroundings m_surroundings;
    MacroRecorder m_recorder;
    plist::Value m_stepsBefore;            ///< a copy of the steps before the run
    std::size_t m_firstStep = 0;           ///< the index of the run's first step
    std::unique_ptr<QObject> m_heldEscape; ///< while holding Escape would end the recording; otherwise null
};

} // namespace quorvi
