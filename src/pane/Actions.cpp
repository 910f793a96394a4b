// Connects the views to the controller: the controls by the name of the action that they carry, the tables by
// their tags.

#include <QAbstractButton>
#include <QAction>
#include <QItemSelectionModel>
#include <QMenu>
#include <QTabWidget>

#include "pane/EventPatch.h"
#include "pane/HelpKey.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MenuItems.h"
#include "widgets/PopUpButton.h"

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
    Action{"actionBoxProfileOSD:", perform<&KyvarQuorviPane::actionBoxProfileOSD>},
    Action{"actionButtonMacroAdd:", perform<&KyvarQuorviPane::actionButtonMacroAdd>},
    Action{"actionButtonMacroRemove:", perform<&KyvarQuorviPane::actionButtonMacroRemove>},
    Action{"actionButtonStepAdd:", perform<&KyvarQuorviPane::actionButtonStepAdd>},
    Action{"actionButtonStepRecord:", perform<&KyvarQuorviPane::actionButtonStepRecord>},
    Action{"actionButtonStepRemove:", perform<&KyvarQuorviPane::actionButtonStepRemove>},
    Action{"actionButtonRestoreDefaults:", perform<&KyvarQuorviPane::actionButtonRestoreDefaults>},
    Action{"actionButtonCheckUpdates:", perform<&KyvarQuorviPane::actionButtonCheckUpdates>},
    Action{"actionButtonHelp:", perform<&KyvarQuorviPane::actionButtonHelp>},
    Action{"actionButtonModalOK:", perform<&KyvarQuorviPane::actionButtonModalOK>},
    Action{"actionButtonModalCancel:", perform<&KyvarQuorviPane::actionButtonModalCancel>},
};

/// The action that the control or menu item names; null when it names none that is performed.
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

} // namespace

void KyvarQuorviPane::connectActions() {
    for (QWidget* control : fMainView->findChildren<QWidget*>()) {
        const auto performIts = [this, control] { performActionOf(*control, *this); };
        if (auto* button = qobject_cast<QAbstractButton*>(control)) {
            connect(button, &QAbstractButton::clicked, this, performIts);
        } else if (auto* slider = qobject_cast<KyvarQuorviSlider*>(control)) {
            connect(slider, &KyvarQuorviSlider::valueChosen, this, performIts);
            connect(slider, &KyvarQuorviSlider::mouseDownBegan, this, &KyvarQuorviPane::dragDidBegin);
            connect(slider, &KyvarQuorviSlider::mouseDownEnded, this, &KyvarQuorviPane::dragDidEnd);
        } else if (auto* popUp = qobject_cast<PopUpButton*>(control)) {
            connect(popUp, &PopUpButton::itemChosen, this, performIts);
            connect(popUp, &PopUpButton::listItemChosen, this,
                [this](QAction* item) { performActionOf(*item, *this); });
        }
    }
    // An item that nothing would happen on is not offered.
    for (QAction* item : fMainView->findChildren<QAction*>())
        if (item->property(kActionProperty).isValid() && !actionOf(*item))
            item->setEnabled(false);
    connectMenu(*fViews->menus.quorviMenuProfileGear);
    connectMenu(*fViews->menus.quorviMenuMacroGear);
    connectMenu(*fViews->menus.quorviMenuStepGear);
    connect(fViews->main.quorviTabsMain, &QTabWidget::currentChanged, this,
        &KyvarQuorviPane::tabViewDidSelectTabViewItem);
    connect(new HelpKey(*fMainView), &HelpKey::pressed, this, &KyvarQuorviPane::actionButtonHelp);
}

void KyvarQuorviPane::connectMenu(QMenu& menu) {
    // Once the menu is done: a command may ask a question, and whoever chose the item is not to wait for
    // that. A panel that was hidden meanwhile has nothing that a command could be for.
    connect(
        &menu, &QMenu::triggered, this,
        [this](QAction* item) {
            if (gPatchedPane == this)
                performActionOf(*item, *this);
        },
        Qt::QueuedConnection);
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu] {
        for (QAction* item : menu.actions())
            item->setEnabled(validateMenuItem(item) && actionOf(*item));
    });
}

std::array<KyvarQuorviTableView*, 4> KyvarQuorviPane::tables() const {
    return {fViews->main.quorviTableProfiles, fViews->main.quorviTableMacros, fViews->main.quorviTableSteps,
        fViews->stages.quorviStageTableStages};
}

void KyvarQuorviPane::connectTables() {
    for (KyvarQuorviTableView* table : tables())
        table->setDelegate(this);
}

} // namespace quorvi
