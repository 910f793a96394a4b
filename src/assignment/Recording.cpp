// The recording of a macro, as the window has it. What is recorded, and how, is the recorder's.

#include <QPushButton>

#include "macros/StepCodes.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "resources/TableTags.h"
#include "widgets/KyvarQuorviTableView.h"
#include "window/TableList.h"

namespace quorvi {

namespace {

/// How long Escape is held to end a recording.
constexpr double kSecondsToEnd = 1.5;

} // namespace

void KyvarQuorviPane::startStopRecording(bool start, bool oneStep) {
    if (fRecorder.isRecording() == start)
        return;
    if (start) {
        takeFocusFromCells();
        fRecorder.start(oneStep);
    } else {
        fRecorder.stop();
        fHeldEscape.reset();
        setTablesTakeFocus(true);
    }
    showRecordButton();
    sendMessageToHelper(kMessageRecording, start ? 1 : 0);
    fDocument.commit({.saving = start ? Saving::never : Saving::now});
    fViews->main.quorviTableSteps->viewport()->update();
    updateKeyboardGrab();
}

// Where text can be typed, the input method composes it, and takes dead keys before anybody sees them. So the
// focus goes to where the recording is stopped, which finishes an edit.
void KyvarQuorviPane::takeFocusFromCells() {
    if (fViews->main.quorviButtonStepRecord->isVisible())
        fViews->main.quorviButtonStepRecord->setFocus();
    setTablesTakeFocus(false);
}

// A click that is recorded is to leave the focus where it is.
void KyvarQuorviPane::setTablesTakeFocus(bool take) {
    for (KyvarQuorviTableView* table : tables())
        table->setFocusPolicy(take ? Qt::StrongFocus : Qt::NoFocus);
}

RecordingTarget KyvarQuorviPane::recordingTarget() const {
    return {fDocument.macroSteps(), fViews->main.quorviTableSteps->selectedRow()};
}

void KyvarQuorviPane::recordKey(std::uint8_t key, std::uint16_t modifiers, bool goingDown) {
    if (fRecorder.receiveKey(recordingTarget(), key, modifiers, goingDown, fServices.clock()))
        showRecordedStep();
    followHeldEscape();
}

void KyvarQuorviPane::recordMouse(std::uint32_t code) {
    fRecorder.receiveMouse(recordingTarget(), code, fServices.clock());
    showRecordedStep();
    followHeldEscape();
}

// Every key is recorded, so none of them can press the button that stops it.
void KyvarQuorviPane::followHeldEscape() {
    fHeldEscape.reset();
    if (!fRecorder.isEscapeHeld())
        return;
    fHeldEscape = std::make_unique<QObject>();
    fServices.callLater(kSecondsToEnd, fHeldEscape.get(), [this] { endRecordingByEscape(); });
}

void KyvarQuorviPane::endRecordingByEscape() {
    fRecorder.takeBackEscape(fDocument.macroSteps());
    showRecordedStep();
    startStopRecording(false, false);
}

void KyvarQuorviPane::showRecordedStep() {
    KyvarQuorviTableView* table = fViews->main.quorviTableSteps;
    listWithTag(kStepsTable)->reload();
    if (fRecorder.isForOneStep())
        startStopRecording(false, false);
    else
        table->selectRowAlone(static_cast<int>(fDocument.macroSteps().size()) - 1);
}

void KyvarQuorviPane::setMacroStep(
    std::uint32_t code, std::uint8_t argument, std::uint16_t /*modifiers*/, std::int32_t index) {
    fRecorder.setStep(fDocument.macroSteps(), code, argument, index, fServices.clock());
}

void KyvarQuorviPane::appendMacroStep(
    std::uint32_t code, std::uint8_t argument, std::uint16_t /*modifiers*/) {
    fRecorder.appendStep(fDocument.macroSteps(), code, argument, fServices.clock());
}

std::uint32_t KyvarQuorviPane::matchingCommand(std::uint32_t code, bool* isDown) {
    return quorvi::matchingCommand(code, isDown);
}

} // namespace quorvi
