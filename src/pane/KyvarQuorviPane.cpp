// How the panel is made, loaded, shown and hidden, and how it follows the focus of its window.

#include "pane/KyvarQuorviPane.h"

#include <QApplication>
#include <QLocale>
#include <QMenu>
#include <QTabWidget>

#include <utility>
#include <vector>

#include "editors/backups/DroppedFile.h"
#include "live/LiveHelper.h"
#include "pane/Actions.h"
#include "pane/EditorViews.h"
#include "pane/Editors.h"
#include "pane/EventPatch.h"
#include "platform/InterfaceText.h"
#include "resources/Interface.h"
#include "widgets/ShownText.h"

namespace quorvi {

KyvarQuorviPane* gKyvarQuorviPane = nullptr;

namespace {

/// Creates the views with the lookup's texts.
std::unique_ptr<Interface> makeInterface(QWidget& mainView, const InterfaceTextLookup& lookup) {
    setInterfaceTextLookup([&lookup](const QString& english) { return inItsDirection(lookup(english)); });
    auto views = std::make_unique<Interface>(mainView);
    setInterfaceTextLookup(nullptr);
    return views;
}

} // namespace

KyvarQuorviPane::KyvarQuorviPane(PaneServices services)
    : fServices(std::move(services)), fMainView(new QWidget),
      fViews(makeInterface(*fMainView, [this](const QString& english) { return locString(english); })),
      fSheets(sheetViews(), panelText()), fNotices(*fMainView, panelText()), fHelperLink(helperPanel()),
      fSession(sessionPanel()), fEditors(std::make_unique<Editors>(Editors::Panel{.context = editorContext(),
                                    .mainView = *fMainView,
                                    .views = *fViews,
                                    .services = fServices,
                                    .helper = fHelperLink,
                                    .session = fSession,
                                    .isShown = [this] { return gPatchedPane == this; }})),
      fFileToOpen(fileReceiver()), fKeyNaming(panelText()) {
    connectParts();
    new DroppedFile(
        *fMainView, {.takes = [this](const QString& path) { return opens(path) && fFileToOpen.canOpen(); },
                        .open = [this](const QString& path) { openFile(path); }});
}

KyvarQuorviPane::~KyvarQuorviPane() {
    // If a host destroys a shown pane, it must not query it for keys any more, and recorded steps and unsaved
    // changes must not be lost.
    if (isRecordingMacro()) {
        sendMessageToHelper(kMessageRecording, 0);
        fSession.noteUnsavedEdits();
    }
    static_cast<void>(fSession.saveUnsavedEdits());
    if (gPatchedPane == this)
        KyvarQuorviSwapNSAppMethods(this);
    if (gKyvarQuorviPane == this)
        gKyvarQuorviPane = nullptr;
    delete fMainView;
}

PanelText KyvarQuorviPane::panelText() const {
    return [this](const char* key) { return locString(QString::fromUtf8(key)); };
}

EditorContext KyvarQuorviPane::editorContext() {
    return {.document = fDocument, .text = panelText(), .sheets = fSheets, .notices = fNotices};
}

Sheets::Views KyvarQuorviPane::sheetViews() const {
    return {.mainView = fMainView,
        .confirmPanel = fViews->quorviPanelConfirm,
        .question = fViews->confirm.quorviTextConfirm,
        .confirmButton = fViews->confirm.quorviConfirmButtonOK,
        .cancelButton = fViews->confirm.quorviConfirmButtonCancel};
}

HelperLink::Panel KyvarQuorviPane::helperPanel() {
    return {.context = editorContext(),
        .view = *fMainView,
        .views = *fViews,
        .bundle = fServices.bundle,
        .bus = fServices.bus.get(),
        .workspace = *fServices.workspace,
        .loginItems = *fServices.loginItems,
        .userIsDragging = [this] { return fSession.isDragging(); }};
}

SettingsSession::Panel KyvarQuorviPane::sessionPanel() {
    const auto tables = tablesOf(*fViews);
    return {.context = editorContext(),
        .view = *fMainView,
        .bundle = fServices.bundle,
        .homeFolder = fServices.homeFolder,
        .files = fServices.files,
        .copies = {.folder = fServices.historyFolder, .now = fServices.dateAndTime},
        .occupation = std::make_unique<Occupation>(
            std::vector<const KyvarQuorviTableView*>(tables.begin(), tables.end()), fSheets,
            [this] { return isRecordingMacro(); }),
        .showLists = [this] { fEditors->showLists(); }};
}

FileToOpen::Panel KyvarQuorviPane::fileReceiver() {
    return {.isFree =
                [this] {
                    return gPatchedPane == this && fDocument.tree() && !fSheets.isRunning() &&
                           !isRecordingMacro() && !QApplication::activeModalWidget();
                },
        .open = [this](const QString& path) { fEditors->backups.openFile(path); }};
}

bool KyvarQuorviPane::opens(const QString& path) const {
    return BackupsEditor::takes(path);
}

void KyvarQuorviPane::openFile(const QString& path) {
    fFileToOpen.open(path);
}

void KyvarQuorviPane::connectParts() {
    connect(&fSession, &SettingsSession::saved, &fHelperLink, &HelperLink::tellOfSave);
    // Even while a sheet is open.
    connect(
        &fHelperLink, &HelperLink::listCame, this,
        [this] {
            if (fHelperLink.takeList())
                syncUIWithDeviceConfig();
        },
        Qt::QueuedConnection);
    connect(&fHelperLink, &HelperLink::connectionChanged, this, [this] { fEditors->head.showConnection(); });
    connect(&fHelperLink.live(), &LiveHelper::changed, this, [this] { fEditors->showRunningRow(); });
    connect(
        &fHelperLink.live(), &LiveHelper::runningChanged, this, [this] { fEditors->followRunningStage(); });
    connect(&fSheets, &Sheets::ended, &fFileToOpen, &FileToOpen::tryLater);
    connect(&fKeyNaming, &KeyNaming::namesChanged, this, &KyvarQuorviPane::showKeyNames);
    connect(
        &fFocus, &FocusObserver::applicationDidResignActive, this, &KyvarQuorviPane::sysPrefDidResignActive);
    connect(&fFocus, &FocusObserver::windowDidBecomeKey, this, &KyvarQuorviPane::sysPrefWindowDidBecomeKey);
    connect(&fFocus, &FocusObserver::windowDidResignKey, this, &KyvarQuorviPane::sysPrefWindowDidResignKey);
}

QWidget* KyvarQuorviPane::mainView() {
    return fMainView;
}

void KyvarQuorviPane::mainViewDidLoad() {
    gKyvarQuorviPane = this;
    fPanelIsFront = true;
    fBluetoothWarningDone = false;
    fDocument.setHasDevice(false);
    connectActions(*this, *fMainView, *fViews);
    for (KyvarQuorviTableView* table : tablesOf(*fViews))
        table->setDelegate(this);
    fViews->main.quorviTabsMain->setCurrentIndex(0);
    fViews->main.quorviTabsMain->setFocus(); // from here Ctrl+Tab and the arrow keys change the tab
    fHelperLink.start();
    followLanguage();
    showVersion();
    // Done while the window is being shown, so no one waits for it. A device list, with which keys are shown,
    // is handled after it.
    QMetaObject::invokeMethod(
        this,
        [this] {
            fKeyNaming.start(fServices.watchKeyboardLayout);
            fSession.removeLeftovers();
        },
        Qt::QueuedConnection);
}

void KyvarQuorviPane::showKeyNames() {
    fEditors->steps.showKeyNames();
    fEditors->macros.showKeyNames();
    fEditors->singleKey.show();
    updateUI();
}

void KyvarQuorviPane::showVersion() {
    auto version = fServices.bundle.infoString("CFBundleShortVersionString");
    if (!version)
        version = fServices.bundle.infoString("CFBundleVersion");
    if (version)
        fViews->main.quorviTextDriverVersion->setText(QString::fromStdU16String(*version));
}

// The language of the texts decides, not the host's: a host may use one that the panel does not have.
void KyvarQuorviPane::followLanguage() {
    const std::string language = fServices.bundle.languageOfTable("Localizable");
    setLayoutDirection(*fMainView, QLocale(QString::fromStdString(language)).textDirection());
}

void KyvarQuorviPane::didSelect() {
    fDocument.setHasDevice(false);
    fFocus.start(fMainView->window());
    fHelperLink.open();
    fSession.open();
    KyvarQuorviSwapNSAppMethods(this);
    // Before its list arrives, the mouse is unknown, and the panel must show that.
    updateUI();
}

void KyvarQuorviPane::willUnselect() {
    fFileToOpen.forget();
    startStopRecording(false, false);
    stopTrial();
    closeMenus();
    dragDidEnd();
    KyvarQuorviSwapNSAppMethods(this);
    fHelperLink.close();
    fFocus.stop();
    fSession.close();
}

// A menu is a separate window, and would stay open. The view may already have been destroyed with the host's
// window.
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
    fHelperLink.bringBack();
    fSession.retryFailedSave();
    fSession.followFile();
    fFileToOpen.tryLater(); // a panel for files may have closed
}

void KyvarQuorviPane::sysPrefWindowDidResignKey() {
    startStopRecording(false, false);
    // An unfinished edit is cancelled, not committed.
    for (KyvarQuorviTableView* table : tablesOf(*fViews))
        table->abortEditing();
}

void KyvarQuorviPane::tabViewDidSelectTabViewItem() {
    startStopRecording(false, false);
    stopTrial();
}

void KyvarQuorviPane::syncUIWithDeviceConfig() {
    startStopRecording(false, false);
    fSession.readAfresh();
    updateSensitivityStagesUI();
    fFileToOpen.tryLater();
    if (!std::exchange(fBluetoothWarningDone, true) && !hasDevice())
        fSheets.run(fViews->quorviPanelNoDevice);
}

} // namespace quorvi
