// All editors of the panel, with what each is given of the window and has the others do.
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
#include "editors/profiles/ProfilesEditor.h"
#include "editors/recording/Recording.h"
#include "editors/sensitivity/SensitivityEditor.h"
#include "editors/stages/StagesEditor.h"
#include "pane/UndoControls.h"
#include "pane/WindowHead.h"

namespace quorvi {

class HelperLink;
class Interface;
class SettingsSession;
struct PaneServices;

struct Editors {
    /// What they are given of the panel, which must outlive them; the view itself may go before.
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

    /// Derives every control's value and enabled state, or the part of them, from the document.
    void show(Shown shown);
    /// Fills lists and menus of names from the document, with its current profile and macro selected.
    void showLists();
    /// Marks the row of the profile that the mouse runs.
    void showRunningRow();
    /// Makes the stage that the mouse runs the current one. Not while the user drags a slider.
    void followRunningStage();

    /// By the tag of the table; null for any other number.
    [[nodiscard]] TableList* listWithTag(int tableTag);
    /// By the identifier of one of its columns.
    [[nodiscard]] TableList* listWithColumn(int columnIdentifier);
    /// Removes what is selected in the table with the tag.
    void removeSelected(int tableTag);

    HelperLink& helper;
    SettingsSession& session;
    WindowHead head;
    Recording recording;
    SingleKeyPanel singleKey;
    KeyCapture capture; ///< a recording wants keys before the sheet does
    AssignmentEditor assignment;
    SensitivityEditor sensitivity;
    StagesEditor stages;
    DeviceEditor device;
    ImportExport files;
    BackupsEditor backups;
    ProfilesEditor profiles;
    StepsEditor steps;
    MacrosEditor macros;
    UndoControls undo;
    MenuCommands commands; ///< of the lists' context and gear menus
};

} // namespace quorvi
