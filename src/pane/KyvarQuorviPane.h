// The controller of the panel: one class, implemented in one file per role, each in the folder of its
// subsystem.
//
// The controller edits one live configuration tree. The current-item members (fSettings, fProfile, …) are
// handles into that tree, re-derived only by editProfileIndex and editMacroIndex. An action that is not
// possible does nothing; what would cost the user work is told at the window's foot (Notices.h).
#pragma once

#include <QObject>
#include <QPointer>

#include <array>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "document/Document.h"
#include "events/DeviceList.h"
#include "events/EventTypes.h"
#include "keyboard/VirtualKeys.h"
#include "macros/MacroRecorder.h"
#include "model/ConfigFile.h"
#include "pane/PaneServices.h"
#include "platform/FileWatcher.h"
#include "platform/FocusObserver.h"
#include "platform/KeyEvents.h"
#include "platform/KeyboardGrab.h"
#include "platform/PreferencePane.h"
#include "plist/Value.h"
#include "widgets/FilledText.h"
#include "widgets/KyvarQuorviTableView.h"
#include "window/Notices.h"
#include "window/Sheets.h"

class QAbstractButton;
class QAction;
class QFileDialog;
class QMenu;

namespace quorvi {

class ApplicationPanel;
class EventBusNotifier;
class Interface;
class KyvarQuorviSlider;
class LiveHelper;
struct ListEditors;
class PopUpButton;
struct RunningRow;
class TableList;

inline constexpr int kAssignmentCount = 9;

/// The numbers of an assignment by their keys.
using AssignmentValues = std::initializer_list<std::pair<std::string_view, std::int32_t>>;

/// An entry of the lists of profiles and of macros in the assignment menus.
struct SubmenuEntry {
    QString title;
    std::int32_t tag; ///< a profile's position from 0, a macro's identifier
};

class KyvarQuorviPane final : public QObject,
                              public PreferencePane,
                              private TableDelegate,
                              private DocumentOwner {
    Q_OBJECT

  public:
    explicit KyvarQuorviPane(PaneServices services);
    ~KyvarQuorviPane() override;

    // Lifecycle (pane/Lifecycle.cpp)
    [[nodiscard]] QWidget* mainView() override;
    void mainViewDidLoad() override;
    void didSelect() override;
    void willUnselect() override;
    void sysPrefDidResignActive();
    void sysPrefWindowDidBecomeKey();
    void sysPrefWindowDidResignKey();
    void tabViewDidSelectTabViewItem();

    // Helper link (pane/HelperLink.cpp)
    /// Sends the helper a message and its parameter; nothing is waited for. 0 when it was sent.
    Status sendMessageToHelper(FourCharCode message, std::int32_t param);
    /// Sends the named process a message. With a result, waits for the answer, 15 ticks (250 ms) at most, and
    /// stores its number there; the result is left as it was on any error.
    Status sendControlToKext(
        const std::string& processName, FourCharCode message, std::int32_t param, std::int32_t* result);
    /// The process of that name, letter case of A to Z aside. Nothing is stored when it does not run.
    Status findProcessByName(const std::string& processName, ProcessSerialNumber* psn) const;

    // The helper's coming and going (pane/HelperPresence.cpp)
    /// Looks whether the helper runs and shows it. The bus has it called at every change; a pane that is not
    /// selected shows nothing.
    void followHelper();
    /// Starts a helper that has gone. Does nothing while there is one, while one is about to come, and while
    /// the mouse drags a slider.
    void bringHelperBack();

    // Settings document (pane/Settings.cpp)
    [[nodiscard]] plist::Dictionary getDefaultSettings() const;
    [[nodiscard]] plist::Dictionary loadSettings();
    /// Writes the tree to the user's settings file and, when that worked, tells the helper. False when it did
    /// not. While the mouse drags a slider, the file is written and told of as ever, but brought to the disk
    /// only when the drag ends. What another program has changed meanwhile comes into the tree and is shown;
    /// where both have changed the same thing, the other program's is kept as a copy, and the user is told of
    /// it, as of a save that fails. False, and nothing else, without a tree (nil).
    bool saveSettings(const plist::Dictionary& tree);
    void dragDidBegin();
    /// Brings to the disk what was saved during the drag.
    void dragDidEnd();

    // A save that has failed (pane/SaveFailure.cpp)
    /// Saves what no file has yet. False when that fails; the tree is then the only place where it is.
    [[nodiscard]] bool saveUnsavedEdits();
    /// Tries again what the last save could not.
    void retryFailedSave();

    // Others at the settings file (pane/SettingsFollowing.cpp)
    /// Takes over the settings that another program has put into the file, without saving or sending
    /// anything; later when the user is at something that this would break off, and not at all while there
    /// are changes that no file has yet.
    void followSettingsFile();

    // Synchronisation (pane/Synchronisation.cpp, pane/UpdateUI.cpp)
    void syncUIWithDeviceConfig();
    void updateUI();
    /// The hook that a slider calls when a drag has ended; the device follows through the saved file.
    void updateDpiOnMouse() {}

    // Device-wide settings and commands (pane/DeviceCommands.cpp)
    void actionMenuPollingRate();
    void actionBoxLightOnWheel();
    void actionBoxLightOnBattery();
    void actionButtonRestoreDefaults();
    void actionButtonCheckUpdates();
    void actionButtonHelp();

    // Modal helpers (pane/ModalHelpers.cpp)
    /// The text for the key in the user's language; the key itself when the string table has none.
    [[nodiscard]] QString locString(const QString& key) const;
    /// Runs the panel as a sheet on the pane's window; the code that ended it.
    int modalDialog(QDialog* panel);
    void actionButtonModalOK();
    void actionButtonModalCancel();
    /// Asks the question of the message key, with the item (nothing: none) in place of its first "^1".
    bool confirmAction(const QString& messageKey, const std::optional<QString>& item);

    // Sensitivity (sensitivity/SensitivityControls.cpp, sensitivity/SensitivityViews.cpp)
    /// Stores the slider's value, in DPI, for X; for Y as well while the stage has no axes of their own.
    void actionSliderSensitivityX(KyvarQuorviSlider* slider);
    void actionSliderSensitivityY(KyvarQuorviSlider* slider);
    void actionBoxIndependentXY(QAbstractButton* box);
    void actionSliderAcceleration();
    void actionBoxAcceleration();
    void actionBoxSensitivityOSD();
    void actionButtonEditStages();
    void updateDpiText();
    /// Draws the current profile's stages with the current one marked.
    void updateStagesView();
    /// Makes the stage that the mouse runs the current one, when it runs the current profile. Nothing is
    /// saved: the mouse has it, and the next save brings it along.
    void followRunningStage();
    void showRunningRow();
    /// Draws the acceleration that the box and the slider show.
    void updateAccelerationView();

    // Stages editor (sensitivity/StagesEditor.cpp). All but the first do nothing while it is closed.
    /// Lets the user edit copies of the stages; OK stores them and saves, anything else forgets them. Returns
    /// when the sheet is closed, which the pane itself may not outlive.
    void editSensitivityStages();
    /// Makes the stage the current one, and the one that the profile starts in; nothing for another index.
    void editStageIndex(std::int32_t index);
    void actionButtonStageAdd();
    void actionButtonStageRemove();
    void actionSliderStagesSensitivityX(KyvarQuorviSlider* slider);
    void actionSliderStagesSensitivityY(KyvarQuorviSlider* slider);
    void actionBoxStagesIndependentXY(QAbstractButton* box);
    /// Shows the copies.
    void updateSensitivityStagesUI();

    // Button assignment (assignment/AssignmentMenus.cpp, assignment/AssignmentActions.cpp,
    // assignment/InputExplanation.cpp)
    void updateMenu(PopUpButton* popUp, int assignment);
    void updateMacrosSubmenu();
    void updateProfilesSubmenu();
    /// What the input, 1 to 9, does and why, a line each; nothing before that is known.
    [[nodiscard]] QString explanationOfInput(int input) const;
    /// Stores the function that the pop-up shows, saves, and shows what is stored. The function of a single
    /// key asks for the key first.
    void actionMenuButtonAssignment(PopUpButton* popUp);
    /// Assigns the macro that the item stands for, or opens the macros tab when it stands for none.
    void actionSubmenuButtonMacro(QAction* item);
    /// Assigns the profile that the item stands for, or opens the profiles tab when it stands for none.
    void actionSubmenuButtonProfile(QAction* item);

    // Macro recording (assignment/Recording.cpp)
    /// Starts recording into the current macro: steps are appended or, for one step, the selected one is
    /// replaced and the recording stops. Stopping it saves. Does nothing when that is how it is.
    void startStopRecording(bool start, bool oneStep);
    /// Replaces the step of the current macro at the index, together with its partner, or appends one where
    /// there is none, for -1 for instance; a full macro stays as it is. The modifiers are not stored.
    void setMacroStep(std::uint32_t code, std::uint8_t argument, std::uint16_t modifiers, std::int32_t index);
    /// Appends a step to the current macro. The step before gets the time since the run's last one as delay.
    void appendMacroStep(std::uint32_t code, std::uint8_t argument, std::uint16_t modifiers);
    /// The code of the step that ends, or began, what the code does (macros/StepCodes.h).
    static std::uint32_t matchingCommand(std::uint32_t code, bool* isDown);

    // Key capture (assignment/SingleKey.cpp)
    /// A capture is active: every key belongs to the panel.
    [[nodiscard]] bool overrideSingleKeys() const;
    /// A recording runs: clicks in the tables belong to it and are not carried out.
    [[nodiscard]] bool overrideMouseEvents() const;
    /// A key event while a capture is active. The key is a virtual key code, 255 for none; the modifiers are
    /// the modifier word after the event. True when the event is used up.
    bool receiveSingleKey(
        std::uint8_t key, char16_t character, std::uint16_t modifiers, bool goingDown, const KeyEvent& event);
    /// Tells the single-key panel which modifiers had changed while keys did not come to it, so that the next
    /// key is not taken for one of theirs.
    void followModifiers(std::uint16_t modifiers) { fSingleKeyLastModifiers = modifiers; }
    /// Takes the keyboard from the desktop exactly while a capture is active in a window of the panel's that
    /// has the focus.
    void updateKeyboardGrab();

    // Lists, their gear and context menus, and files of single items (pane/Lists.cpp, editors)
    void editProfileIndex(std::int32_t index) { fDocument.editProfileIndex(index); }
    void editMacroIndex(std::int32_t index) { fDocument.editMacroIndex(index); }
    [[nodiscard]] int numberOfRowsInTableView(int tableTag) const;
    [[nodiscard]] QVariant objectValueForTableColumn(int columnIdentifier, int row) const;
    [[nodiscard]] QString titleOfDelay(const QVariant& value) const;
    void setObjectValue(const QVariant& value, int columnIdentifier, int row);
    void tableViewSelectionDidChange(const KyvarQuorviTableView* table);
    void reloadTableViewDataQuietly(const KyvarQuorviTableView* table);
    bool handleMouseEvent(const QMouseEvent& event, int type, KyvarQuorviTableView* table) override;
    void handleKeyPressed(char16_t key, KyvarQuorviTableView* table, int row) override;
    void actionMenuTableContext(QAction* item);
    [[nodiscard]] bool validateMenuItem(QAction* item);
    void createNewProfile(bool duplicate);
    void actionButtonProfileAdd() { createNewProfile(false); }
    void actionButtonProfileRemove();
    void actionBoxProfileOSD();
    void assignApplication(const QString& path);
    void assignApplication(const ApplicationPanel* panel, int returnCode);
    void actionButtonMacroAdd();
    void actionButtonMacroRemove();
    void actionButtonStepAdd() { startStopRecording(true, false); }
    void actionButtonStepRecord();
    void actionButtonStepRemove();
    void setDelayForAllSteps(std::int32_t milliseconds);
    void exportProfile(const QFileDialog* panel, int returnCode);
    void exportMacro(const QFileDialog* panel, int returnCode);
    void importProfile(const QFileDialog* panel, int returnCode);
    void importMacro(const QFileDialog* panel, int returnCode);
    void importProfileCompletion(const QString& path);
    void importMacroCompletion(const QString& path);

    // What others may ask
    [[nodiscard]] bool hasDevice() const { return fDocument.hasDevice(); }
    [[nodiscard]] bool panelIsFront() const { return fPanelIsFront; }
    [[nodiscard]] bool isRecordingMacro() const { return fRecorder.isRecording(); }
    /// A recording runs that ends with its first step.
    [[nodiscard]] bool awaitsOneStep() const { return fRecorder.isRecording() && fRecorder.isForOneStep(); }
    [[nodiscard]] std::int32_t profileIndex() const { return fDocument.profileIndex(); }
    [[nodiscard]] std::int32_t macroIndex() const { return fDocument.macroIndex(); }
    [[nodiscard]] const plist::Dictionary& deviceConfig() const { return fDocument.tree(); }
    /// The key that the single-key panel shows, as a virtual key code; 255 while there is none.
    [[nodiscard]] std::uint8_t singleKeyCode() const { return fSingleKeyCode; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void connectActions();
    void connectMenu(QMenu& menu);
    void connectTables();
    [[nodiscard]] std::array<KyvarQuorviTableView*, 4> tables() const;
    [[nodiscard]] TableList* listWithTag(int tag) const;
    [[nodiscard]] TableList* listWithColumn(int columnIdentifier) const;
    [[nodiscard]] RunningRow runningRow() const;
    void fillAssignmentMenus();
    [[nodiscard]] const QMenu& commandsOf(int assignment) const;
    [[nodiscard]] QString assignmentTitle(
        const plist::Dictionary& assignment, const QString& plainTitle) const;
    [[nodiscard]] plist::Dictionary assignmentOf(std::int32_t profileIndex, int input) const;
    /// In a line; empty for an assignment of something else.
    [[nodiscard]] QString stepsOfMacro(const plist::Dictionary& assignment) const;
    /// The profile that the panel shows, with the reason when it is the one that runs.
    [[nodiscard]] QString profileInUse() const;
    void askForSingleKey(int input);
    /// Shows the captured key in the single-key panel.
    void showSingleKey();
    void assignFromList(const QAction& item, int tabOfList, AssignmentValues values);
    /// Names the keys, from then on by the layout in use.
    void followKeyboardLayout();
    /// Reads the names of the keys from the layout in use.
    void nameKeys();
    /// Shows every key by its name on the layout that is in use now.
    void keyboardLayoutDidChange();
    void showVersion();
    /// Mirrors the panel when the language that it speaks is written from the right.
    void followLanguage();
    void startHelper();
    void launchHelper();
    /// Makes what shows what the helper tells.
    void makeLive();
    void startFollowingHelper();
    void stopFollowingHelper();
    /// A helper that is not there to hear it is started, and reads the file by itself.
    void tellHelperOfSave();
    /// What stands beside the title.
    [[nodiscard]] QString connectionText() const;
    void updateConnectionUI();
    void installDeviceListHandler();
    void removeEventHandlers();
    Status receiveDeviceList(const Event& event);

    void showDocument(Shown shown) override;
    void saveDocument() override;
    void saveDocumentLater() override;

    void closeMenus();
    void watchSettingsFile();
    [[nodiscard]] bool userIsAtSomething() const;
    void followSettingsFileWhenFree();
    void tellOfKeptCopy(const std::filesystem::path& copy);
    void tellOfFailedSave(int error);
    [[nodiscard]] QString textOfError(int error) const;
    /// Has the handles lead to what a save has brought into the tree, and the window show it when it is free.
    void takeMergedSettingsOver();
    /// The path as users write it, from their home folder.
    [[nodiscard]] QString pathFromHome(const std::filesystem::path& path) const;

    enum class Repairs { saved, inMemoryAlone };
    void showSettingsOfFile(Repairs repairs);
    /// Shows the tree as it is now, with the macro at the index as the current one, -1 for none.
    void showSettings(Repairs repairs, std::int32_t macroIndex);
    void alignIndependentAxes();
    /// Whether anything had to be changed.
    bool alignStageWithSettings();
    void updateSensitivityUI();
    [[nodiscard]] plist::Array editedStages() const;
    [[nodiscard]] std::int32_t editedStageIndex() const;
    [[nodiscard]] plist::Dictionary editedStage() const;
    void storeEditedStages();
    void closeStagesEditor();
    void updateLightingUI();
    void setLight(std::int32_t bit, bool on);
    void restoreDefaultsFrom(const plist::Dictionary& defaults);
    [[nodiscard]] RecordingTarget recordingTarget() const;
    void takeFocusFromCells();
    void setTablesTakeFocus(bool take);
    void recordKey(std::uint8_t key, std::uint16_t modifiers, bool goingDown);
    void recordMouse(std::uint32_t code);
    /// Begins to wait for the end of the recording when Escape has just been pressed, and gives that up when
    /// something else has come.
    void followHeldEscape();
    void endRecordingByEscape();
    /// After a step has come or was replaced. A run of one step ends with it.
    void showRecordedStep();
    void showRecordButton();
    /// Says that a recording runs and how far it is; nothing otherwise.
    void updateRecordingUI();
    [[nodiscard]] QString recordingText() const;
    [[nodiscard]] QString withHintHowToEnd(const QString& state) const;
    /// locString() for what is no part of the panel. Does not outlive it.
    [[nodiscard]] PanelText panelText() const;
    void makeListEditors();

    PaneServices fServices;
    std::unique_ptr<EventBusNotifier> fBusNotifier; ///< null without a session bus
    ConfigFile fSettingsFile;
    FileWatcher fSettingsWatcher;
    std::unique_ptr<QObject> fFollowLater; ///< hears of the end of what the user is at; else null
    QPointer<QWidget> fMainView;           ///< deleted with this object, unless a host's window was quicker
    std::unique_ptr<Interface> fViews;
    Sheets fSheets;
    Notices fNotices;
    std::unique_ptr<LiveHelper> fLive;      ///< what the helper tells; never null
    std::unique_ptr<TableList> fStagesList; ///< as of mainViewDidLoad()
    FocusObserver fFocus;
    KeyboardGrab fKeyboardGrab;
    std::unique_ptr<KeyboardLayoutWatcher> fKeyboardLayout; ///< null until followKeyboardLayout()

    bool fPanelIsFront = false;
    bool fBluetoothWarningDone = false;
    bool fReceivingValueFromHelper = false;
    bool fDragging = false;       ///< the mouse is down on a slider
    bool fSyncPending = false;    ///< the settings file was written and is not known to be on the disk
    bool fUnsavedEdits = false;   ///< the tree holds changes of the user's that no file has yet
    bool fSaveHasFailed = false;  ///< the last save has; the user was told
    bool fMergedUnshown = false;  ///< a save has brought others' changes into the tree that nobody sees yet
    bool fSyncScheduled = false;  ///< a list has come that syncUIWithDeviceConfig has not dealt with
    bool fFollowsHelper = false;  ///< the pane is selected
    bool fHelperStarting = false; ///< launched, and neither in the process list yet nor ended
    bool fHelperGone = false;     ///< the user has been told; until it is in the process list again
    bool fListHasCome = false;    ///< from the helper that runs now, since the pane was selected
    ProcessSerialNumber fHelper;  ///< the helper that runs now; {0, 0} for none
    bool fReceiveListUPP = false;
    bool fReceiveValueUPP = false;
    DeviceList fDeviceList{};
    std::array<PopUpButton*, kAssignmentCount> fAssignmentMenus{};
    std::vector<SubmenuEntry> fListedProfiles; ///< in the pop-ups, as of the last rebuild
    std::vector<SubmenuEntry> fListedMacros;   ///< likewise
    QString fStringRecord;
    QString fStringStop;
    QString fStringRecordDescription; ///< what screen readers say of the record button
    QString fStringNoSteps;           ///< what an empty list of steps says
    QString fStringNoMacro;           ///< the same, below it

    Document fDocument{*this};
    plist::Dictionary fEditStagesSettings;     ///< nil unless the stages editor is open
    plist::Dictionary fEditStagesProfile;      ///< nil unless the stages editor is open
    std::unique_ptr<ListEditors> fListEditors; ///< never null

    std::uint8_t fSingleKeyCode = noKey;       ///< the captured key, a virtual key code
    std::uint16_t fSingleKeyModifiers = 0;     ///< a capture always leaves it 0
    std::uint16_t fSingleKeyLastModifiers = 0; ///< of the last event that the single-key panel saw
    MacroRecorder fRecorder;
    std::unique_ptr<QObject> fHeldEscape; ///< while the recording ends if Escape is held on; else null
};

/// The one live controller of the process, or null: what the key patch and the sliders reach it by.
extern KyvarQuorviPane* gKyvarQuorviPane;

} // namespace quorvi
