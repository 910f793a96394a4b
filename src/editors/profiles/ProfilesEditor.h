// The list of profiles: new, duplicated and removed ones, which is the current one, and whether a switch to
// it is displayed.
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

/// The row that bears a mark, because the mouse runs its profile.
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
        CheckBox& displayBox;
        QLabel& hint; ///< below the list
    };

    /// What it has others do.
    struct Others {
        std::filesystem::path homeFolder;
        std::function<plist::Dictionary()> defaultSettings; ///< a tree of its own with every call
        std::function<RunningRow()> running;
        std::function<void()> listHasChanged; ///< there are others than before, or by other names
        std::function<void()> keepCopyBeforeRemoval;
        std::function<void()> importProfile; ///< each of the three is a command of the list's menu
        std::function<void()> exportProfile;
        std::function<void()> restoreDefaults;
    };

    ProfilesEditor(const EditorContext& context, const Views& views, Others others);
    ProfilesEditor(const ProfilesEditor&) = delete;
    ProfilesEditor& operator=(const ProfilesEditor&) = delete;

    /// Derives everything but the rows from the document, and from which row is selected.
    void show();
    void showRunningRow();
    /// Shows the rows of the document and selects the current profile. That is not a choice of the user's,
    /// who would get the profile's default stage with it.
    void selectCurrentQuietly();

    /// Appends the profile under a name of its own, makes it current and saves, under that name of the
    /// action.
    void append(const plist::Dictionary& profile, const std::u16string& action);
    /// Appends a new profile, or a copy of the current one, and lets its name be edited. Does nothing when
    /// there are five.
    void create(bool duplicate);
    /// Removes the current profile, which is not the first one, when the user agrees. The window may not
    /// outlive the question.
    void remove();
    /// Stores the box.
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
    /// Selects the row: the switch to its profile belongs to that action, which is noted before it is saved.
    void selectWithin(const std::u16string& action, int row);

    EditorContext m_context;
    Views m_views;
    Others m_others;
    QString m_usualHint;
    std::u16string m_action; ///< that a switch belongs to; empty for one of its own
    TableList m_list;
    ProfileApplication m_application;
};

} // namespace quorvi
