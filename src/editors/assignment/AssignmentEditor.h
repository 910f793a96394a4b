// The functions of the nine inputs: shows them in the pop-ups of the buttons tab, and stores choices.
#pragma once

#include <QObject>

#include <array>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <utility>

#include "document/Document.h"
#include "editors/assignment/AssignmentLists.h"
#include "editors/assignment/InputMenu.h"
#include "window/EditorContext.h"
#include "window/KeyChoice.h"

class QAction;
class QMenu;

namespace quorvi {

class InputLabel;
class MouseView;

/// Saves every choice, and shows it as stored.
class AssignmentEditor final : public QObject {
  public:
    struct Views {
        AssignmentPopUps popUps;
        std::array<InputLabel*, limits::buttons> labels; ///< next to the pop-ups
        MouseView& mouse;
        const QMenu& commands;      ///< the buttons' functions
        const QMenu& wheelCommands; ///< the functions of the wheel's two directions
    };

    /// Functions of other parts that it needs.
    struct Others {
        /// Whether the panel is visible: otherwise no key would reach a sheet.
        std::function<bool()> isPanelShown;
        /// Asks for a key in a sheet that first shows the given one; returns std::nullopt if the user cancels
        /// or chooses none. The editor may be destroyed meanwhile.
        std::function<std::optional<KeyChoice>(const KeyChoice& shown)> askForKey;
        std::function<void()> showProfilesTab;
        std::function<void()> showMacrosTab;
        /// The shown profile, with the reason if it is the running one.
        std::function<QString()> profileInUse;
        std::function<plist::Dictionary()> defaultSettings; ///< nil if they cannot be read
    };

    AssignmentEditor(const EditorContext& context, const Views& views, Others others);

    /// Shows the function of every input. The lists in the menus stay unchanged.
    void show();
    /// Shows the function of the input, 1 to 9, in the pop-up.
    void showInput(PopUpButton& popUp, int input);
    /// Lists the profiles in the menus. Call this after adding, removing or renaming one.
    void listProfiles();
    /// Lists the macros in the menus. Call this after adding, removing or renaming one.
    void listMacros();
    /// The function of the input, 1 to 9, and the reason, a line each; empty while unknown.
    [[nodiscard]] QString explanationOfInput(int input) const;

    /// Stores the function shown in the pop-up. For a single key, asks for the key first.
    void chooseFunction(PopUpButton& popUp);
    /// Assigns the item's macro, or opens the macros tab if it has none.
    void chooseMacro(const QAction& item);
    /// Assigns the item's profile, or opens the profiles tab if it has none.
    void chooseProfile(const QAction& item);

  private:
    /// The numbers of an assignment by their keys.
    using Values = std::initializer_list<std::pair<std::string_view, std::int32_t>>;

    static void assign(const plist::Dictionary& assignment, Values values);
    [[nodiscard]] const QMenu& commandsOf(int input) const;
    [[nodiscard]] plist::Dictionary assignmentOf(int input) const;
    /// The pop-up's title for the assignment of the input, 1 to 9; "No Function" for one without an item.
    [[nodiscard]] QString titleOf(int input, const plist::Dictionary& assignment) const;
    /// The command of the input, which the rule about the primary click may have changed.
    [[nodiscard]] std::int32_t commandOf(int input);
    /// Whether the profile has no other primary click.
    [[nodiscard]] bool isOnlyClick(int input, std::int32_t command) const;
    /// Shows the function's sign or, where the input must keep its function, a lock and the reason.
    void showSign(PopUpButton& popUp, int input, std::int32_t command);
    [[nodiscard]] bool isLocked(int input, std::int32_t command) const;
    [[nodiscard]] QString lockReason() const;
    void askForSingleKey(int input);
    void assignFromList(const QAction& item, int input, Values values);

    Document& m_document;
    PanelText m_text;
    Views m_views;
    QString m_description; ///< of a pop-up that can be changed
    Others m_others;
    AssignmentLists m_lists;
    InputMenu m_menu;
};

} // namespace quorvi
