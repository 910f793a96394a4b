// All editors of the panel, with their widgets and their calls to each other.
#pragma once

#include <functional>

#include "capture/KeyCapture.h"
#include "editors/assignment/AssignmentEditor.h"
#include "editors/backups/BackupsEditor.h"
#include "editors/device/DeviceEditor.h"
#include "editors/files/ImportExport.h"
#include "editors/keys/SingleKeyPanel.h"
#include "editors/macros/MacrosEditor.h"
#include "editors/macros/StepsEditor.h"
#include "editors/macros/TimelineEditor.h"
#include "editors/playing/MacroTrial.h"
#include "editors/profiles/ProfilesEditor.h"
#include "editors/recording/Recording.h"
#include "editors/sensitivity/SensitivityEditor.h"
#include "editors/stages/StagesEditor.h"
#include "editors/texts/TextInsertion.h"
#include "pane/UndoControls.h"
#include "pane/WindowHead.h"

namespace quorvi {

class HelperLink;
class Interface;
class SettingsSession;
struct PaneServices;

struct Editors {
    /// The parts of the panel that they use, which must outlive them, except the view.
    struct Panel {
        EditorContext context;
        QWidget& mainView;
        const Interface& views;
        const PaneServices& services;
        HelperLink& helper;
        SettingsSession& session;
        std::function<bool()> isShown; ///< keys reach the panel
    };

    explicit Editors(const Panel& panel);
    Editors(const Editors&) = delete;
    Editors& operator=(const Editors&) = delete;

    /// Updates the values and states of all controls, or of a part of them, from the document.
    void show(Shown shown);
    /// Fills lists and menus of names from the document, with its current profile and macro selected.
    void showLists();
    /// Marks the row of the profile that the mouse runs.
    void showRunningRow();
    /// Makes the mouse's running stage the current one, unless the user is dragging a slider.
    void followRunningStage();

    /// By the tag of the table; null for any other number.
    [[nodiscard]] TableList* listWithTag(int tableTag);
    /// By the identifier of one of its columns.
    [[nodiscard]] TableList* listWithColumn(int columnIdentifier);
    /// Removes the selected row of the table with the tag.
    void removeSelected(int tableTag);

    HelperLink& helper;
    SettingsSession& session;
    WindowHead head;
    Recording recording;
    SingleKeyPanel singleKey;
    KeyCapture capture; ///< a recording receives keys before the sheet
    AssignmentEditor assignment;
    SensitivityEditor sensitivity;
    StagesEditor stages;
    DeviceEditor device;
    ImportExport files;
    BackupsEditor backups;
    ProfilesEditor profiles;
    StepsEditor steps;
    TimelineEditor timeline;
    MacrosEditor macros;
    TextInsertion texts;
    MacroTrial trial;
    UndoControls undo;
    MenuCommands commands; ///< of the lists' context and gear menus
};

} // namespace quorvi
