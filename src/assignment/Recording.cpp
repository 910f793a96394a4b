// Starting and stopping the recording of a macro.

#include <QPushButton>

#include "pane/KyvarQuorviPane.h"
#include "platform/widgets/KyvarQuorviTableView.h"
#include "resources/Interface.h"

namespace quorvi {

void KyvarQuorviPane::startStopRecording(bool start, bool oneStep) {
    if (fRecordingMacro == start)
        return;
    fRecordingMacro = start;
    fViews->main.quorviButtonStepRecord->setText(start ? fStringStop : fStringRecord);
    fViews->main.quorviButtonStepRecord->setChecked(start);
    sendMessageToHelper(kMessageRecording, start ? 1 : 0);
    if (start) {
        fLastMacroModifiers = 0;
        fLastRecordedMacroTime = 0;
        fRecordingOneStep = oneStep;
    } else {
        saveSettings(fDeviceConfig);
    }
    updateUI();
    fViews->main.quorviTableSteps->viewport()->update();
    updateKeyboardGrab();
}

} // namespace quorvi
