// Every control's value and enabled state, derived in one place from the tree, the device's presence and
// whether a macro is being recorded, so that no two actions disagree.

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>

#include "editors/assignment/AssignmentEditor.h"
#include "editors/device/DeviceEditor.h"
#include "editors/recording/Recording.h"
#include "editors/sensitivity/SensitivityEditor.h"
#include "live/LiveHelper.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "pane/KyvarQuorviPane.h"
#include "platform/ViewActivation.h"
#include "resources/Interface.h"
#include "resources/TableTags.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/ShownText.h"
#include "window/TableList.h"

namespace quorvi {

namespace {

/// Enables or disables the button. One that takes itself out of use leaves the keyboard to its list, not to
/// whatever comes next.
void enableButtonOf(KyvarQuorviTableView* table, QPushButton* button, bool enabled) {
    const bool hadFocus = button->window()->focusWidget() == button;
    button->setEnabled(enabled);
    if (hadFocus && !enabled)
        table->setFocus();
}

} // namespace

void KyvarQuorviPane::showDocument(Shown shown) {
    switch (shown) {
    case Shown::everything:
        updateUI();
        break;
    case Shown::lights:
        fDevice->showLights();
        break;
    case Shown::acceleration:
        updateAccelerationView();
        break;
    case Shown::nothing:
        break;
    }
}

void KyvarQuorviPane::updateUI() {
    QString title = hasDevice() ? shownName(QString::fromStdU16String(fDocument.profile().string(keys::name)))
                                : locString(QStringLiteral("No device connected"));
    if (title.isEmpty())
        title = locString(QStringLiteral("Default Profile"));
    fViews->main.quorviTextProfile->setText(title);
    updateConnectionUI();
    makeViewActive(fViews->main.quorviTabsMain, hasDevice());
    fViews->main.quorviButtonCheckForUpdates->setEnabled(true);
    fAssignment->show();
    fSensitivity->show();
    fDevice->show();
    updateProfilesUI();
    updateMacrosUI();
    updateStepsUI();
    updateHints();
    fHelperLink.live().show();
    showRunningRow();
}

void KyvarQuorviPane::updateProfilesUI() {
    KyvarQuorviTableView* table = fViews->main.quorviTableProfiles;
    enableButtonOf(table, fViews->main.quorviButtonProfileAdd,
        hasDevice() && int(fDocument.profiles().size()) < limits::profiles);
    enableButtonOf(table, fViews->main.quorviButtonProfileRemove, hasDevice() && table->selectedRow() > 0);
    fViews->main.quorviBoxProfileOSD->setChecked(fDocument.driverData().boolean(keys::profileDisplay));
}

void KyvarQuorviPane::updateMacrosUI() {
    const bool editable = hasDevice() && !isRecordingMacro();
    KyvarQuorviTableView* table = fViews->main.quorviTableMacros;
    const bool macroSelected = table->selectedRow() >= 0;
    makeViewActive(table, editable);
    enableButtonOf(table, fViews->main.quorviButtonMacroAdd,
        editable && int(fDocument.macros().size()) < limits::macros);
    enableButtonOf(table, fViews->main.quorviButtonMacroRemove, editable && macroSelected);
    fViews->main.quorviButtonMacroGear->setEnabled(editable);
    fViews->main.quorviTabsShowHideSteps->setCurrentIndex(hasDevice() && macroSelected ? 0 : 1);
}

void KyvarQuorviPane::updateStepsUI() {
    const bool editable = hasDevice() && !isRecordingMacro();
    const bool stepSelected = fViews->main.quorviTableMacros->selectedRow() >= 0 &&
                              fViews->main.quorviTableSteps->selectedRow() >= 0;
    listOf(fViews->main.quorviTableSteps).model().setColumnEnabled(kStepDelayColumn, editable);
    fViews->main.quorviButtonStepAdd->setEnabled(editable);
    enableButtonOf(
        fViews->main.quorviTableSteps, fViews->main.quorviButtonStepRemove, editable && stepSelected);
    fViews->main.quorviButtonStepGear->setEnabled(editable);
    fRecording->show();
}

// What there is to do where there is nothing, or only what every mouse starts with.
void KyvarQuorviPane::updateHints() {
    Ui::KyvarQuorviPane& main = fViews->main;
    // Before the first list not even that is known; what stands below says why.
    const QString noMouse =
        fHelperLink.listHasCome() ? locString(QStringLiteral("No mouse is connected")) : QString();
    main.quorviTableMacros->setEmptyText(hasDevice() ? fStringNoMacros : noMouse);
    main.textNoMacroTitle->setText(hasDevice() ? fStringNoMacroTitle : noMouse);
    makeViewActive(main.pageNoMacro, true);
    main.textProfilesHint->setText(fDocument.profiles().size() == 1
                                       ? locString(QStringLiteral("Add a profile with the + button for each "
                                                                  "other way of using the mouse. The gear "
                                                                  "button assigns it an application."))
                                       : fStringProfilesHint);
}

} // namespace quorvi
