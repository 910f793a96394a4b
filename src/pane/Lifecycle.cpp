// Loading, showing and hiding the pane, and following the focus of its window.

#include <QGuiApplication>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>

#include "assignment/EventPatch.h"
#include "base/Leftovers.h"
#include "keyboard/KeyNames.h"
#include "live/LiveHelper.h"
#include "model/SettingsDocument.h"
#include "pane/KyvarQuorviPane.h"
#include "pane/ListEditors.h"
#include "platform/EventBusNotifier.h"
#include "platform/InterfaceText.h"
#include "resources/Interface.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/ShownText.h"
#include "window/TableList.h"

namespace quorvi {

KyvarQuorviPane* gKyvarQuorviPane = nullptr;

namespace {

/// The views with the texts that the lookup gives.
std::unique_ptr<Interface> makeInterface(QWidget& mainView, const InterfaceTextLookup& lookup) {
    setInterfaceTextLookup([&lookup](const QString& english) { return inItsDirection(lookup(english)); });
    auto views = std::make_unique<Interface>(mainView);
    setInterfaceTextLookup(nullptr);
    return views;
}

} // namespace

KyvarQuorviPane::KyvarQuorviPane(PaneServices services)
    : fServices(std::move(services)), fSettingsFile(userSettingsFile(fServices.homeFolder, fServices.files)),
      fMainView(new QWidget),
      fViews(makeInterface(*fMainView, [this](const QString& english) { return locString(english); })),
      fSheets({.mainView = fMainView,
                  .confirmPanel = fViews->quorviPanelConfirm,
                  .question = fViews->confirm.quorviTextConfirm,
                  .confirmButton = fViews->confirm.quorviConfirmButtonOK,
                  .cancelButton = fViews->confirm.quorviConfirmButtonCancel},
          panelText()),
      fNotices(*fMainView, panelText()) {
    if (fServices.bus)
        fBusNotifier = std::make_unique<EventBusNotifier>(*fServices.bus);
    makeLive();
    makeListEditors();
    connect(
        &fFocus, &FocusObserver::applicationDidResignActive, this, &KyvarQuorviPane::sysPrefDidResignActive);
    connect(&fFocus, &FocusObserver::windowDidBecomeKey, this, &KyvarQuorviPane::sysPrefWindowDidBecomeKey);
    connect(&fFocus, &FocusObserver::windowDidResignKey, this, &KyvarQuorviPane::sysPrefWindowDidResignKey);
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &KyvarQuorviPane::updateKeyboardGrab);
    connect(&fSettingsWatcher, &FileWatcher::fileChanged, this, &KyvarQuorviPane::followSettingsFile);
    fViews->quorviPanelSingleKey->installEventFilter(this);
}

KyvarQuorviPane::~KyvarQuorviPane() {
    // A host that drops a shown pane must not be left asking it for keys, nor the user without what was
    // recorded or is in no file yet.
    if (fRecorder.isRecording()) {
        sendMessageToHelper(kMessageRecording, 0);
        fUnsavedEdits = true;
    }
    static_cast<void>(saveUnsavedEdits());
    if (gPatchedPane == this)
        KyvarQuorviSwapNSAppMethods(this);
    if (gKyvarQuorviPane == this)
        gKyvarQuorviPane = nullptr;
    delete fMainView;
}

QWidget* KyvarQuorviPane::mainView() {
    return fMainView;
}

void KyvarQuorviPane::mainViewDidLoad() {
    gKyvarQuorviPane = this;
    fPanelIsFront = true;
    fBluetoothWarningDone = false;
    fDocument.setHasDevice(false);
    connectActions();
    connectTables();
    fViews->main.quorviTabsMain->setCurrentIndex(0);
    fViews->main.quorviTabsMain->setFocus(); // from here Ctrl+Tab and the arrow keys change the tab
    startHelper();
    fillAssignmentMenus();
    followLanguage();
    fStringRecord = fViews->main.quorviButtonStepRecord->text();
    fStringStop = fViews->main.quorviButtonStepRecord->property("alternateTitle").toString();
    fStringRecordDescription = fViews->main.quorviButtonStepRecord->accessibleDescription();
    fStringNoSteps = fViews->main.quorviTableSteps->emptyText();
    fStringNoMacro = fViews->main.textNoMacro->text();
    showVersion();
    // Nobody has to wait for this: it is done while the window is on its way to the screen. A mouse's list,
    // with which keys are shown, is dealt with behind it.
    QMetaObject::invokeMethod(
        this,
        [this] {
            followKeyboardLayout();
            removeLeftovers(fSettingsFile.path(), fServices.files);
        },
        Qt::QueuedConnection);
}

void KyvarQuorviPane::followKeyboardLayout() {
    if (fServices.watchKeyboardLayout) {
        fKeyboardLayout = fServices.watchKeyboardLayout();
        connect(fKeyboardLayout.get(), &KeyboardLayoutWatcher::layoutChanged, this,
            &KyvarQuorviPane::keyboardLayoutDidChange);
    }
    nameKeys();
}

void KyvarQuorviPane::nameKeys() {
    GetKeyboardInformation([this](std::u16string_view key) {
        return locString(QString::fromUtf16(key.data(), int(key.size()))).toStdU16String();
    });
}

void KyvarQuorviPane::keyboardLayoutDidChange() {
    nameKeys();
    reloadTableViewDataQuietly(fViews->main.quorviTableSteps);
    showSingleKey();
    updateUI();
}

void KyvarQuorviPane::showVersion() {
    auto version = fServices.bundle.infoString("CFBundleShortVersionString");
    if (!version)
        version = fServices.bundle.infoString("CFBundleVersion");
    if (version)
        fViews->main.quorviTextDriverVersion->setText(QString::fromStdU16String(*version));
}

// The language of the texts decides, not the host's: a host may well speak one that the panel does not.
void KyvarQuorviPane::followLanguage() {
    const std::string language = fServices.bundle.languageOfTable("Localizable");
    setLayoutDirection(*fMainView, QLocale(QString::fromStdString(language)).textDirection());
}

void KyvarQuorviPane::didSelect() {
    fDocument.setHasDevice(false);
    fFocus.start(fMainView->window());
    installDeviceListHandler();
    startFollowingHelper();
    sendMessageToHelper(kMessagePaneShown, 1);
    KyvarQuorviSwapNSAppMethods(this);
    // Nothing is known of the mouse before its list arrives, so that is what the panel has to show.
    updateUI();
}

void KyvarQuorviPane::willUnselect() {
    startStopRecording(false, false);
    closeMenus();
    dragDidEnd();
    KyvarQuorviSwapNSAppMethods(this);
    updateKeyboardGrab();
    sendMessageToHelper(kMessagePaneShown, 0);
    stopFollowingHelper();
    removeEventHandlers();
    fFocus.stop();
    fSettingsWatcher.stop();
    fFollowLater.reset();
    if (fDocument.tree()) {
        if (fMainView && !fUnsavedEdits && othersChangedSettings(fSettingsFile))
            showSettingsOfFile(Repairs::inMemoryAlone); // what is saved now is to be theirs
        // A tree that no file has is held until it can be saved; nothing is read over it.
        if (saveSettings(fDocument.tree()))
            fDocument.setTree({});
    }
    if (!fDocument.tree())
        fSettingsFile.forget();
    fMergedUnshown = false;
    fDocument.editProfileIndex(-1);
    fDocument.editMacroIndex(-1);
}

// A menu is a window of its own, and would stay. The view may have gone before, with the host's window.
void KyvarQuorviPane::closeMenus() {
    if (!fMainView)
        return;
    for (QMenu* menu : fMainView->findChildren<QMenu*>())
        menu->close();
}

void KyvarQuorviPane::sysPrefDidResignActive() {
    fPanelIsFront = false;
}

void KyvarQuorviPane::sysPrefWindowDidBecomeKey() {
    fPanelIsFront = true;
    updateUI();
    bringHelperBack();
    retryFailedSave();
    followSettingsFile();
}

void KyvarQuorviPane::sysPrefWindowDidResignKey() {
    startStopRecording(false, false);
    // An edit that the user left standing is called off, not committed.
    for (KyvarQuorviTableView* table : tables())
        table->abortEditing();
}

void KyvarQuorviPane::tabViewDidSelectTabViewItem() {
    startStopRecording(false, false);
}

} // namespace quorvi
