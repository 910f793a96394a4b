// Shows in the window that a recording runs, and its progress.
#pragma once

#include <QString>

#include <cstddef>

#include "widgets/FilledText.h"

namespace quorvi {

class KyvarQuorviTableView;
class StateLabel;
class ToggleButton;

/// A recording's progress.
struct RecordingProgress {
    std::size_t steps; ///< in the macro
    int row;           ///< the selected step, -1 for none
    bool oneStep;      ///< the recording replaces the selected step and ends
};

class RecordingView {
  public:
    /// All must outlive the RecordingView.
    struct Views {
        KyvarQuorviTableView* steps;
        ToggleButton* button; ///< starts and stops a recording
        StateLabel* text;     ///< shows the progress
    };

    /// The views must have their texts without a recording.
    RecordingView(const Views& views, PanelText text);

    /// The title of the command that starts and stops a recording, in the user's language.
    [[nodiscard]] QString commandTitle(bool runs) const { return runs ? m_stopTitle : m_recordTitle; }
    /// Makes the button show whether a recording runs.
    void showCommand(bool runs);
    void showProgress(const RecordingProgress& progress);
    /// Shows that no recording runs.
    void showNoProgress();

    /// Moves the focus to the button, if it is visible.
    void takeFocus();
    /// The row of the selected step, -1 for none.
    [[nodiscard]] int selectedStep() const;
    void selectStep(int row);
    void redrawSteps();

  private:
    [[nodiscard]] QString stateText(const RecordingProgress& progress) const;
    void showTexts(const QString& shown, const QString& emptyList);
    /// Makes screen readers announce the text. They announce changes of the control with the focus, and
    /// during a recording that is the button.
    void say(const QString& text);

    Views m_views;
    PanelText m_text;
    QString m_recordTitle;
    QString m_stopTitle;
    QString m_description; ///< the button's, for screen readers
    QString m_noSteps;     ///< the text of an empty list of steps
};

} // namespace quorvi
