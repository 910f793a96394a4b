// Assigns the window's widgets to the editors.
#pragma once

#include <array>
#include <vector>

#include "editors/assignment/AssignmentEditor.h"
#include "editors/device/DeviceEditor.h"
#include "editors/macros/MacrosEditor.h"
#include "editors/macros/StepsEditor.h"
#include "editors/macros/TimelineEditor.h"
#include "editors/playing/TrialView.h"
#include "editors/profiles/ProfilesEditor.h"
#include "editors/recording/RecordingView.h"
#include "editors/sensitivity/SensitivityEditor.h"
#include "editors/stages/StagesEditor.h"
#include "pane/UndoControls.h"
#include "pane/WindowHead.h"

namespace quorvi {

class Interface;

/// Profiles, macros, steps and stages, in the order of their tags.
[[nodiscard]] std::array<KyvarQuorviTableView*, 4> tablesOf(const Interface& views);
/// The same for a recording.
[[nodiscard]] std::vector<QWidget*> tablesThatTakeFocus(const Interface& views);

[[nodiscard]] WindowHead::Views headViews(const Interface& views);
[[nodiscard]] UndoControls::Views undoViews(const Interface& views);
[[nodiscard]] RecordingView::Views recordingViews(const Interface& views);
[[nodiscard]] TrialView::Views trialViews(const Interface& views);
[[nodiscard]] AssignmentEditor::Views assignmentViews(const Interface& views);
[[nodiscard]] SensitivityEditor::Views sensitivityViews(const Interface& views);
[[nodiscard]] StagesEditor::Views stagesViews(const Interface& views);
[[nodiscard]] DeviceEditor::Views deviceViews(const Interface& views);
[[nodiscard]] ProfilesEditor::Views profilesViews(QWidget& mainView, const Interface& views);
[[nodiscard]] MacrosEditor::Views macrosViews(const Interface& views);
[[nodiscard]] StepsEditor::Views stepsViews(const Interface& views);
[[nodiscard]] TimelineEditor::Views timelineViews(const Interface& views);

} // namespace quorvi
