// The controller of the panel, as the host, the outlets and the actions know it. It makes the parts and hands
// each call to the part that it is for, whose header says what the call does.
//
// An action that is not possible does nothing; what would cost the user work is told at the window's foot.
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
    /// Asks about a backup, profile or macro as soon as there are settings and no sheet is up.
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
    /// The hook that a slider calls when a drag has ended; the device follows through the saved file.
    void updateDpiOnMouse() {}
    void editProfileIndex(std::int32_t index) { fDocument.editProfileIndex(index); }
    void editMacroIndex(std::int32_t index) { fDocument.editMacroIndex(index); }
    [[nodiscard]] std::int32_t profileIndex() const { return fDocument.profileIndex(); }
    [[nodiscard]] std::int32_t macroIndex() const { return fDocument.macroIndex(); }
    [[nodiscard]] const plist::Dictionary& deviceConfig() const { return fDocument.tree(); }
    [[nodiscard]] bool hasDevice() const { return fDocument.hasDevice(); }

    // The window (pane/Editors.h, window/Sheets.h)
    /// Reads the settings afresh and shows them. The first time without a mouse says how to connect one.
    void syncUIWithDeviceConfig();
    void updateUI();
    [[nodiscard]] bool panelIsFront() const { return fPanelIsFront; }
    /// The text for the key in the user's language; the key itself when the string table has none.
    [[nodiscard]] QString locString(const QString& key) const;
    int modalDialog(QDialog* panel);
    void actionButtonModalOK();
    void actionButtonModalCancel();
    /// Asks the question of the message key, with the item (nothing: none) in place of its first "^1".
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
    void actionBoxProfileOSD();
    void assignApplication(const QString& path);
    void assignApplication(const ApplicationPanel* panel, int returnCode);
    void actionButtonMacroAdd();
    void actionButtonMacroRemove();
    void actionButtonStepAdd();
    void actionButtonStepRecord();
    void actionButtonStepRemove();
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
    QPointer<QWidget> fMainView; ///< deleted with this object, unless a host's window was quicker
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
