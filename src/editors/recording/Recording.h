// The recording of a macro, as the window has it. What is recorded, and how, is the recorder's.
#pragma once

#include <QObject>

#include <functional>
#include <memory>
#include <vector>

#include "capture/KeySink.h"
#include "document/Document.h"
#include "editors/recording/RecordingView.h"
#include "macros/MacroRecorder.h"
#include "window/EditorContext.h"

class QMouseEvent;
class QWidget;

namespace quorvi {

/// Records keys, and clicks in the tables, into the current macro. Whatever ends it goes through stop().
class Recording final : public KeySink {
  public:
    /// What it needs of others; none is empty.
    struct Surroundings {
        std::function<double()> clock; ///< in seconds
        /// Calls the action once when so many seconds have passed, unless the context is gone by then.
        std::function<void(double seconds, QObject* context, std::function<void()> action)> callLater;
        std::function<void()> reloadSteps;         ///< shows the steps as they are now in their table
        std::function<void(bool runs)> tellHelper; ///< a recording has begun, or ended
        std::function<void()> keyCaptureBeganOrEnded;
    };

    /// The tables take the focus except while a recording runs.
    Recording(const EditorContext& context, const RecordingView::Views& views, std::vector<QWidget*> tables,
        Surroundings surroundings);

    /// Starts recording into the current macro: steps are appended or, for one step, the selected one is
    /// replaced and the recording stops. Does nothing while one runs.
    void start(bool oneStep);
    /// Stops the recording and saves. Does nothing while none runs.
    void stop();
    /// Starts or stops one, as the controls of the window say it.
    void startOrStop(bool start, bool oneStep) { start ? this->start(oneStep) : stop(); }
    /// Shows how far the recording is; nothing while none runs.
    void show();

    [[nodiscard]] bool isRunning() const { return m_recorder.isRecording(); }
    /// What the command that starts and stops a recording would do now, in the user's language.
    [[nodiscard]] QString commandTitle() const { return m_view.commandTitle(isRunning()); }

    /// Records the step of a mouse event of that type, as tables number them. True when it is used up.
    bool receiveMouseEvent(const QMouseEvent& event, int type);
    /// Replaces the step of the current macro at the index, together with its partner, or appends one where
    /// there is none, for -1 for instance; a full macro stays as it is.
    void setStep(std::uint32_t code, std::uint8_t argument, std::int32_t index);
    /// Appends a step to the current macro. The step before gets the time since the run's last one as delay.
    void appendStep(std::uint32_t code, std::uint8_t argument);

    [[nodiscard]] bool wantsKeys() const override { return isRunning(); }
    [[nodiscard]] bool awaitsOneKey() const override { return isRunning() && m_recorder.isForOneStep(); }
    void receiveKey(const CapturedKey& key) override;

  private:
    void didStartOrStop(const Change& change);
    /// What the run that has ended is called; empty when it has recorded nothing.
    [[nodiscard]] std::u16string action() const;
    void takeFocusFromCells();
    void setTablesTakeFocus(bool take);
    [[nodiscard]] RecordingTarget target() const;
    /// After a step has come or was replaced. A run of one step ends with it.
    void showRecordedStep();
    /// Begins to wait for the end of the recording when Escape has just been pressed, and gives that up when
    /// something else has come.
    void followHeldEscape();
    void endByEscape();

    EditorContext m_context;
    RecordingView m_view;
    std::vector<QWidget*> m_tables;
    Surroundings m_surroundings;
    MacroRecorder m_recorder;
    plist::Value m_stepsBefore;            ///< a copy of those that the run has found
    std::unique_ptr<QObject> m_heldEscape; ///< while the recording ends if Escape is held on; else null
};

} // namespace quorvi
