// Connects the views to the controller: the controls by the name of the action that they carry, the tables by
// their tags.

#include <QAbstractButton>
#include <QAction>
#include <QItemSelectionModel>
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

} // namespace

void KyvarQuorviPane::connectActions() {
    for (QWidget* control : fMainView->findChildren<QWidget*>()) {
        const QByteArray wanted = control->property("action").toByteArray();
        const auto found = std::find_if(
            kActions.begin(), kActions.end(), [&](const Action& action) { return wanted == action.name; });
        if (found == kActions.end())
            continue;
        if (auto* button = qobject_cast<QAbstractButton*>(control))
            connect(button, &QAbstractButton::clicked, this, [this, found] { (this->*found->perform)(); });
        else if (auto* popUp = qobject_cast<PopUpButton*>(control))
            connect(popUp, &PopUpButton::itemChosen, this, [this, found] { (this->*found->perform)(); });
    }
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
