// Who captures keys in the panel: recordings before the single-key sheet.

#include "capture/KeyCapture.h"
#include "editors/keys/SingleKeyPanel.h"
#include "editors/recording/Recording.h"
#include "macros/StepCodes.h"
#include "pane/EventPatch.h"
#include "pane/KyvarQuorviPane.h"
#include "pane/ListEditors.h"
#include "resources/Interface.h"
#include "widgets/KyvarQuorviTableView.h"

namespace quorvi {

void KyvarQuorviPane::makeKeyCapture() {
    const auto lists = tables();
    fRecording = std::make_unique<Recording>(
        EditorContext{.document = fDocument, .text = panelText(), .sheets = fSheets, .notices = fNotices},
        RecordingView::Views{.steps = fViews->main.quorviTableSteps,
            .button = fViews->main.quorviButtonStepRecord,
            .text = fViews->main.textRecording},
        std::vector<QWidget*>(lists.begin(), lists.end()),
        Recording::Surroundings{.clock = fServices.clock,
            .callLater = fServices.callLater,
            .reloadSteps = [this] { fListEditors->steps.list().reload(); },
            .tellHelper = [this](bool runs) { sendMessageToHelper(kMessageRecording, runs ? 1 : 0); },
            .keyCaptureBeganOrEnded = [this] { updateKeyboardGrab(); }});
    fSingleKeyPanel =
        std::make_unique<SingleKeyPanel>(SingleKeyPanel::Views{.panel = fViews->quorviPanelSingleKey,
                                             .field = fViews->singleKey.quorviFieldSingleKey},
            fSheets, [this] { updateKeyboardGrab(); });
    fKeyCapture = std::make_unique<KeyCapture>(
        *fMainView, modifiersOfProcess(), std::vector<KeySink*>{fRecording.get(), fSingleKeyPanel.get()});
}

bool KyvarQuorviPane::overrideSingleKeys() const {
    return fKeyCapture->isActive();
}

bool KyvarQuorviPane::overrideMouseEvents() const {
    return fRecording->isRunning();
}

bool KyvarQuorviPane::receiveSingleKey(std::uint8_t key, char16_t /*character*/, std::uint16_t modifiers,
    bool goingDown, const KeyEvent& /*event*/) {
    return fKeyCapture->receive({.key = key, .modifiers = modifiers, .goingDown = goingDown});
}

void KyvarQuorviPane::followModifiers(std::uint16_t modifiers) {
    fSingleKeyPanel->followModifiers(modifiers);
}

void KyvarQuorviPane::updateKeyboardGrab() {
    fKeyCapture->updateKeyboardGrab();
}

std::uint8_t KyvarQuorviPane::singleKeyCode() const {
    return fSingleKeyPanel->keyCode();
}

bool KyvarQuorviPane::isRecordingMacro() const {
    return fRecording->isRunning();
}

bool KyvarQuorviPane::awaitsOneStep() const {
    return fRecording->awaitsOneKey();
}

void KyvarQuorviPane::startStopRecording(bool start, bool oneStep) {
    start ? fRecording->start(oneStep) : fRecording->stop();
}

void KyvarQuorviPane::setMacroStep(
    std::uint32_t code, std::uint8_t argument, std::uint16_t /*modifiers*/, std::int32_t index) {
    fRecording->setStep(code, argument, index);
}

void KyvarQuorviPane::appendMacroStep(
    std::uint32_t code, std::uint8_t argument, std::uint16_t /*modifiers*/) {
    fRecording->appendStep(code, argument);
}

std::uint32_t KyvarQuorviPane::matchingCommand(std::uint32_t code, bool* isDown) {
    return quorvi::matchingCommand(code, isDown);
}

bool KyvarQuorviPane::handleMouseEvent(const QMouseEvent& event, int type, KyvarQuorviTableView* /*table*/) {
    return fRecording->receiveMouseEvent(event, type);
}

} // namespace quorvi
