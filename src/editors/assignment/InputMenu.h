// The context menu of an input's pop-up: the function by default again, and what other profiles have the
// input, or all of them, do.
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

/// The menu opens by the right button of a mouse, the menu key, and Shift with F10; each choice is saved.
class InputMenu final : public QObject {
  public:
    /// What it needs of others.
    struct Others {
        /// What an input, 1 to 9, is said to do that has the assignment.
        std::function<QString(int input, const plist::Dictionary& assignment)> titleOf;
        /// The settings by default; nil when they cannot be read.
        std::function<plist::Dictionary()> defaultSettings;
    };

    /// The pop-ups may go before.
    InputMenu(const EditorContext& context, const AssignmentPopUps& popUps, Others others);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// A profile as it was when the menu opened. Others may have changed the list since.
    struct Place {
        std::size_t index;
        std::u16string name;
    };

    /// Opens the menu at the point of the screen or, without one, by the pop-up for the keyboard.
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
