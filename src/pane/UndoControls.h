// The undo and redo buttons at the top of the window, and the keys for both.
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
        // These may be destroyed before: a slider destroyed with its window ends its drag.
        QPointer<QPushButton> undo;
        QPointer<QPushButton> redo;
        QTabWidget& tabs;
        KyvarQuorviTableView& steps;
    };

    /// Functions of other parts that it needs.
    struct Others {
        /// Whether keys and clicks are being captured, during which there is no undo.
        std::function<bool()> isCapturing;
        /// Fills lists and menus from the document.
        std::function<void()> showLists;
    };

    UndoControls(const EditorContext& context, const Views& views, Others others);

    /// Updates the buttons' states, and their texts about the action or why it is impossible.
    void show();
    /// Undoes the last action, shows the changed place, and saves. Shows a message if that is impossible.
    void undo();
    /// Redoes the last undone action in the same way.
    void redo();

  private:
    struct Way;

    [[nodiscard]] static const Way& back();
    [[nodiscard]] static const Way& forth();
    void go(QPushButton* button, const Way& way);
    void showButton(QPushButton* button, UndoOffer& shown, const Way& way);
    /// Shows the place of the change.
    void lead(const Restored& change);
    [[nodiscard]] QString tipOf(const Way& way, const UndoOffer& offer) const;
    [[nodiscard]] QString filled(const char* pattern, const UndoOffer& offer) const;

    EditorContext m_context;
    Views m_views;
    Others m_others;
    UndoOffer m_shownUndo; ///< as initially in the interface file: none
    UndoOffer m_shownRedo;
};

} // namespace quorvi
