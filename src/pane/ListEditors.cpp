#include "pane/ListEditors.h"

#include "resources/Interface.h"

namespace quorvi {

ListEditors::ListEditors(
    const EditorContext& context, QWidget& mainView, const Interface& views, const Others& others)
    : files(context, {.mainView = mainView,
                         .homeFolder = others.homeFolder,
                         .appendProfile = [this](const plist::Dictionary& item) { profiles.append(item); },
                         .appendMacro = [this](const plist::Dictionary& item) { macros.append(item); }}),
      profiles(context,
          {.mainView = mainView,
              .table = *views.main.quorviTableProfiles,
              .addButton = *views.main.quorviButtonProfileAdd,
              .removeButton = *views.main.quorviButtonProfileRemove,
              .displayBox = *views.main.quorviBoxProfileOSD,
              .hint = *views.main.textProfilesHint},
          {.homeFolder = others.homeFolder,
              .defaultSettings = others.defaultSettings,
              .running = others.running,
              .listHasChanged = others.profilesHaveChanged,
              .importProfile = [this] { files.showImportPanel(ItemKind::profile); },
              .exportProfile = [this] { files.showExportPanel(ItemKind::profile); },
              .restoreDefaults = others.restoreDefaults}),
      steps(context,
          {.table = *views.main.quorviTableSteps,
              .macros = *views.main.quorviTableMacros,
              .addButton = *views.main.quorviButtonStepAdd,
              .removeButton = *views.main.quorviButtonStepRemove,
              .gearButton = *views.main.quorviButtonStepGear,
              .delays = *views.menus.quorviMenuStepDelay},
          others.recording),
      macros(context,
          {.table = *views.main.quorviTableMacros,
              .addButton = *views.main.quorviButtonMacroAdd,
              .removeButton = *views.main.quorviButtonMacroRemove,
              .gearButton = *views.main.quorviButtonMacroGear,
              .steps = *views.main.quorviTabsShowHideSteps,
              .pageNoMacro = *views.main.pageNoMacro,
              .noMacroTitle = *views.main.textNoMacroTitle,
              .noMacroText = *views.main.textNoMacro},
          {.isRecording = others.recording.isRunning,
              .knowsMice = others.knowsMice,
              .listHasChanged = others.macrosHaveChanged,
              .importMacro = [this] { files.showImportPanel(ItemKind::macro); },
              .exportMacro = [this] { files.showExportPanel(ItemKind::macro); }},
          steps),
      commands(context.document) {
    commands.add(profiles.commands());
    commands.add(macros.commands());
    commands.add(steps.commands());
}

} // namespace quorvi
