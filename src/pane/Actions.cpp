#include "pane/Actions.h"

#include <QAbstractButton>
#include <QAction>
#include <QMenu>
#include <QTabWidget>

#include <algorithm>
#include <array>

#include "pane/EventPatch.h"
#include "pane/KyvarQuorviPane.h"
#include "pane/MenuKeys.h"
#include "pane/PanelKeys.h"
#include "resources/Interface.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/MenuItems.h"
#include "widgets/PopUpButton.h"
#include "widgets/StageBar.h"

namespace quorvi {

namespace {

struct Action {
    const char* name;
    void (*perform)(KyvarQuorviPane& pane, QObject& sender);
};

void call(KyvarQuorviPane& pane, QObject& /*sender*/, void (KyvarQuorviPane::*method)()) {
    (pane.*method)();
}

/// A method that takes its sender is for senders of that class only.
template <typename Sender>
void call(KyvarQuorviPane& pane, QObject& sender, void (KyvarQuorviPane::*method)(Sender*)) {
    if (auto* wanted = qobject_cast<Sender*>(&sender))
        (pane.*method)(wanted);
}

template <auto method>
void perform(KyvarQuorviPane& pane, QObject& sender) {
    call(pane, sender, method);
}

constexpr std::array kActions{
    Action{"actionMenuButtonAssignment:", perform<&KyvarQuorviPane::actionMenuButtonAssignment>},
    Action{"actionSubmenuButtonMacro:", perform<&KyvarQuorviPane::actionSubmenuButtonMacro>},
    Action{"actionSubmenuButtonProfile:", perform<&KyvarQuorviPane::actionSubmenuButtonProfile>},
    Action{"actionMenuPollingRate:", perform<&KyvarQuorviPane::actionMenuPollingRate>},
    Action{"actionBoxLightOnWheel:", perform<&KyvarQuorviPane::actionBoxLightOnWheel>},
    Action{"actionBoxLightOnBattery:", perform<&KyvarQuorviPane::actionBoxLightOnBattery>},
    Action{"actionSliderSensitivityX:", perform<&KyvarQuorviPane::actionSliderSensitivityX>},
    Action{"actionSliderSensitivityY:", perform<&KyvarQuorviPane::actionSliderSensitivityY>},
    Action{"actionBoxIndependentXY:", perform<&KyvarQuorviPane::actionBoxIndependentXY>},
    Action{"actionSliderAcceleration:", perform<&KyvarQuorviPane::actionSliderAcceleration>},
    Action{"actionBoxAcceleration:", perform<&KyvarQuorviPane::actionBoxAcceleration>},
    Action{"actionBoxSensitivityOSD:", perform<&KyvarQuorviPane::actionBoxSensitivityOSD>},
    Action{"actionButtonEditStages:", perform<&KyvarQuorviPane::actionButtonEditStages>},
    Action{"actionButtonStageAdd:", perform<&KyvarQuorviPane::actionButtonStageAdd>},
    Action{"actionButtonStageRemove:", perform<&KyvarQuorviPane::actionButtonStageRemove>},
    Action{"actionSliderStagesSensitivityX:", perform<&KyvarQuorviPane::actionSliderStagesSensitivityX>},
    Action{"actionSliderStagesSensitivityY:", perform<&KyvarQuorviPane::actionSliderStagesSensitivityY>},
    Action{"actionBoxStagesIndependentXY:", perform<&KyvarQuorviPane::actionBoxStagesIndependentXY>},
    Action{"actionMenuTableContext:", perform<&KyvarQuorviPane::actionMenuTableContext>},
    Action{"actionButtonProfileAdd:", perform<&KyvarQuorviPane::actionButtonProfileAdd>},
    Action{"actionButtonProfileRemove:", perform<&KyvarQuorviPane::actionButtonProfileRemove>},
    Action{"actionButtonProfileApplication:", perform<&KyvarQuorviPane::actionButtonProfileApplication>},
    Action{"actionBoxProfileOSD:", perform<&KyvarQuorviPane::actionBoxProfileOSD>},
    Action{"actionButtonMacroAdd:", perform<&KyvarQuorviPane::actionButtonMacroAdd>},
    Action{"actionButtonMacroRecord:", perform<&KyvarQuorviPane::actionButtonMacroRecord>},
    Action{"actionButtonMacroRemove:", perform<&KyvarQuorviPane::actionButtonMacroRemove>},
    Action{"actionButtonStepAdd:", perform<&KyvarQuorviPane::actionButtonStepAdd>},
    Action{"actionButtonStepRecord:", perform<&KyvarQuorviPane::actionButtonStepRecord>},
    Action{"actionButtonMacroPlay:", perform<&KyvarQuorviPane::actionButtonMacroPlay>},
    Action{"actionButtonStepRemove:", perform<&KyvarQuorviPane::actionButtonStepRemove>},
    Action{"actionButtonBackUp:", perform<&KyvarQuorviPane::actionButtonBackUp>},
    Action{"actionButtonRestoreBackup:", perform<&KyvarQuorviPane::actionButtonRestoreBackup>},
    Action{"actionButtonEarlierSettings:", perform<&KyvarQuorviPane::actionButtonEarlierSettings>},
    Action{"actionButtonRestoreDefaults:", perform<&KyvarQuorviPane::actionButtonRestoreDefaults>},
    Action{"actionButtonCheckUpdates:", perform<&KyvarQuorviPane::actionButtonCheckUpdates>},
    Action{"actionButtonHelp:", perform<&KyvarQuorviPane::actionButtonHelp>},
    Action{"actionButtonUndo:", perform<&KyvarQuorviPane::actionButtonUndo>},
    Action{"actionButtonRedo:", perform<&KyvarQuorviPane::actionButtonRedo>},
    Action{"actionButtonModalOK:", perform<&KyvarQuorviPane::actionButtonModalOK>},
    Action{"actionButtonModalCancel:", perform<&KyvarQuorviPane::actionButtonModalCancel>},
};

/// The action that the control or menu item names; null if there is no such action.
const Action* actionOf(const QObject& sender) {
    const QByteArray wanted = sender.property(kActionProperty).toByteArray();
    const auto* found = std::find_if(
        kActions.begin(), kActions.end(), [&](const Action& action) { return wanted == action.name; });
    return found == kActions.end() ? nullptr : found;
}

void performActionOf(QObject& sender, KyvarQuorviPane& pane) {
    if (const Action* action = actionOf(sender))
        action->perform(pane, sender);
}

/// Enables the items that can be chosen now, and the submenus that have one.
bool enableItems(KyvarQuorviPane& pane, const QMenu& menu) {
    bool any = false;
    for (QAction* item : menu.actions()) {
        const bool enabled =
            item->menu() ? enableItems(pane, *item->menu()) : pane.validateMenuItem(item) && actionOf(*item);
        item->setEnabled(enabled);
        any = any || enabled;
    }
    return any;
}

void connectMenu(KyvarQuorviPane& pane, QMenu& menu) {
    // After the menu has closed: a command may ask a question, for which the trigger must not wait. A panel
    // hidden in the meantime ignores the command.
    QObject::connect(
        &menu, &QMenu::triggered, &pane,
        [&pane](QAction* item) {
            if (gPatchedPane == &pane)
                performActionOf(*item, pane);
        },
        Qt::QueuedConnection);
    QObject::connect(&menu, &QMenu::aboutToShow, &pane, [&pane, &menu] { enableItems(pane, menu); });
}

} // namespace

void connectActions(KyvarQuorviPane& pane, QWidget& mainView, const Interface& views) {
    for (QWidget* control : mainView.findChildren<QWidget*>()) {
        const auto performIts = [&pane, control] { performActionOf(*control, pane); };
        if (auto* button = qobject_cast<QAbstractButton*>(control)) {
            QObject::connect(button, &QAbstractButton::clicked, &pane, performIts);
        } else if (auto* slider = qobject_cast<KyvarQuorviSlider*>(control)) {
            QObject::connect(slider, &KyvarQuorviSlider::valueChosen, &pane, performIts);
            QObject::connect(
                slider, &KyvarQuorviSlider::mouseDownBegan, &pane, &KyvarQuorviPane::dragDidBegin);
            QObject::connect(slider, &KyvarQuorviSlider::mouseDownEnded, &pane, &KyvarQuorviPane::dragDidEnd);
        } else if (auto* popUp = qobject_cast<PopUpButton*>(control)) {
            QObject::connect(popUp, &PopUpButton::itemChosen, &pane, performIts);
            QObject::connect(popUp, &PopUpButton::listItemChosen, &pane,
                [&pane](QAction* item) { performActionOf(*item, pane); });
        }
    }
    // Items without an effect are disabled.
    for (QAction* item : mainView.findChildren<QAction*>())
        if (item->property(kActionProperty).isValid() && !actionOf(*item))
            item->setEnabled(false);
    QObject::connect(views.main.quorviViewStages, &StageBar::stageChosen, &pane,
        &KyvarQuorviPane::editSensitivityStagesAt);
    connectMenu(pane, *views.menus.quorviMenuProfileGear);
    connectMenu(pane, *views.menus.quorviMenuMacroGear);
    connectMenu(pane, *views.menus.quorviMenuStepGear);
    QObject::connect(views.main.quorviTabsMain, &QTabWidget::currentChanged, &pane,
        &KyvarQuorviPane::tabViewDidSelectTabViewItem);
    // The table and the view own them, and are destroyed with the pane.
    new MenuKeys(*views.main.quorviTableSteps, *views.menus.quorviMenuStepGear,
        [&pane](QAction* item) { return pane.validateMenuItem(item); });
    new PanelKeys(mainView, {{QKeySequence::HelpContents, [&pane] { pane.actionButtonHelp(); }},
                                {QKeySequence::Undo, [&pane] { pane.actionButtonUndo(); }, true},
                                {QKeySequence::Redo, [&pane] { pane.actionButtonRedo(); }, true},
                                {QKeySequence::Cancel, [&pane] { pane.stopTrial(); }, false,
                                    [&pane] { return pane.isTryingMacro(); }}});
}

} // namespace quorvi
