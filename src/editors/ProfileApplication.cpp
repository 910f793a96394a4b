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
    const int returnCode = fSheets.run(panel);
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
    fDocument.driverData().set(keys::application, application.name);
    fDocument.driverData().set(keys::identifier, application.identifier);
    fDocument.driverData().set(keys::signature, application.signature);
    fDocument.driverData().set(keys::executable, application.executable);
    showProfileApplication(Saving::now);
}

void KyvarQuorviPane::removeApplication() {
    if (fDocument.profileIndex() < 0 || fDocument.driverData().string(keys::application).empty())
        return;
    for (const std::string_view key : kApplicationKeys)
        fDocument.driverData().set(key, u"");
    showProfileApplication(Saving::never); // the command that asked for it saves
}

void KyvarQuorviPane::showProfileApplication(Saving saving) {
    reloadData(fViews->main.quorviTableProfiles);
    updateProfilesSubmenu();
    fDocument.commit({.saving = saving});
}

} // namespace quorvi
