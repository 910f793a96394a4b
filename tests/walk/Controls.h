// The controls that a screen reader finds, and those that it operated with a visible effect, so that no
// control is forgotten.
#pragma once

#include <QMap>
#include <QSet>
#include <QStringList>

#include <functional>

#include "walk/Walk.h"

namespace quorvi::test {

/// The pop-ups of the nine inputs on the buttons tab, in their order.
[[nodiscard]] QStringList inputPopUps();

/// The button of the window's head, which is named by the profile that the window shows.
[[nodiscard]] bool isProfileMenu(const QString& control);

/// What a reader says to tell the control from its neighbours: a pop-up's own name is what it is set to.
[[nodiscard]] QString nameOf(const Accessible& control);
/// A name for the ear, which neither a program nor a file has.
[[nodiscard]] bool isSpokenName(const QString& name);
/// The kind only holds other things, or only shows something.
[[nodiscard]] bool onlyShows(const QString& role);
/// A kind that a user does something with and that is known here.
[[nodiscard]] bool isKnownControl(const QString& role);

/// How an item of a menu is told apart: "menu item 'Step commands › Remove Step'".
[[nodiscard]] QString itemOf(const QStringList& way);

/// The button of the sheet that Return presses, as it is heard.
[[nodiscard]] QString defaultButtonOf(const Accessible& sheet);

/// Controls are told apart by what is heard of them: "push button 'Help'", "combo box '1  Left button'"; an
/// item of a menu by the way to it, "menu item 'Step commands › Remove Step'"; the cells of a table's column
/// count as one, "cell 'Profiles › Application'", and so do the items of a list, "list item 'Applications'".
class Controls {
  public:
    using Effect = std::function<bool()>;

    explicit Controls(Walk& walk) : m_walk(walk) {}

    /// Looks over all windows. What can be operated there is met, whether it is enabled or not. Gives what is
    /// wrong: something without a name, without a description that it needs, or of an unknown kind.
    [[nodiscard]] QString meet();
    /// Looks over the open menu only, in the same way.
    [[nodiscard]] QString meetMenu();
    /// The one that is heard so; waits for it.
    [[nodiscard]] Accessible find(const QString& control);
    [[nodiscard]] bool isThere(const QString& control);
    /// What was there when it was last looked.
    [[nodiscard]] QStringList onScreen() const { return m_there.keys(); }
    /// Everything that was met, in order.
    [[nodiscard]] QStringList met() const { return m_met; }

    // Each of these waits for the control, operates it through its accessible interface alone, and waits for
    // the effect, which must not be there before. What stood in the way is printed and gives false.

    [[nodiscard]] bool perform(const QString& control, const char* action, const Effect& effect);
    [[nodiscard]] bool press(const QString& control, const Effect& effect);
    /// A slider.
    [[nodiscard]] bool set(const QString& control, double value, const Effect& effect);
    /// A text field, whose text becomes this one.
    [[nodiscard]] bool type(const QString& control, const QString& text, const Effect& effect);
    /// A cell of the row, by the title of its column.
    [[nodiscard]] bool performCell(
        const char* table, int row, const char* column, const char* action, const Effect& effect);
    [[nodiscard]] bool selectRow(const char* table, int row, const Effect& effect);
    /// Goes down the submenus of the menu, which is open already, and chooses the last.
    [[nodiscard]] bool choose(const QStringList& way, const Effect& effect);

    /// A window of that title is on the screen, or no longer.
    [[nodiscard]] Effect opens(const char* title) const;
    [[nodiscard]] Effect closes(const char* title) const;
    /// That is met on the screen.
    [[nodiscard]] Effect shows(const QString& control);
    /// Waits until that is no longer there; false when it stays.
    [[nodiscard]] bool goes(const QString& control);

    /// What was met and not operated. The controls that are left out on purpose, in this test, have to be met
    /// and not operated; those that are not come back as well.
    [[nodiscard]] QStringList forgotten(const QStringList& leftOut) const;
    /// Leaves out what is around every tab: the titles of the tabs, and the buttons above them.
    [[nodiscard]] static QStringList around();

  private:
    // Every question to the program is a message to and fro. Of what is only looked through nothing is asked
    // that is not needed, and for a menu's item no window is looked through.

    [[nodiscard]] bool operate(
        const QString& control, const Effect& effect, const std::function<bool(const Accessible&)>& how);
    void look(const Accessible& thing, AccessibleStates states, const QString& way, QString& wrong);
    void note(const QString& control, const Accessible& thing);

    Walk& m_walk;
    QMap<QString, Accessible> m_there;
    QStringList m_met;
    QSet<QString> m_operated;
};

} // namespace quorvi::test
