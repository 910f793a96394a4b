// Connects the views to the controller: the controls by the name of the action that they carry, the tables by
// their tags.

#include <QAbstractButton>
#include <QAction>
#include <QItemSelectionModel>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>

#include "editors/TableModel.h"
#include "pane/KyvarQuorviPane.h"
#include "platform/widgets/KyvarQuorviTableView.h"
#include "platform/widgets/PopUpButton.h"
#include "resources/Interface.h"

namespace quorvi {

namespace {

struct Action {
    const char* name;
    void (KyvarQuorviPane::*perform)();
};

constexpr std::array kActions{
    Action{"actionMenuPollingRate:", &KyvarQuorviPane::actionMenuPollingRate},
    Action{"actionBoxLightOnWheel:", &KyvarQuorviPane::actionBoxLightOnWheel},
    Action{"actionBoxLightOnBattery:", &KyvarQuorviPane::actionBoxLightOnBattery},
    Action{"actionButtonRestoreDefaults:", &KyvarQuorviPane::actionButtonRestoreDefaults},
    Action{"actionButtonCheckUpdates:", &KyvarQuorviPane::actionButtonCheckUpdates},
    Action{"actionButtonHelp:", &KyvarQuorviPane::actionButtonHelp},
    Action{"actionButtonModalOK:", &KyvarQuorviPane::actionButtonModalOK},
    Action{"actionButtonModalCancel:", &KyvarQuorviPane::actionButtonModalCancel},
};

/// The action that the control or menu item names; null when it names none that is performed.
const Action* actionOf(const QObject& sender) {
    const QByteArray wanted = sender.property("action").toByteArray();
    const auto* found = std::find_if(
        kActions.begin(), kActions.end(), [&](const Action& action) { return wanted == action.name; });
    return found == kActions.end() ? nullptr : found;
}

/// A menu opens when its button goes down, not when it comes up again, and the button stays down meanwhile.
void openOnPress(QPushButton* button, QMenu* menu) {
    QObject::connect(button, &QPushButton::pressed, menu, [button, menu] {
        menu->exec(button->mapToGlobal(QPoint(0, button->height())));
        button->setDown(false);
    });
}

} // namespace

void KyvarQuorviPane::connectActions() {
    for (QWidget* control : fMainView->findChildren<QWidget*>()) {
        const Action* found = actionOf(*control);
        if (!found)
            continue;
        if (auto* button = qobject_cast<QAbstractButton*>(control))
            connect(button, &QAbstractButton::clicked, this, [this, found] { (this->*found->perform)(); });
        else if (auto* popUp = qobject_cast<PopUpButton*>(control))
            connect(popUp, &PopUpButton::itemChosen, this, [this, found] { (this->*found->perform)(); });
    }
    // An item that nothing would happen on is not offered.
    for (QAction* item : fMainView->findChildren<QAction*>())
        if (item->property("action").isValid() && !actionOf(*item))
            item->setEnabled(false);
    openOnPress(fViews->main.quorviButtonProfileGear, fViews->menus.quorviMenuProfileGear);
    openOnPress(fViews->main.quorviButtonMacroGear, fViews->menus.quorviMenuMacroGear);
    openOnPress(fViews->main.quorviButtonStepGear, fViews->menus.quorviMenuStepGear);
    connect(fViews->main.quorviTabsMain, &QTabWidget::currentChanged, this,
        &KyvarQuorviPane::tabViewDidSelectTabViewItem);
}

std::array<KyvarQuorviTableView*, 4> KyvarQuorviPane::tables() const {
    return {fViews->main.quorviTableProfiles, fViews->main.quorviTableMacros, fViews->main.quorviTableSteps,
        fViews->stages.quorviStageTableStages};
}

void KyvarQuorviPane::connectTables() {
    for (KyvarQuorviTableView* table : tables()) {
        auto& model = fTableModels[static_cast<std::size_t>(table->tag() - 1)];
        model = std::make_unique<TableModel>(this, table->tag());
        table->setModel(model.get());
        connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this, table] { tableViewSelectionDidChange(table); });
    }
}

} // namespace quorvi
