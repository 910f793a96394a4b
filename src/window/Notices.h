// What the bar at the window's foot tells: what would cost the user work, and what came of commands whose
// outcome is not on the screen.
#pragma once

#include <QPointer>

#include <functional>
#include <utility>

#include "widgets/FilledText.h"
#include "widgets/NoticeBar.h"

class QWidget;

namespace quorvi {

/// Each kind is told in one text at a time; a new one takes the place of the old one. An earlier kind stands
/// before a later one.
enum class Notice {
    saveFailed, ///< changes that no file has; until a save succeeds
    helperGone, ///< the background program does not run; until it does
    keptCopy,   ///< where another program's settings, or ones that could not be read, were kept
    copyFailed, ///< no dated copy of the settings could be kept; until one is
    outcome,    ///< what came of an import, an export or the like; until the next one
};

class Notices {
  public:
    /// The view may go before; then nothing is told any more.
    Notices(QWidget& mainView, PanelText text);

    /// Tells the text, which is in the user's language already, in place of the kind's last one.
    void tell(Notice kind, const QString& text, NoticeSign sign);
    /// The kind's text is no longer so. Does nothing when there is none.
    void withdraw(Notice kind);

    /// Tells the outcome of an action that is done already, and offers to undo it until the next action.
    void tellUndoable(const QString& text, NoticeSign sign = NoticeSign::information);
    /// There was another action: the offer, if there is one, is over, with its text.
    void withdrawOffer();
    /// What the offer does when the user takes it.
    void setUndo(std::function<void()> undo) { m_undo = std::move(undo); }

  private:
    [[nodiscard]] NoticeBar& bar();

    QPointer<QWidget> m_mainView;
    PanelText m_text;
    std::function<void()> m_undo;
    QPointer<NoticeBar> m_bar; ///< null until there is something to tell
};

} // namespace quorvi
