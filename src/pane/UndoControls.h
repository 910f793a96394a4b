// The two buttons in the window's head that take the user's last action back and do it again, and the keys
// for the same.
#pragma once

#include <QPointer>
#include <QPushButton>
#include <QString>

#include <functional>

#include "document/Document.h"
#include "window/EditorContext.h"

class QTabWidget;

namespace quorvi {

class KyvarQuorviTableView;

class UndoControls {
  public:
    struct Views {
        // These may go before: a slider that goes with its window ends its drag.
        QPointer<QPushButton> undo;
        QPointer<QPushButton> redo;
        QTabWidget& tabs;
        KyvarQuorviTableView& steps;
    };

    /// What it needs of others.
    struct Others {
        /// Whether keys and clicks are being captured: then nothing is undone.
        std::function<bool()> isCapturing;
        /// Fills lists and menus from the document.
        std::function<void()> showLists;
    };

    UndoControls(const EditorContext& context, const Views& views, Others others);

    /// Greys the buttons, and has them say what they would do, or why they cannot.
    void show();
    /// Takes the last action back, shows where that is to be seen, and saves. Says so when that cannot be.
    void undo();
    /// Does it again.
    void redo();

  private:
    struct Way;

    [[nodiscard]] static const Way& back();
    [[nodiscard]] static const Way& forth();
    void go(QPushButton* button, const Way& way);
    void showButton(QPushButton* button, UndoOffer& shown, const Way& way);
    /// Goes to where the change is to be seen.
    void lead(const Restored& change);
    [[nodiscard]] QString tipOf(const Way& way, const UndoOffer& offer) const;
    [[nodiscard]] QString filled(const char* pattern, const UndoOffer& offer) const;

    EditorContext m_context;
    Views m_views;
    Others m_others;
    UndoOffer m_shownUndo; ///< as the interface file has it at first: nothing
    UndoOffer m_shownRedo;
};

} // namespace quorvi
