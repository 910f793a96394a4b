// The application that a profile is bound to.

#include <array>

#include "applications/ApplicationInformation.h"
#include "applications/ApplicationPanel.h"
#include "model/Keys.h"
#include "pane/KyvarQuorviPane.h"
#include "platform/InterfaceText.h"
#include "resources/Interface.h"

namespace quorvi {

namespace {

/// What binds a profile to an application, all of it texts.
constexpr std::array kApplicationKeys{keys::application, keys::identifier, keys::signature, keys::executable};

} // namespace

void KyvarQuorviPane::showApplicationPanel() {
    // As a sheet does, it comes when the command that asked for it is done.
    QMetaObject::invokeMethod(this, &KyvarQuorviPane::askForApplication, Qt::QueuedConnection);
}

void KyvarQuorviPane::askForApplication() {
    setInterfaceTextLookup([this](const QString& english) { return locString(english); });
    const QPointer<ApplicationPanel> panel =
        new ApplicationPanel(fMainView, {.home = fServices.homeFolder, .text = panelText()});
    setInterfaceTextLookup(nullptr);
    const int returnCode = modalDialog(panel);
    if (!panel)
        return; // The pane went away underneath, and the panel with it.
    assignApplication(panel, returnCode);
    delete panel;
}

void KyvarQuorviPane::assignApplication(const ApplicationPanel* panel, int returnCode) {
    const auto application = returnCode == QDialog::Accepted ? panel->chosen() : std::nullopt;
    if (application)
        bindToApplication(*application);
}

void KyvarQuorviPane::assignApplication(const QString& path) {
    if (const auto application = applicationInformation(path))
        bindToApplication(*application);
}

void KyvarQuorviPane::bindToApplication(const ApplicationInformation& application) {
    fDriverData.set(keys::application, application.name);
    fDriverData.set(keys::identifier, application.identifier);
    fDriverData.set(keys::signature, application.signature);
    fDriverData.set(keys::executable, application.executable);
    showProfileApplication();
    saveSettings(fDeviceConfig);
}

void KyvarQuorviPane::removeApplication() {
    if (fProfileIndex < 0 || fDriverData.string(keys::application).empty())
        return;
    for (const std::string_view key : kApplicationKeys)
        fDriverData.set(key, u"");
    showProfileApplication();
}

void KyvarQuorviPane::showProfileApplication() {
    reloadData(fViews->main.quorviTableProfiles);
    updateProfilesSubmenu();
    updateUI();
}

} // namespace quorvi
