// The list of profiles: creates, duplicates and removes profiles, selects the current one, and sets whether a
// switch to it is displayed.
#pragma once

#include <QString>

#include <filesystem>
#include <functional>

#include "editors/profiles/ProfileApplication.h"
#include "plist/Value.h"
#include "window/EditorContext.h"
#include "window/MenuCommands.h"
#include "window/TableList.h"

class QLabel;
class QPushButton;

namespace quorvi {

class CheckBox;

/// The marked row, whose profile is running.
struct RunningRow {
    int row = -1; ///< -1 for none
    QString why;  ///< in the user's language
};

class ProfilesEditor final {
  public:
    struct Views {
        QWidget& mainView;
        KyvarQuorviTableView& table;
        QPushButton& addButton;
        QPushButton& removeButton;
        QPushButton& applicationButton;
        CheckBox& displayBox;
        QLabel& count; ///< of the profiles, beside the heading
        QLabel& hint;  ///< below the list
    };

    /// Functions of other parts that it uses.
    struct Others {
        std::filesystem::path homeFolder;
        std::function<plist::Dictionary()> defaultSettings; ///< a new tree at every call
        std::function<RunningRow()> running;
        std::function<void()> listHasChanged; ///< called when profiles were added, removed or renamed
        std::function<void()> keepCopyBeforeRemoval;
        std::function<void()> importProfile; ///< these three are commands of the list's menu
        std::function<void()> exportProfile;
        std::function<void()> restoreDefaults;
    };

    ProfilesEditor(const EditorContext& context, const Views& views, Others others);
    ProfilesEditor(const ProfilesEditor&) = delete;
    ProfilesEditor& operator=(const ProfilesEditor&) = delete;

    /// Updates everything but the rows from the document and the selected row.
    void show();
    void showRunningRow();
    /// Shows the document's rows and selects the current profile. This does not count as a user's choice,
    /// which would also select the default stage.
    void selectCurrentQuietly();

    /// Appends the profile with a unique name, makes it current and saves, with that action name.
    void append(const plist::Dictionary& profile, const std::u16string& action);
    /// Appends a new profile, or a copy of the current one, and lets its name be edited. Does nothing when
    /// there are five.
    void create(bool duplicate);
    /// Removes the current profile, unless it is the first one, if the user agrees. The window may be
    /// destroyed during the question.
    void remove();
    /// Stores the check box's state.
    void storeDisplay();

    /// The commands of the list's menu.
    [[nodiscard]] std::vector<MenuCommand> commands();
    [[nodiscard]] ProfileApplication& application() { return m_application; }
    [[nodiscard]] TableList& list() { return m_list; }

  private:
    [[nodiscard]] bool hasRoom() const;
    [[nodiscard]] bool isCurrent() const;
    [[nodiscard]] bool canRemove() const;
    void switchToSelected();
    /// After a double click on the cell, whose first click has made the profile the current one.
    void chooseApplicationOf(const QModelIndex& cell);
    /// Selects the row. The switch to its profile belongs to that action, which is recorded before it is
    /// saved.
    void selectWithin(const std::u16string& action, int row);

    EditorContext m_context;
    Views m_views;
    Others m_others;
    QString m_usualHint;
    std::u16string m_action; ///< the action that a switch belongs to; empty for a separate one
    TableList m_list;
    ProfileApplication m_application;
};

} // namespace quorvi
