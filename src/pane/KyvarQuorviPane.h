// The controller of the panel, used by the host, the outlets and the actions. It creates the parts and
// forwards each call to one of them; the part's header describes the call.
//
// An impossible action does nothing; a possible loss of the user's work is reported at the bottom of the
// window.
#pragma once

#include <QObject>
#include <QPointer>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "document/Document.h"
#include "pane/FileToOpen.h"
#include "pane/KeyNaming.h"
#include "pane/PaneServices.h"
#include "platform/FocusObserver.h"
#include "platform/PreferencePane.h"
#include "session/HelperLink.h"
#include "session/SettingsSession.h"
#include "widgets/KyvarQuorviTableView.h"
#include "window/Notices.h"
#include "window/Sheets.h"

class QAbstractButton;
class QAction;
class QFileDialog;

namespace quorvi {

class ApplicationPanel;
struct Editors;
class Interface;
class KeyCapture;
class KyvarQuorviSlider;
struct KeyEvent;
class PopUpButton;

class KyvarQuorviPane final : public QObject,
                              public PreferencePane,
                              public FileOpeningPane,
                              private TableDelegate,
                              private DocumentOwner {
    Q_OBJECT
    Q_INTERFACES(quorvi::FileOpeningPane)

  public:
    explicit KyvarQuorviPane(PaneServices services);
    ~KyvarQuorviPane() override;

    // Lifecycle
    [[nodiscard]] QWidget* mainView() override;
    void mainViewDidLoad() override;
    void didSelect() override;
    void willUnselect() override;
    /// A backup, a profile or a macro, by its name.
    [[nodiscard]] bool opens(const QString& path) const override;
    /// Asks about a backup, profile or macro as soon as there are settings and no sheet is open.
    void openFile(const QString& path) override;
    void sysPrefDidResignActive();
    void sysPrefWindowDidBecomeKey();
    void sysPrefWindowDidResignKey();
    void tabViewDidSelectTabViewItem();

    // The helper (session/HelperLink.h)
    Status sendMessageToHelper(FourCharCode message, std::int32_t param);
    Status sendControlToKext(
        const std::string& processName, FourCharCode message, std::int32_t param, std::int32_t* result);
    Status findProcessByName(const std::string& processName, ProcessSerialNumber* psn) const;

    // The settings (session/SettingsSession.h, document/Document.h)
    [[nodiscard]] plist::Dictionary getDefaultSettings() const;
    [[nodiscard]] plist::Dictionary loadSettings();
    bool saveSettings(const plist::Dictionary& tree);
    void dragDidBegin();
    void dragDidEnd();
    /// Called by a slider at the end of a drag; the device follows through the saved file.
    void updateDpiOnMouse() {}
    void editProfileIndex(std::int32_t index) { fDocument.editProfileIndex(index); }
    void editMacroIndex(std::int32_t index) { fDocument.editMacroIndex(index); }
    [[nodiscard]] std::int32_t profileIndex() const { return fDocument.profileIndex(); }
    [[nodiscard]] std::int32_t macroIndex() const { return fDocument.macroIndex(); }
    [[nodiscard]] const plist::Dictionary& deviceConfig() const { return fDocument.tree(); }
    [[nodiscard]] bool hasDevice() const { return fDocument.hasDevice(); }

    // The window (pane/Editors.h, window/Sheets.h)
    /// Re-reads the settings and shows them. The first time without a mouse, explains how to connect one.
    void syncUIWithDeviceConfig();
    void updateUI();
    [[nodiscard]] bool panelIsFront() const { return fPanelIsFront; }
    /// The text for the key in the user's language; the key itself if the string table has none.
    [[nodiscard]] QString locString(const QString& key) const;
    int modalDialog(QDialog* panel);
    void actionButtonModalOK();
    void actionButtonModalCancel();
    /// Asks the question of the message key, with the item, if any, in place of its first "^1".
    bool confirmAction(const QString& messageKey, const std::optional<QString>& item);

    // Button assignment (editors/assignment)
    void updateMenu(PopUpButton* popUp, int assignment);
    void updateMacrosSubmenu();
    void updateProfilesSubmenu();
    [[nodiscard]] QString explanationOfInput(int input) const;
    void actionMenuButtonAssignment(PopUpButton* popUp);
    void actionSubmenuButtonMacro(QAction* item);
    void actionSubmenuButtonProfile(QAction* item);

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
    void updateAccelerationView();

    // Stages (editors/stages)
    void editSensitivityStages();
    /// The same with that stage selected, from 0.
    void editSensitivityStagesAt(std::int32_t stage);
    void editStageIndex(std::int32_t index);
    void actionButtonStageAdd();
    void actionButtonStageRemove();
    void actionSliderStagesSensitivityX(KyvarQuorviSlider* slider);
    void actionSliderStagesSensitivityY(KyvarQuorviSlider* slider);
    void actionBoxStagesIndependentXY(QAbstractButton* box);
    void updateSensitivityStagesUI();

    // The device (editors/device)
    void actionMenuPollingRate();
    void actionBoxLightOnWheel();
    void actionBoxLightOnBattery();
    void actionButtonRestoreDefaults();
    void actionButtonCheckUpdates();
    void actionButtonHelp();

    // Backups and earlier settings (editors/backups)
    void actionButtonBackUp();
    void actionButtonRestoreBackup();
    void actionButtonEarlierSettings();

    // Keys and recordings (capture/KeyCapture.h, editors/keys, editors/recording)
    void startStopRecording(bool start, bool oneStep);
    /// The modifiers of these two are not stored.
    void setMacroStep(std::uint32_t code, std::uint8_t argument, std::uint16_t modifiers, std::int32_t index);
    void appendMacroStep(std::uint32_t code, std::uint8_t argument, std::uint16_t modifiers);
    /// The code of the step that ends, or began, what the code does (macros/StepCodes.h).
    static std::uint32_t matchingCommand(std::uint32_t code, bool* isDown);
    [[nodiscard]] bool isRecordingMacro() const;
    /// Whether a recording that ends with its first step is running.
    [[nodiscard]] bool awaitsOneStep() const;
    /// Whether a capture is active, which receives every key.
    [[nodiscard]] bool overrideSingleKeys() const;
    /// Whether a recording is running, which receives clicks in the tables.
    [[nodiscard]] bool overrideMouseEvents() const;
    /// A key event while a capture is active. The key is a virtual key code, 255 for none; the modifiers are
    /// the modifier word after the event. Returns true if the event is used up.
    bool receiveSingleKey(
        std::uint8_t key, char16_t character, std::uint16_t modifiers, bool goingDown, const KeyEvent& event);
    void followModifiers(std::uint16_t modifiers);
    void updateKeyboardGrab();
    /// The key shown in the single-key panel, as a virtual key code; 255 for none.
    [[nodiscard]] std::uint8_t singleKeyCode() const;
    /// The implementation of the functions in pane/EventPatch.h.
    [[nodiscard]] KeyCapture& keyCapture();

    // Lists with their menus (editors/profiles, editors/macros, window/TableList.h, window/MenuCommands.h)
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
    void actionButtonProfileAdd();
    void actionButtonProfileRemove();
    void actionButtonProfileApplication();
    void actionBoxProfileOSD();
    void assignApplication(const QString& path);
    void assignApplication(const ApplicationPanel* panel, int returnCode);
    void actionButtonMacroAdd();
    void actionButtonMacroRecord();
    void actionButtonMacroRemove();
    void actionButtonStepAdd();
    void actionButtonStepRecord();
    void actionButtonStepRemove();
    void actionButtonMacroPlay();
    /// Ends the macro being tried, if there is one.
    void stopTrial();
    [[nodiscard]] bool isTryingMacro() const;
    void setDelayForAllSteps(std::int32_t milliseconds);

    // Undo (document/UndoStack.h, pane/UndoControls.h)
    void actionButtonUndo();
    void actionButtonRedo();

    // Files of single profiles and macros (editors/files)
    void exportProfile(const QFileDialog* panel, int returnCode);
    void exportMacro(const QFileDialog* panel, int returnCode);
    void importProfile(const QFileDialog* panel, int returnCode);
    void importMacro(const QFileDialog* panel, int returnCode);
    void importProfileCompletion(const QString& path);
    void importMacroCompletion(const QString& path);

  private:
    void showDocument(Shown shown) override;
    void saveDocument() override { fSession.save(fDocument.tree()); }
    void saveDocumentLater() override { fSession.saveLater(); }
    void undoHasChanged() override;
    void actionHasBegun() override { fNotices.withdrawOffer(); }

    [[nodiscard]] PanelText panelText() const;
    [[nodiscard]] Sheets::Views sheetViews() const;
    [[nodiscard]] HelperLink::Panel helperPanel();
    [[nodiscard]] SettingsSession::Panel sessionPanel();
    [[nodiscard]] EditorContext editorContext();
    [[nodiscard]] FileToOpen::Panel fileReceiver();
    void connectParts();
    void showKeyNames();
    void showVersion();
    void followLanguage();
    void closeMenus();

    PaneServices fServices;
    QPointer<QWidget> fMainView; ///< deleted with this object, unless a host's window has deleted it before
    std::unique_ptr<Interface> fViews;
    Sheets fSheets;
    Notices fNotices;
    Document fDocument{*this};
    HelperLink fHelperLink;
    SettingsSession fSession;
    std::unique_ptr<Editors> fEditors; ///< never null
    FileToOpen fFileToOpen;
    KeyNaming fKeyNaming;
    FocusObserver fFocus;
    bool fPanelIsFront = false;
    bool fBluetoothWarningDone = false;
};

/// The one live controller of the process, or null.
extern KyvarQuorviPane* gKyvarQuorviPane;

} // namespace quorvi
