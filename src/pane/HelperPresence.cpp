// Whether the helper application runs: it is started where it does not, and the user is told.

#include <QLabel>

#include <utility>

#include "live/LiveHelper.h"
#include "model/Keys.h"
#include "pane/HelperName.h"
#include "pane/KyvarQuorviPane.h"
#include "pane/loginitems/LoginItems.h"
#include "resources/Interface.h"
#include "widgets/NoticeBar.h"
#include "widgets/ShownText.h"

namespace quorvi {

namespace {

std::string helperApplication(const Bundle& bundle) {
    return bundle.resourcePath() + "/" + kHelperName + ".app";
}

} // namespace

void KyvarQuorviPane::startHelper() {
    if (findProcessByName(kHelperName, nullptr) != noErr)
        launchHelper();
    // Running or not, it is to start with every session from now on.
    AddLoginItem(
        *fServices.loginItems, helperApplication(fServices.bundle), std::nullopt, false, true, nullptr);
}

void KyvarQuorviPane::launchHelper() {
    const QString application = QString::fromStdString(helperApplication(fServices.bundle));
    fHelperStarting = fServices.workspace->launchApplication(application, [this] {
        fHelperStarting = false;
        followHelper();
    });
}

void KyvarQuorviPane::makeLive() {
    const auto profileName = [this](std::uint32_t number) {
        if (number < 1 || number > fDocument.profiles().size())
            return QString();
        const QString name = shownName(
            QString::fromStdU16String(fDocument.profiles().dictionary(number - 1).string(keys::name)));
        return name.isEmpty() ? locString(QStringLiteral("Default Profile")) : name;
    };
    fLive = std::make_unique<LiveHelper>(LiveHelper::Panel{.view = *fMainView,
        .views = fViews->main,
        .setUpPanel = *fViews->quorviPanelSetUp,
        .setUpViews = fViews->setUp,
        .text = panelText(),
        .profileName = profileName,
        .runSheet = [this](QDialog& sheet) { fSheets.run(&sheet); }});
    connect(fLive.get(), &LiveHelper::changed, this, &KyvarQuorviPane::updateConnectionUI);
    connect(fLive.get(), &LiveHelper::changed, this, &KyvarQuorviPane::showRunningRow);
    connect(fLive.get(), &LiveHelper::runningChanged, this, &KyvarQuorviPane::followRunningStage);
    connect(fLive.get(), &LiveHelper::failed, this,
        [this](const QString& text) { fNotices.tell(Notice::outcome, text, NoticeSign::warning); });
}

void KyvarQuorviPane::startFollowingHelper() {
    fFollowsHelper = true;
    fHelper = {};
    fListHasCome = false;
    if (fServices.bus)
        fServices.bus->onProcessesChanged([this] { followHelper(); });
    followHelper();
}

void KyvarQuorviPane::stopFollowingHelper() {
    fFollowsHelper = false;
    if (fServices.bus)
        fServices.bus->onProcessesChanged(nullptr);
    fLive->stop();
}

void KyvarQuorviPane::followHelper() {
    if (!fFollowsHelper || !fMainView)
        return;
    ProcessSerialNumber helper;
    const Status found = findProcessByName(kHelperName, &helper);
    if (found == errAETimeout)
        return; // a bus that is busy says neither
    if (std::exchange(fHelper, helper) != helper)
        fListHasCome = false; // what another one knows of the mouse is yet to be heard
    if (fServices.bus)
        fLive->follow(*fServices.bus, helper);
    fHelperStarting = fHelperStarting && found != noErr;
    fHelperGone = found != noErr && (fHelperGone || !fHelperStarting);
    if (fHelperGone)
        fNotices.tell(Notice::helperGone,
            locString(QStringLiteral("The background program is not running. Changes are saved and reach the "
                                     "mouse when it is back.")),
            NoticeSign::warning);
    else
        fNotices.withdraw(Notice::helperGone);
    updateConnectionUI();
}

void KyvarQuorviPane::bringHelperBack() {
    followHelper();
    // A program takes a while to start: in a drag, which saves all the time, that would be felt. Without a
    // bus it would end at once.
    if (fFollowsHelper && fHelperGone && !fHelperStarting && !fDragging && fServices.bus &&
        fServices.bus->isConnected())
        launchHelper();
}

void KyvarQuorviPane::tellHelperOfSave() {
    Status told = sendMessageToHelper(kMessageSettingsSaved, fDocument.profileIndex());
    // A bus that is too busy to say who the helper is still carries what the known one is sent. Where another
    // has taken its place meanwhile, that one reads the file as it starts.
    if (told == errAETimeout)
        told = fServices.bus->send(fHelper, makeCommand(kMessageSettingsSaved, fDocument.profileIndex()));
    if (told != noErr)
        bringHelperBack();
}

QString KyvarQuorviPane::connectionText() const {
    if (fHelperGone)
        return locString(QStringLiteral("The background program is not running."));
    if (!fListHasCome)
        return locString(QStringLiteral("Looking for the mouse…"));
    return hasDevice()
               ? fLive->connectionText()
               : locString(QStringLiteral("Switch the mouse on, and plug its cable or its receiver in."));
}

void KyvarQuorviPane::updateConnectionUI() {
    const QString text = connectionText();
    fViews->main.quorviTextConnection->setText(text);
    fViews->main.textNoMacro->setText(hasDevice() ? fStringNoMacro : text);
}

} // namespace quorvi
