// Tracks whether the helper application runs, starts it if not, and shows its state.

#include <utility>

#include "document/Document.h"
#include "live/LiveHelper.h"
#include "loginitems/LoginItems.h"
#include "model/Keys.h"
#include "platform/Bundle.h"
#include "platform/Workspace.h"
#include "resources/Interface.h"
#include "session/HelperLink.h"
#include "session/HelperName.h"
#include "widgets/ShownText.h"
#include "window/Notices.h"
#include "window/Sheets.h"

namespace quorvi {

std::unique_ptr<LiveHelper> HelperLink::makeLive() {
    auto live = std::make_unique<LiveHelper>(LiveHelper::Panel{.view = m_panel.view,
        .views = m_panel.views.main,
        .setUpPanel = *m_panel.views.quorviPanelSetUp,
        .setUpViews = m_panel.views.setUp,
        .text = m_panel.context.text,
        .profileName = [this](std::uint32_t number) { return profileName(number); },
        .runSheet = [this](QDialog& sheet) { m_panel.context.sheets.run(&sheet); }});
    connect(live.get(), &LiveHelper::changed, this, &HelperLink::connectionChanged);
    connect(live.get(), &LiveHelper::failed, this, [this](const QString& text) {
        m_panel.context.notices.tell(Notice::outcome, text, NoticeSign::warning);
    });
    return live;
}

QString HelperLink::profileName(std::uint32_t number) const {
    const plist::Array& profiles = m_panel.context.document.profiles();
    if (number < 1 || number > profiles.size())
        return {};
    const QString name =
        shownName(QString::fromStdU16String(profiles.dictionary(number - 1).string(keys::name)));
    return name.isEmpty() ? m_panel.context.text("Default Profile") : name;
}

std::string HelperLink::application() const {
    return m_panel.bundle.resourcePath() + "/" + kHelperName + ".app";
}

void HelperLink::start() {
    if (findProcess(kHelperName, nullptr) != noErr)
        launch();
    // Running or not, it must start with every session from now on.
    AddLoginItem(m_panel.loginItems, application(), std::nullopt, false, true, nullptr);
}

void HelperLink::launch() {
    const auto ended = [self = QPointer(this)] {
        if (!self)
            return;
        self->m_isStarting = false;
        self->follow();
    };
    m_isStarting = m_panel.workspace.launchApplication(QString::fromStdString(application()), ended);
}

void HelperLink::open() {
    startListening();
    m_isOpen = true;
    m_helper = {};
    m_listHasCome = false;
    if (m_panel.bus)
        m_panel.bus->onProcessesChanged([this] { follow(); });
    follow();
    sendMessage(kMessagePaneShown, 1);
}

void HelperLink::close() {
    sendMessage(kMessagePaneShown, 0);
    m_isOpen = false;
    if (m_panel.bus)
        m_panel.bus->onProcessesChanged(nullptr);
    m_live->stop();
    stopListening();
}

void HelperLink::follow() {
    if (!m_isOpen || !m_view)
        return;
    ProcessSerialNumber helper;
    const Status found = findProcess(kHelperName, &helper);
    if (found != noErr && found != procNotFound && m_panel.bus->isConnected())
        return; // not known: the bus is too busy, or its answers are disturbed by another program's
    if (std::exchange(m_helper, helper) != helper)
        m_listHasCome = false; // another helper's list has not arrived yet
    if (m_panel.bus)
        m_live->follow(*m_panel.bus, helper);
    m_isStarting = m_isStarting && found != noErr;
    m_isGone = found != noErr && (m_isGone || !m_isStarting);
    tellWhetherGone();
    emit connectionChanged();
}

void HelperLink::tellWhetherGone() {
    if (m_isGone)
        m_panel.context.notices.tell(Notice::helperGone,
            m_panel.context.text("The background program is not running. Changes are saved and reach the "
                                 "mouse when it runs again."),
            NoticeSign::warning);
    else
        m_panel.context.notices.withdraw(Notice::helperGone);
}

void HelperLink::bringBack() {
    follow();
    // Starting a program takes a while, which would be noticeable in a drag with its constant saves. Without
    // a bus it would end at once.
    if (m_isOpen && m_isGone && !m_isStarting && !m_panel.userIsDragging() && m_panel.bus &&
        m_panel.bus->isConnected())
        launch();
}

void HelperLink::tellOfSave() {
    const std::int32_t profile = m_panel.context.document.profileIndex();
    Status told = sendMessage(kMessageSettingsSaved, profile);
    // A bus too busy to look up the helper still delivers messages to the known one. If another has replaced
    // it, that one reads the file when it starts.
    if (told != noErr && told != procNotFound)
        told = m_panel.bus->send(m_helper, makeCommand(kMessageSettingsSaved, profile));
    if (told != noErr)
        bringBack();
}

QString HelperLink::connectionText() const {
    const PanelText& text = m_panel.context.text;
    if (m_isGone)
        return text("The background program is not running.");
    if (!m_listHasCome)
        return text("Looking for the mouse…");
    return m_panel.context.document.hasDevice()
               ? m_live->connectionText()
               : text("Switch the mouse on and plug in its cable or receiver.");
}

} // namespace quorvi
