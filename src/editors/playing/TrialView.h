// What the window shows of a macro that is tried.
#pragma once

#include <QString>

#include "widgets/FilledText.h"

namespace quorvi {

class ElidedLabel;
class ToggleButton;
class TrialField;

class TrialView {
  public:
    /// They must outlive this object's use.
    struct Views {
        ToggleButton* button; ///< plays and stops
        TrialField* field;    ///< what is typed goes there
        ElidedLabel* keys;    ///< what is pressed beside that
    };

    /// The views' texts are those while nothing plays.
    TrialView(const Views& views, PanelText text);

    /// Whether the button can be used.
    void setPossible(bool possible);
    /// Shows by the button that a macro plays, or that none does.
    void showRunning(bool runs);
    void showKeys(const QString& keys);
    /// Has screen readers say what was typed.
    void announceEnd(const QString& typed);
    /// The desktop lets things move.
    [[nodiscard]] bool mayMove() const;
    [[nodiscard]] TrialField& field() const { return *m_views.field; }

  private:
    Views m_views;
    PanelText m_text;
    QString m_playTitle;
    QString m_stopTitle;
};

} // namespace quorvi
