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

class ApplicationPanel;
class AssignmentEditor;
class DeviceEditor;
class Interface;
class KeyCapture;
class KyvarQuorviSlider;
struct KeyEvent;
struct ListEditors;
class PopUpButton;
class Recording;
struct RunningRow;
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

    // Lists, their gear and context menus, and files of single items (editors/profiles, editors/macros,
    // editors/files)
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
    void actionButtonStepRecord() { startStopRecording(!isRecordingMacro(), false); }
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
    [[nodiscard]] std::int32_t profileIndex() const { return fDocument.profileIndex(); }
    [[nodiscard]] std::int32_t macroIndex() const { return fDocument.macroIndex(); }
    [[nodiscard]] const plist::Dictionary& deviceConfig() const { return fDocument.tree(); }

  private:
    void connectActions();
    void connectMenu(QMenu& menu);
    void connectTables();
    [[nodiscard]] std::array<KyvarQuorviTableView*, 4> tables() const;
    [[nodiscard]] TableList* listWithTag(int tag) const;
    [[nodiscard]] TableList* listWithColumn(int columnIdentifier) const;
    [[nodiscard]] RunningRow runningRow() const;
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
    /// locString() for what is no part of the panel. Does not outlive it.
    [[nodiscard]] PanelText panelText() const;
    void makeListEditors();

    PaneServices fServices;
    QPointer<QWidget> fMainView; ///< deleted with this object, unless a host's window was quicker
    std::unique_ptr<Interface> fViews;
    Sheets fSheets;
    Notices fNotices;
    Document fDocument{*this};
    HelperLink fHelperLink;
    SettingsSession fSession;
    FocusObserver fFocus;
    std::unique_ptr<KeyboardLayoutWatcher> fKeyboardLayout; ///< null until followKeyboardLayout()

    bool fPanelIsFront = false;
    bool fBluetoothWarningDone = false;

    // The editors; never null.
    std::unique_ptr<AssignmentEditor> fAssignment;
    std::unique_ptr<SensitivityEditor> fSensitivity;
    std::unique_ptr<StagesEditor> fStages;
    std::unique_ptr<DeviceEditor> fDevice;
    std::unique_ptr<ListEditors> fListEditors;

    std::unique_ptr<Recording> fRecording;           ///< never null
    std::unique_ptr<SingleKeyPanel> fSingleKeyPanel; ///< never null
    std::unique_ptr<KeyCapture> fKeyCapture;         ///< never null; asks the two for what they want
};

/// The one live controller of the process, or null: what the key patch and the sliders reach it by.
extern KyvarQuorviPane* gKyvarQuorviPane;

} // namespace quorvi
