// What the nine inputs of the mouse do: their pop-ups on the buttons tab, and what a choice in one stores.
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
class QLabel;
class QMenu;

namespace quorvi {

class MouseView;

/// Every choice is saved, and shown as it was stored.
class AssignmentEditor final : public QObject {
  public:
    struct Views {
        AssignmentPopUps popUps;
        std::array<const QLabel*, limits::buttons> labels; ///< beside the pop-ups
        MouseView& mouse;
        const QMenu& commands;      ///< what the buttons can do
        const QMenu& wheelCommands; ///< what the wheel's two directions can do
    };

    /// What it needs of others.
    struct Others {
        /// Whether the panel is seen: while it is not, no key would reach a sheet.
        std::function<bool()> isPanelShown;
        /// Asks for a key by a sheet that shows the given one at first; nothing when the user has called it
        /// off or chosen none. The editor may not outlive it.
        std::function<std::optional<KeyChoice>(const KeyChoice& shown)> askForKey;
        std::function<void()> showProfilesTab;
        std::function<void()> showMacrosTab;
        /// The profile that the panel shows, with the reason when it is the one that runs.
        std::function<QString()> profileInUse;
        std::function<plist::Dictionary()> defaultSettings; ///< nil when they cannot be read
    };

    AssignmentEditor(const EditorContext& context, const Views& views, Others others);

    /// Shows what every input does. The lists in the menus stay as they are.
    void show();
    /// Shows in the pop-up what the input, 1 to 9, does.
    void showInput(PopUpButton& popUp, int input);
    /// Lists the profiles in the menus: whoever adds, removes or renames one asks for it.
    void listProfiles();
    /// Lists the macros in the menus: whoever adds, removes or renames one asks for it.
    void listMacros();
    /// What the input, 1 to 9, does and why, a line each; nothing before that is known.
    [[nodiscard]] QString explanationOfInput(int input) const;

    /// Stores the function that the pop-up shows. The function of a single key asks for the key first.
    void chooseFunction(PopUpButton& popUp);
    /// Assigns the macro that the item stands for, or opens the macros tab when it stands for none.
    void chooseMacro(const QAction& item);
    /// Assigns the profile that the item stands for, or opens the profiles tab when it stands for none.
    void chooseProfile(const QAction& item);

  private:
    /// The numbers of an assignment by their keys.
    using Values = std::initializer_list<std::pair<std::string_view, std::int32_t>>;

    static void assign(const plist::Dictionary& assignment, Values values);
    [[nodiscard]] const QMenu& commandsOf(int input) const;
    [[nodiscard]] plist::Dictionary assignmentOf(int input) const;
    /// What the pop-up of the input, 1 to 9, shows of the assignment; "No Function" for one without an item.
    [[nodiscard]] QString titleOf(int input, const plist::Dictionary& assignment) const;
    /// The command of the input, which the rule about the primary click may have changed.
    [[nodiscard]] std::int32_t commandOf(int input);
    /// Whether the mouse would be without a primary click without this one.
    [[nodiscard]] bool isOnlyClick(int input, std::int32_t command) const;
    void askForSingleKey(int input);
    void assignFromList(const QAction& item, int input, Values values);

    Document& m_document;
    PanelText m_text;
    Views m_views;
    Others m_others;
    AssignmentLists m_lists;
    InputMenu m_menu;
};

} // namespace quorvi
