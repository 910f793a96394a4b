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
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "document/Document.h"
#include "events/EventTypes.h"
#include "model/Limits.h"
#include "pane/PaneServices.h"
#include "platform/FocusObserver.h"
#include "platform/PreferencePane.h"
#include "plist/Value.h"
#include "session/HelperLink.h"
#include "session/SettingsSession.h"
#include "widgets/FilledText.h"
#include "widgets/KyvarQuorviTableView.h"
#include "window/Notices.h"
#include "window/Sheets.h"

class QAbstractButton;
class QAction;
class QFileDialog;
class QMenu;

namespace quorvi {

struct ApplicationInformation;
class ApplicationPanel;
class AssignmentEditor;
class DeviceEditor;
class Interface;
class KeyCapture;
class KyvarQuorviSlider;
enum class ItemFault : std::uint8_t;
enum class ItemKind : std::uint8_t;
struct KeyEvent;
class PopUpButton;
class Recording;
class SensitivityEditor;
class SingleKeyPanel;
class StagesEditor;
class TableList;

inline constexpr int kAssignmentCount = limits::buttons;

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

    // The helper (session/HelperLink.h)
    Status sendMessageToHelper(FourCharCode message, std::int32_t param) {
        return fHelperLink.sendMessage(message, param);
    }
    Status sendControlToKext(
        const std::string& processName, FourCharCode message, std::int32_t param, std::int32_t* result) {
        return fHelperLink.sendControl(processName, message, param, result);
    }
    Status findProcessByName(const std::string& processName, ProcessSerialNumber* psn) const {
        return fHelperLink.findProcess(processName, psn);
    }

    // The settings (session/SettingsSession.h)
    [[nodiscard]] plist::Dictionary getDefaultSettings() const { return fSession.defaults(); }
    [[nodiscard]] plist::Dictionary loadSettings() { return fSession.load(); }
    bool saveSettings(const plist::Dictionary& tree) { return fSession.save(tree); }
    void dragDidBegin() { fSession.beginDrag(); }
    void dragDidEnd();

    // Synchronisation (pane/Synchronisation.cpp, pane/UpdateUI.cpp)
    /// Reads the settings afresh and shows them. The first time without a mouse says how to connect one.
    void syncUIWithDeviceConfig();
    void updateUI();
    /// The hook that a slider calls when a drag has ended; the device follows through the saved file.
    void updateDpiOnMouse() {}

    // Device-wide settings and commands (editors/device)
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

    // Sensitivity (editors/sensitivity)
    void actionSliderSensitivityX(KyvarQuorviSlider* slider);
    void actionSliderSensitivityY(KyvarQuorviSlider* slider);
    void actionBoxIndependentXY(QAbstractButton* box);
    void actionSliderAcceleration();
    void actionBoxAcceleration();
    void actionBoxSensitivityOSD();
    void actionButtonEditStages();
    void updateDpiText();
    void updateStagesView();
    /// Not while the mouse drags a slider.
    void followRunningStage();
    void showRunningRow();
    void updateAccelerationView();

    // Stages editor (editors/stages)
    void editSensitivityStages();
    void editStageIndex(std::int32_t index);
    void actionButtonStageAdd();
    void actionButtonStageRemove();
    void actionSliderStagesSensitivityX(KyvarQuorviSlider* slider);
    void actionSliderStagesSensitivityY(KyvarQuorviSlider* slider);
    void actionBoxStagesIndependentXY(QAbstractButton* box);
    void updateSensitivityStagesUI();

    // Button assignment (editors/assignment)
    void updateMenu(PopUpButton* popUp, int assignment);
    void updateMacrosSubmenu();
    void updateProfilesSubmenu();
    [[nodiscard]] QString explanationOfInput(int input) const;
    void actionMenuButtonAssignment(PopUpButton* popUp);
    void actionSubmenuButtonMacro(QAction* item);
    void actionSubmenuButtonProfile(QAction* item);

    // Gear and context menus (pane/MenuValidation.cpp)
    /// Whether the item can be chosen now. The item that starts and stops a recording gets its title here.
    [[nodiscard]] bool validateMenuItem(QAction* item);

    // Macro recording and key capture (pane/KeyCapturing.cpp): editors/recording/Recording.h,
    // editors/keys/SingleKeyPanel.h and capture/KeyCapture.h say what each of these does.
    void startStopRecording(bool start, bool oneStep);
    /// The modifiers of these two are not stored.
    void setMacroStep(std::uint32_t code, std::uint8_t argument, std::uint16_t modifiers, std::int32_t index);
    void appendMacroStep(std::uint32_t code, std::uint8_t argument, std::uint16_t modifiers);
    /// The code of the step that ends, or began, what the code does (macros/StepCodes.h).
    static std::uint32_t matchingCommand(std::uint32_t code, bool* isDown);
    [[nodiscard]] bool isRecordingMacro() const;
    /// A recording runs that ends with its first step.
    [[nodiscard]] bool awaitsOneStep() const;
    /// A capture is active: every key belongs to the panel.
    [[nodiscard]] bool overrideSingleKeys() const;
    /// A recording runs: clicks in the tables belong to it and are not carried out.
    [[nodiscard]] bool overrideMouseEvents() const;
    /// A key event while a capture is active. The key is a virtual key code, 255 for none; the modifiers are
    /// the modifier word after the event. True when the event is used up.
    bool receiveSingleKey(
        std::uint8_t key, char16_t character, std::uint16_t modifiers, bool goingDown, const KeyEvent& event);
    void followModifiers(std::uint16_t modifiers);
    void updateKeyboardGrab();
    /// The key that the single-key panel shows, as a virtual key code; 255 while there is none.
    [[nodiscard]] std::uint8_t singleKeyCode() const;
    /// What the names of pane/EventPatch.h stand for.
    [[nodiscard]] KeyCapture& keyCapture() { return *fKeyCapture; }

    // Lists (editors/CurrentItems.cpp, editors/TableData.cpp, editors/TableEvents.cpp,
    // editors/ContextMenu.cpp)
    void editProfileIndex(std::int32_t index) { fDocument.editProfileIndex(index); }
    void editMacroIndex(std::int32_t index) { fDocument.editMacroIndex(index); }
    [[nodiscard]] int numberOfRowsInTableView(int tableTag) const;
    /// The value of a cell: a text, a boolean for a check box, the index of an item for a pop-up cell.
    [[nodiscard]] QVariant objectValueForTableColumn(int columnIdentifier, int row) const;
    /// What the pop-up cell of a delay shows for its value; nothing for one without an item.
    [[nodiscard]] QString titleOfDelay(const QVariant& value) const;
    void setObjectValue(const QVariant& value, int columnIdentifier, int row);
    void tableViewSelectionDidChange(const KyvarQuorviTableView* table);
    void reloadTableViewDataQuietly(const KyvarQuorviTableView* table);
    bool handleMouseEvent(const QMouseEvent& event, int type, KyvarQuorviTableView* table) override;
    void handleKeyPressed(char16_t key, KyvarQuorviTableView* table, int row) override;
    /// Performs the command of a context or gear menu's item.
    void actionMenuTableContext(QAction* item);

    // Profiles (editors/ProfilesEditor.cpp)
    /// Appends a new profile, or a copy of the current one, makes it current and lets its name be edited.
    /// Does nothing when there are five.
    void createNewProfile(bool duplicate);
    void actionButtonProfileAdd();
    void actionButtonProfileRemove();
    void actionBoxProfileOSD();
    /// Binds the current profile to the application: a bundle, a desktop entry or any other file. One without
    /// a name or a program changes nothing.
    void assignApplication(const QString& path);
    void assignApplication(const ApplicationPanel* panel, int returnCode);

    // Macros and their steps (editors/MacrosEditor.cpp, editors/StepsEditor.cpp)
    void actionButtonMacroAdd();
    void actionButtonMacroRemove();
    void actionButtonStepAdd();
    void actionButtonStepRecord();
    void actionButtonStepRemove();
    /// Every step of the current macro waits that long, in milliseconds, except the last, which has nothing
    /// to wait for.
    void setDelayForAllSteps(std::int32_t milliseconds);

    // Import and export (editors/ImportExport.cpp). The panels end with QDialog::Accepted or not.
    void exportProfile(const QFileDialog* panel, int returnCode);
    void exportMacro(const QFileDialog* panel, int returnCode);
    void importProfile(const QFileDialog* panel, int returnCode);
    void importMacro(const QFileDialog* panel, int returnCode);
    void importProfileCompletion(const QString& path);
    void importMacroCompletion(const QString& path);

    // What others may ask
    [[nodiscard]] bool hasDevice() const { return fDocument.hasDevice(); }
    [[nodiscard]] bool panelIsFront() const { return fPanelIsFront; }
    [[nodiscard]] std::int32_t profileIndex() const { return fDocument.profileIndex(); }
    [[nodiscard]] std::int32_t macroIndex() const { return fDocument.macroIndex(); }
    [[nodiscard]] const plist::Dictionary& deviceConfig() const { return fDocument.tree(); }

  private:
    void connectActions();
    void connectMenu(QMenu& menu);
    void connectTables();
    [[nodiscard]] std::array<KyvarQuorviTableView*, 4> tables() const;
    [[nodiscard]] TableList& listOf(const KyvarQuorviTableView* table) const;
    void makeEditors();
    [[nodiscard]] QString profileInUse() const;
    /// Names the keys, from then on by the layout in use.
    void followKeyboardLayout();
    /// Reads the names of the keys from the layout in use.
    void nameKeys();
    /// Shows every key by its name on the layout that is in use now.
    void keyboardLayoutDidChange();
    void showVersion();
    /// Mirrors the panel when the language that it speaks is written from the right.
    void followLanguage();
    /// What every part of the panel is given; all of it is there before the parts are.
    [[nodiscard]] EditorContext editorContext();
    [[nodiscard]] std::unique_ptr<Occupation> makeOccupation() const;
    void makeKeyCapture();
    void updateConnectionUI();

    void showDocument(Shown shown) override;
    void saveDocument() override { fSession.save(fDocument.tree()); }
    void saveDocumentLater() override { fSession.saveLater(); }

    void closeMenus();
    /// Fills the lists and the menus of names from the document.
    void showLists();
    void selectCurrentProfileQuietly();
    void selectCurrentMacroQuietly();
    void updateProfilesUI();
    void updateMacrosUI();
    void updateStepsUI();
    void updateHints();
    void reloadData(const KyvarQuorviTableView* table);
    void followSelection(const KyvarQuorviTableView* table);
    void renameProfile(const QVariant& value, int row);
    void renameMacro(const QVariant& value, int row);
    void switchToProfile(int row);
    void switchToMacro(int row);
    void showStepsOfMacro();
    void performTableCommand(int tag);
    [[nodiscard]] std::u16string untitledProfile() const;
    [[nodiscard]] std::u16string untitledMacro() const;
    void appendProfile(const plist::Dictionary& profile);
    void appendMacro(const plist::Dictionary& macro);
    [[nodiscard]] bool canRemoveProfile() const;
    void showApplicationPanel();
    void bindToApplication(const ApplicationInformation& application);
    void askForApplication();
    void removeApplication();
    void showProfileApplication(Saving saving);
    [[nodiscard]] QString textOfStep(int row) const;
    [[nodiscard]] QString textOfStep(const plist::Dictionary& step) const;
    /// The index of the item of the delay menu that shows the step's delay, -1 for none; "" past the end.
    [[nodiscard]] QVariant delayOfStep(int row) const;
    void setDelayOfStep(const QVariant& value, int row);
    void removeAllSteps();
    void useDelayOfStepForAll();
    void showImportProfilePanel();
    void showExportProfilePanel();
    void showImportMacroPanel();
    void showExportMacroPanel();
    /// locString() for what is no part of the panel. Does not outlive it.
    [[nodiscard]] PanelText panelText() const;
    [[nodiscard]] QString proposedName(ItemKind kind) const;
    void exportItem(ItemKind kind, const plist::Dictionary& item, const QString& chosen);
    /// False when the file is no good or there is no room, which the user is told.
    [[nodiscard]] bool mayImport(ItemKind kind, ItemFault fault, const QString& path);
    void tellOfImport(ItemKind kind, const plist::Dictionary& item);

    PaneServices fServices;
    QPointer<QWidget> fMainView; ///< deleted with this object, unless a host's window was quicker
    std::unique_ptr<Interface> fViews;
    Sheets fSheets;
    Notices fNotices;
    Document fDocument{*this};
    HelperLink fHelperLink;
    SettingsSession fSession;
    std::array<std::unique_ptr<TableList>, 3> fLists; ///< profiles, macros, steps; as of mainViewDidLoad()
    FocusObserver fFocus;
    std::unique_ptr<KeyboardLayoutWatcher> fKeyboardLayout; ///< null until followKeyboardLayout()

    bool fPanelIsFront = false;
    bool fBluetoothWarningDone = false;
    QString fStringNoMacros;     ///< what an empty list of macros says
    QString fStringNoMacroTitle; ///< what stands in place of the steps without a macro
    QString fStringNoMacro;      ///< the same, below it
    QString fStringProfilesHint; ///< what stands below the list of profiles

    // The editors; never null.
    std::unique_ptr<AssignmentEditor> fAssignment;
    std::unique_ptr<SensitivityEditor> fSensitivity;
    std::unique_ptr<StagesEditor> fStages;
    std::unique_ptr<DeviceEditor> fDevice;

    std::unique_ptr<Recording> fRecording;           ///< never null
    std::unique_ptr<SingleKeyPanel> fSingleKeyPanel; ///< never null
    std::unique_ptr<KeyCapture> fKeyCapture;         ///< never null; asks the two for what they want
};

/// The one live controller of the process, or null: what the key patch and the sliders reach it by.
extern KyvarQuorviPane* gKyvarQuorviPane;

} // namespace quorvi
