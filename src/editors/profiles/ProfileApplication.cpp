#include "editors/profiles/ProfileApplication.h"

#include <QPointer>

#include <array>
#include <utility>

#include "applications/ApplicationInformation.h"
#include "applications/ApplicationPanel.h"
#include "model/Keys.h"
#include "platform/InterfaceText.h"
#include "window/ActionNames.h"
#include "window/Sheets.h"

namespace quorvi {

namespace {

/// The keys that bind a profile to an application; their values are texts.
constexpr std::array kApplicationKeys{keys::application, keys::identifier, keys::signature, keys::executable};

} // namespace

ProfileApplication::ProfileApplication(const EditorContext& context, Surroundings surroundings)
    : m_context(context), m_surroundings(std::move(surroundings)) {}

void ProfileApplication::showPanel() {
    QMetaObject::invokeMethod(
        this, [this] { ask(); }, Qt::QueuedConnection);
}

void ProfileApplication::ask() {
    setInterfaceTextLookup(
        [this](const QString& english) { return m_context.text(english.toUtf8().constData()); });
    const QPointer<ApplicationPanel> panel = new ApplicationPanel(
        &m_surroundings.mainView, {.home = m_surroundings.homeFolder, .text = m_context.text});
    setInterfaceTextLookup(nullptr);
    const int returnCode = m_context.sheets.run(panel);
    if (!panel)
        return; // The window was destroyed, and the panel with it.
    assign(*panel, returnCode);
    delete panel;
}

void ProfileApplication::assign(const ApplicationPanel& panel, int returnCode) {
    const auto application = returnCode == QDialog::Accepted ? panel.chosen() : std::nullopt;
    if (application)
        bindTo(*application);
}

void ProfileApplication::assign(const QString& path) {
    if (const auto application = applicationInformation(path))
        bindTo(*application);
}

void ProfileApplication::bindTo(const ApplicationInformation& application) {
    const plist::Dictionary& driver = m_context.document.driverData();
    driver.set(keys::application, application.name);
    driver.set(keys::identifier, application.identifier);
    driver.set(keys::signature, application.signature);
    driver.set(keys::executable, application.executable);
    commit({.action = actionName(m_context.text("Assign Application “^1”"), application.name)});
}

bool ProfileApplication::isBound() const {
    return m_context.document.profileIndex() >= 0 &&
           !m_context.document.driverData().string(keys::application).empty();
}

void ProfileApplication::remove() {
    if (!isBound())
        return;
    for (const std::string_view key : kApplicationKeys)
        m_context.document.driverData().set(key, u"");
    commit({.saving = Saving::never, .action = actionName(m_context.text("Remove Application"))});
}

void ProfileApplication::commit(const Change& change) {
    m_surroundings.showChange();
    m_context.document.commit(change);
}

} // namespace quorvi
