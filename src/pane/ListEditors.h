// The editors of the lists of profiles, of macros and of steps, with what they need of each other.
#pragma once

#include <filesystem>
#include <functional>

#include "editors/files/ImportExport.h"
#include "editors/macros/MacrosEditor.h"
#include "editors/macros/StepsEditor.h"
#include "editors/profiles/ProfilesEditor.h"

namespace quorvi {

class Interface;

struct ListEditors {
    /// What they need of the panel.
    struct Others {
        std::filesystem::path homeFolder;
        std::function<plist::Dictionary()> defaultSettings; ///< a tree of its own with every call
        std::function<void()> restoreDefaults;
        std::function<RunningRow()> running;
        std::function<bool()> knowsMice; ///< whether a list of the mice has come
        RecordingCommands recording;
        std::function<void()> profilesHaveChanged; ///< there are others than before, or by other names
        std::function<void()> macrosHaveChanged;   ///< likewise
    };

    /// The views must outlive their use; they may go before these.
    ListEditors(
        const EditorContext& context, QWidget& mainView, const Interface& views, const Others& others);
    ListEditors(const ListEditors&) = delete;
    ListEditors& operator=(const ListEditors&) = delete;

    ImportExport files;
    ProfilesEditor profiles;
    StepsEditor steps;
    MacrosEditor macros;
    MenuCommands commands; ///< of all three lists
};

} // namespace quorvi
