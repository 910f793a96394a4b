#include "pane/Editors.h"

#include <QTabWidget>

#include "keyboard/KeyCodeConversion.h"
#include "live/LiveHelper.h"
#include "pane/EditorViews.h"
#include "pane/EventPatch.h"
#include "pane/PaneServices.h"
#include "resources/Interface.h"
#include "resources/TableTags.h"
#include "session/HelperLink.h"
#include "session/SettingsSession.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/ShownText.h"
#include "window/Notices.h"

namespace quorvi {

namespace {

constexpr int kProfilesTab = 2;
constexpr int kMacrosTab = 3;
/// A column's identifier begins with its table's tag.
constexpr int kColumnsOfTag = 10;

/// The USB usage of the key that the user presses.
std::optional<std::uint8_t> keyToInsert(SingleKeyPanel& sheet, const PanelText& text) {
    const auto chosen =
        sheet.askWith({.request = text("Press the key to insert. A modifier key on its own works too."),
            .confirming = text("Inserts the key."),
            .cancelling = text("Inserts nothing.")});
    return chosen ? std::optional(AdbToUsbKeycode(chosen->key)) : std::nullopt;
}

RunningRow runningRow(const LiveHelper& live) {
    const QString why = live.runningText();
    return {.row = why.isEmpty() ? -1 : static_cast<int>(live.state().runningProfile) - 1, .why = why};
}

} // namespace

Editors::Editors(const Panel& panel)
    : helper(panel.helper), session(panel.session), head(panel.context, headViews(panel.views), panel.helper),
      recording(panel.context, recordingViews(panel.views), tablesThatTakeFocus(panel.views),
          {.clock = panel.services.clock,
              .callLater = panel.services.callLater,
              .reloadSteps = [this] { steps.list().reload(); },
              .tellHelper = [this](bool runs) { helper.sendMessage(kMessageRecording, runs ? 1 : 0); },
              .keyCaptureBeganOrEnded = [this] { capture.updateKeyboardGrab(); },
              .offerHasChanged = [this] { steps.show(); }}),
      singleKey({.panel = panel.views.quorviPanelSingleKey,
                    .field = panel.views.singleKey.quorviFieldSingleKey,
                    .request = panel.views.singleKey.textSingleKey,
                    .confirm = panel.views.singleKey.quorviSingleKeyButtonOK,
                    .cancel = panel.views.singleKey.quorviSingleKeyButtonCancel},
          panel.context.sheets, [this] { capture.updateKeyboardGrab(); }),
      capture(panel.mainView, modifiersOfProcess(), {&recording, &singleKey}),
      assignment(panel.context, assignmentViews(panel.views),
          {.isPanelShown = panel.isShown,
              .askForKey = [this](const KeyChoice& shown) { return singleKey.ask(shown); },
              .showProfilesTab =
                  [tabs = panel.views.main.quorviTabsMain] { tabs->setCurrentIndex(kProfilesTab); },
              .showMacrosTab =
                  [tabs = panel.views.main.quorviTabsMain] { tabs->setCurrentIndex(kMacrosTab); },
              .profileInUse = [this] { return head.profileInUse(); },
              .defaultSettings = [this] { return session.defaults(); }}),
      sensitivity(panel.context, sensitivityViews(panel.views)),
      stages(panel.context, stagesViews(panel.views)),
      device(panel.context, deviceViews(panel.views), [this] { return session.defaults(); }),
      files(panel.context,
          {.mainView = panel.mainView,
              .homeFolder = panel.services.homeFolder,
              .appendProfile = [this](const plist::Dictionary& item,
                                   const std::u16string& action) { profiles.append(item, action); },
              .appendMacro = [this](const plist::Dictionary& item,
                                 const std::u16string& action) { macros.append(item, action); },
              .showLists = [this] { showLists(); }}),
      backups(panel.context,
          {.mainView = panel.mainView,
              .homeFolder = panel.services.homeFolder,
              .history = panel.session.history(),
              .keepCopy = [this] { session.keepCopyBefore(CopyReason::beforeRestore); },
              .showLists = [this] { showLists(); },
              .importProfile = [this](const QString& path) { files.importFile(ItemKind::profile, path); },
              .importMacro = [this](const QString& path) { files.importFile(ItemKind::macro, path); }}),
      profiles(panel.context, profilesViews(panel.mainView, panel.views),
          {.homeFolder = panel.services.homeFolder,
              .defaultSettings = [this] { return session.defaults(); },
              .running = [this] { return runningRow(helper.live()); },
              .listHasChanged = [this] { assignment.listProfiles(); },
              .keepCopyBeforeRemoval = [this] { session.keepCopyBefore(CopyReason::beforeDeletion); },
              .importProfile = [this] { files.showImportPanel(ItemKind::profile); },
              .exportProfile = [this] { files.showExportPanel(ItemKind::profile); },
              .restoreDefaults = [this] { device.restoreDefaults(); }}),
      steps(panel.context, stepsViews(panel.views),
          {.isRunning = [this] { return recording.isRunning(); },
              .offersToMend = [this](const StepCheck& fault) { return recording.offersToMend(fault); },
              .startOrStop = [this](bool start, bool oneStep) { recording.startOrStop(start, oneStep); },
              .title = [this] { return recording.commandTitle(); },
              .startAt = [this](std::size_t index) { recording.startAt(index); },
              .askForKey = [this, text = panel.context.text] { return keyToInsert(singleKey, text); }}),
      timeline(
          panel.context, timelineViews(panel.views), steps.list(), [this] { return recording.isRunning(); }),
      macros(panel.context, macrosViews(panel.views),
          {.isRecording = [this] { return recording.isRunning(); },
              .knowsMice = [this] { return helper.listHasCome(); },
              .listHasChanged = [this] { assignment.listMacros(); },
              .importMacro = [this] { files.showImportPanel(ItemKind::macro); },
              .exportMacro = [this] { files.showExportPanel(ItemKind::macro); }},
          steps),
      texts(panel.context, {.mainView = panel.mainView,
                               .list = [this]() -> TableList& { return steps.list(); },
                               .isRecording = [this] { return recording.isRunning(); }}),
      trial(panel.context, trialViews(panel.views),
          {.time = {.clock = panel.services.clock, .callLater = panel.services.callLater},
              .isRecording = [this] { return recording.isRunning(); },
              .markStep = [this](std::optional<std::size_t> step) { steps.showPlayed(step); },
              .showTime =
                  [timeline = panel.views.main.quorviTimelineSteps](
                      std::optional<std::chrono::milliseconds> time) { timeline->setPlayedTime(time); }}),
      undo(panel.context, undoViews(panel.views),
          {.isCapturing = [this] { return capture.isActive(); }, .showLists = [this] { showLists(); }}),
      commands(panel.context.document) {
    panel.context.notices.setUndo([this] { undo.undo(); });
    commands.add(profiles.commands());
    commands.add(macros.commands());
    commands.add(steps.commands());
    commands.add(texts.commands());
}

void Editors::show(Shown shown) {
    switch (shown) {
    case Shown::everything:
        head.show();
        assignment.show();
        sensitivity.show();
        device.show();
        profiles.show();
        macros.show();
        steps.show();
        timeline.show();
        recording.show();
        helper.live().show();
        showRunningRow();
        undo.show();
        break;
    case Shown::lights:
        device.showLights();
        break;
    case Shown::acceleration:
        sensitivity.showAcceleration();
        break;
    case Shown::nothing:
        break;
    }
    // Steps may have changed that the list shows already.
    macros.showTyped();
    trial.show();
}

void Editors::showLists() {
    profiles.selectCurrentQuietly();
    macros.selectCurrent();
    steps.list().reloadQuietly();
    assignment.listProfiles();
    assignment.listMacros();
}

void Editors::showRunningRow() {
    profiles.showRunningRow();
    head.showRunning();
}

void Editors::followRunningStage() {
    const HelperNews& news = helper.live().state();
    if (!session.isDragging())
        sensitivity.followRunningStage(news.runningProfile, news.runningStage);
}

TableList* Editors::listWithTag(int tableTag) {
    switch (tableTag) {
    case kProfilesTable:
        return &profiles.list();
    case kMacrosTable:
        return &macros.list();
    case kStepsTable:
        return &steps.list();
    case kStagesTable:
        return &stages.list();
    default:
        return nullptr;
    }
}

TableList* Editors::listWithColumn(int columnIdentifier) {
    return listWithTag(columnIdentifier / kColumnsOfTag);
}

void Editors::removeSelected(int tableTag) {
    switch (tableTag) {
    case kProfilesTable:
        return profiles.remove();
    case kMacrosTable:
        return macros.remove();
    case kStepsTable:
        return steps.remove();
    case kStagesTable:
        return stages.remove();
    default:
        return;
    }
}

} // namespace quorvi
