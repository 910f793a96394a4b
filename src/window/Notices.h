// The notices in the bar above the page: problems that could cost the user work, and results of commands that
// are not visible on the screen.
#pragma once

#include <QPointer>

#include <functional>
#include <utility>

#include "widgets/FilledText.h"
#include "widgets/NoticeBar.h"

class QWidget;

namespace quorvi {

/// Each kind has one text at a time; a new one replaces it. Earlier kinds are shown before later ones.
enum class Notice {
    saveFailed, ///< changes are not in the file; until a save succeeds
    helperGone, ///< the background program does not run; until it does
    keptCopy,   ///< the file with another program's settings, or with unreadable ones
    copyFailed, ///< no dated copy of the settings could be kept; until one is
    keysDown,   ///< the recording left keys down; until another action or macro
    capsLock,   ///< the recording contains Caps Lock, which was on; likewise
    outcome,    ///< the result of an import, an export or the like; until the next one
};

class Notices {
  public:
    /// The view has a TabView. If it is destroyed first, notices are ignored from then on.
    Notices(QWidget& mainView, PanelText text);

    /// Shows the text, which is in the user's language, in place of the kind's last one.
    void tell(Notice kind, const QString& text, NoticeSign sign);
    /// Removes the kind's text, because it no longer applies. Does nothing if there is none.
    void withdraw(Notice kind);

    /// Shows the result of a finished action, and offers to undo it until the next action.
    void tellUndoable(const QString& text, NoticeSign sign = NoticeSign::information);
    /// An offer that comes with a text.
    struct Offer {
        QString title;                    ///< of the button that takes it, in the user's language
        std::function<void()> take;       ///< not empty
        std::function<void()> ended = {}; ///< called when it is offered no more
    };
    /// Shows the text with the offer, until the next action.
    void tellOffer(Notice kind, const QString& text, const Offer& offer);
    /// Call after another action: removes the offer, if any, with its text.
    void withdrawOffer();
    /// Sets the action of tellUndoable()'s offer.
    void setUndo(std::function<void()> undo) { m_undo = std::move(undo); }

  private:
    [[nodiscard]] NoticeBar& bar();

    QPointer<QWidget> m_mainView;
    PanelText m_text;
    std::function<void()> m_undo;
    QPointer<NoticeBar> m_bar; ///< null until the first notice
};

} // namespace quorvi
