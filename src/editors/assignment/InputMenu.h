// The context menu of an input's pop-up: resets the function, and copies this input's or all inputs'
// functions from other profiles.
#pragma once

#include <QObject>
#include <QPoint>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "document/Document.h"
#include "editors/assignment/AssignmentLists.h"
#include "window/EditorContext.h"

class QMenu;

namespace quorvi {

/// The menu opens with the right mouse button, the menu key, and Shift+F10; each choice is saved.
class InputMenu final : public QObject {
  public:
    /// Functions of other parts that it needs.
    struct Others {
        /// The title of the assignment for an input, 1 to 9.
        std::function<QString(int input, const plist::Dictionary& assignment)> titleOf;
        /// The default settings; nil if they cannot be read.
        std::function<plist::Dictionary()> defaultSettings;
    };

    /// The pop-ups may be destroyed before it.
    InputMenu(const EditorContext& context, const AssignmentPopUps& popUps, Others others);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// A profile at the time when the menu opened. The list may have changed since.
    struct Place {
        std::size_t index;
        std::u16string name;
    };

    /// Opens the menu at the point of the screen or, without one, at the pop-up for keyboard users.
    void open(PopUpButton& popUp, const std::optional<QPoint>& point);
    void addReset(QMenu& menu, int input);
    void addCopies(QMenu& menu, int input);
    void addCopiesOfAll(QMenu& menu);
    [[nodiscard]] Place placeOf(std::size_t index) const;
    [[nodiscard]] std::vector<Place> otherProfiles() const;
    [[nodiscard]] plist::Dictionary profileAt(const Place& place) const;
    [[nodiscard]] bool isCurrent(const Place& place) const;

    Document& m_document;
    PanelText m_text;
    AssignmentPopUps m_popUps;
    Others m_others;
};

} // namespace quorvi
