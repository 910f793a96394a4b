// What the window says of a recording: that it runs, and how far it is.
#pragma once

#include <QString>

#include <cstddef>

#include "widgets/FilledText.h"

class QLabel;

namespace quorvi {

class KyvarQuorviTableView;
class ToggleButton;

/// How far a recording is.
struct RecordingProgress {
    std::size_t steps; ///< that the macro has
    int row;           ///< the selected step, -1 for none
    bool oneStep;      ///< the selected step is replaced, and the recording ends with it
};

class RecordingView {
  public:
    /// They must outlive this object's use.
    struct Views {
        KyvarQuorviTableView* steps;
        ToggleButton* button; ///< starts and stops a recording
        QLabel* text;         ///< says how far it is
    };

    /// The views' texts are those without a recording.
    RecordingView(const Views& views, PanelText text);

    /// What the command that starts and stops a recording does, in the user's language.
    [[nodiscard]] QString commandTitle(bool runs) const { return runs ? m_stopTitle : m_recordTitle; }
    /// Shows by the button that a recording runs, or that none does.
    void showCommand(bool runs);
    void showProgress(const RecordingProgress& progress);
    /// No recording runs.
    void showNoProgress();

    /// Gives the focus to the button, if it is there to be seen.
    void takeFocus();
    /// The row of the selected step, -1 for none.
    [[nodiscard]] int selectedStep() const;
    void selectStep(int row);
    void redrawSteps();

  private:
    [[nodiscard]] QString stateText(const RecordingProgress& progress) const;
    void showTexts(const QString& shown, const QString& emptyList, const QString& ofButton);

    Views m_views;
    PanelText m_text;
    QString m_recordTitle;
    QString m_stopTitle;
    QString m_description; ///< what screen readers say of the button
    QString m_noSteps;     ///< what an empty list of steps says
};

} // namespace quorvi
