#include "pane/WindowHead.h"

#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>

#include "document/ChangePlace.h"
#include "document/Document.h"
#include "live/LiveHelper.h"
#include "model/Keys.h"
#include "session/HelperLink.h"
#include "widgets/ConnectionSign.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MenuItems.h"
#include "widgets/ProfileButton.h"
#include "widgets/ShownText.h"
#include "widgets/SymbolIcon.h"
#include "widgets/ViewActivation.h"

namespace quorvi {

namespace {

constexpr int kEditProfilesTag = -1; // the others are the rows of the profiles

} // namespace

WindowHead::WindowHead(const EditorContext& context, const Views& views, const HelperLink& helper)
    : m_context(context), m_views(views), m_helper(helper), m_usualNoMacro(views.noMacro.text()) {
    QObject::connect(
        &m_views.button, &ProfileButton::menuIsAboutToOpen, &m_connections, [this] { listProfiles(); });
    // Once the menu is done, as with all menus of commands: the switch may have something to tell. By then
    // the item may be gone, because the menu lists the profiles anew when it opens.
    QObject::connect(&m_views.menu, &QMenu::triggered, &m_connections, [this](const QAction* item) {
        const int tag = tagOfItem(*item).value_or(kEditProfilesTag);
        QMetaObject::invokeMethod(
            &m_connections, [this, tag] { choose(tag); }, Qt::QueuedConnection);
    });
}

QString WindowHead::title() const {
    if (!m_context.document.hasDevice())
        return m_context.text("No device connected");
    return nameOf(m_context.document.profile());
}

QString WindowHead::nameOf(const plist::Dictionary& profile) const {
    const QString name = shownName(QString::fromStdU16String(profile.string(keys::name)));
    return name.isEmpty() ? m_context.text("Default Profile") : name;
}

bool WindowHead::isRunning(std::size_t profile) const {
    return m_helper.live().state().runningProfile == profile + 1;
}

QString WindowHead::profileInUse() const {
    if (isRunning(static_cast<std::size_t>(m_context.document.profileIndex())))
        return m_helper.live().runningText();
    const QString pattern = m_context.text("Profile: ^1");
    return filledText(pattern, {nameWithin(pattern, title())});
}

void WindowHead::show() {
    m_views.profile.setText(title());
    showConnection();
    showRunning();
    makeViewActive(&m_views.tabs, m_context.document.hasDevice());
    m_views.checkForUpdates.setEnabled(true);
}

void WindowHead::showConnection() {
    const bool hasDevice = m_context.document.hasDevice();
    const HelperNews& news = m_helper.live().state();
    const QString text = m_helper.connectionText();
    m_views.connection.setText(text);
    m_views.noMacro.setText(hasDevice ? m_usualNoMacro : text);
    // Where no other mouse could be chosen, the one of the demonstration is the mouse.
    const bool demonstrates = news.demonstration && news.hasService;
    if (!hasDevice)
        m_views.sign.set(Connection::none);
    else
        m_views.sign.set(demonstrates ? Connection::demonstration : Connection::mouse);
}

void WindowHead::showRunning() {
    const bool hasDevice = m_context.document.hasDevice();
    m_views.button.setEnabled(hasDevice);
    m_views.button.setRunning(
        hasDevice && isRunning(static_cast<std::size_t>(m_context.document.profileIndex())));
    m_views.button.setAccessibleName(hasDevice ? profileInUse() : title());
}

void WindowHead::listProfiles() {
    QMenu& menu = m_views.menu;
    menu.clear();
    const plist::Array& profiles = m_context.document.profiles();
    for (std::size_t profile = 0; profile < profiles.size(); ++profile) {
        QAction& item = *menu.addAction(QString());
        setTitleOfItem(item, QStringLiteral("%1 ").arg(profile + 1) + nameOf(profiles.dictionary(profile)));
        setTagOfItem(item, static_cast<int>(profile));
        if (isRunning(profile))
            item.setIcon(symbolIcon(Symbol::Play));
    }
    menu.addSeparator();
    QAction& edit = *menu.addAction(QString());
    setTitleOfItem(edit, m_context.text("Edit Profiles…"));
    setTagOfItem(edit, kEditProfilesTag);
}

/// As a click on the row does. The list may have become shorter meanwhile.
void WindowHead::choose(int tag) {
    if (tag == kEditProfilesTag)
        m_views.tabs.setCurrentIndex(static_cast<int>(PlaceTab::profiles));
    else if (m_context.document.hasDevice() && tag < int(m_context.document.profiles().size()))
        m_views.profiles.selectRowAlone(tag);
}

} // namespace quorvi
