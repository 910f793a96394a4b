// What the window says of a recording: that it runs, and how far it is.

#include <QAccessible>
#include <QPushButton>

#include "model/Limits.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/KyvarQuorviTableView.h"

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
    const std::size_t used = fDocument.macroSteps().size();
    const std::size_t left = used < limits::macroSteps ? limits::macroSteps - used : 0;
    return left == 0   ? text("Recording: no steps left", left)
           : left == 1 ? text("Recording: 1 step left", left)
                       : text("Recording: ^1 steps left", left);
}

// A run of one step ends by itself.
QString KyvarQuorviPane::withHintHowToEnd(const QString& state) const {
    return fRecorder.isForOneStep()
               ? state
               : state + QStringLiteral(" \u00B7 ") + locString(QStringLiteral("hold Esc to stop"));
}

void KyvarQuorviPane::updateRecordingUI() {
    const QString state = fRecorder.isRecording() ? recordingText() : QString();
    const QString shown = state.isEmpty() ? state : withHintHowToEnd(state);
    QLabel* label = fViews->main.textRecording;
    if (label->text() == shown)
        return;
    const bool begins = label->text().isEmpty();
    label->setText(shown);
    fViews->main.quorviTableSteps->setEmptyText(
        state.isEmpty() ? fStringNoSteps : locString(QStringLiteral("Type, and click in this list.")));
    // The button has the focus meanwhile, and a change of what has it is what screen readers read out: how to
    // end once, how far it is with every step.
    fViews->main.quorviButtonStepRecord->setAccessibleDescription(
        state.isEmpty() ? fStringRecordDescription : (begins ? shown : state));
    QAccessibleEvent alert(label, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

} // namespace quorvi
