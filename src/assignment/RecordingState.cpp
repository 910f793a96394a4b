// What the window says of a recording: that it runs, and how far it is.

#include <QAccessible>
#include <QPushButton>

#include "model/Limits.h"
#include "pane/KyvarQuorviPane.h"
#include "platform/widgets/KyvarQuorviTableView.h"
#include "resources/Interface.h"

namespace quorvi {

void KyvarQuorviPane::showRecordButton() {
    auto* button = fViews->main.quorviButtonStepRecord;
    button->setText(fRecorder.isRecording() ? fStringStop : fStringRecord);
    button->setAccessibleName(button->text());
    button->setChecked(fRecorder.isRecording());
}

QString KyvarQuorviPane::recordingText() const {
    const auto text = [this](const char* english, std::size_t number) {
        return locString(QString::fromUtf8(english)).replace(QStringLiteral("^1"), QString::number(number));
    };
    const int row = recordingTarget().row;
    if (fRecorder.isForOneStep() && row >= 0)
        return text("Recording over step ^1", static_cast<std::size_t>(row) + 1);
    const std::size_t used = fMacroSteps.size();
    const std::size_t left = used < limits::macroSteps ? limits::macroSteps - used : 0;
    return left == 0   ? text("Recording: no steps left", left)
           : left == 1 ? text("Recording: 1 step left", left)
                       : text("Recording: ^1 steps left", left);
}

void KyvarQuorviPane::updateRecordingUI() {
    const QString state = fRecorder.isRecording() ? recordingText() : QString();
    QLabel* label = fViews->main.textRecording;
    if (label->text() == state)
        return;
    label->setText(state);
    fViews->main.quorviTableSteps->setEmptyText(
        state.isEmpty() ? fStringNoSteps : locString(QStringLiteral("Type, and click in this list.")));
    // The button has the focus meanwhile, and a change of what has it is what screen readers read out.
    fViews->main.quorviButtonStepRecord->setAccessibleDescription(
        state.isEmpty() ? fStringRecordDescription : state);
    QAccessibleEvent alert(label, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace quorvi
