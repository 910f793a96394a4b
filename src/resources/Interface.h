// The panel's views, built from the interface files of this folder and the menu tables.
//
// A view's objectName is its outlet's name. The dynamic property "action" names the action that a control or
// a menu item sends, and "tag" identifies tables and menu items. Views do not act by themselves: the
// controller connects those with an action.
#pragma once

#include <QDialog>

#include "resources/Menus.h"
#include "ui_ConfirmPanel.h"
#include "ui_KyvarQuorviPane.h"
#include "ui_NoDevicePanel.h"
#include "ui_RestorePanel.h"
#include "ui_SetUpPanel.h"
#include "ui_SingleKeyPanel.h"
#include "ui_StagesPanel.h"

namespace quorvi {

/// The views belong to the main view, which must outlive this object's use. The outlets are the public
/// members of the Ui classes, so that a missing one is a compile error.
class Interface {
  public:
    /// Fills the empty widget with the panel, and gives it the menus and the six panels as children. Looks up
    /// texts now: call setInterfaceTextLookup() before.
    explicit Interface(QWidget& mainView);

    Ui::KyvarQuorviPane main;
    Menus menus;

    QDialog* quorviPanelConfirm = nullptr;
    QDialog* quorviPanelNoDevice = nullptr;
    QDialog* quorviPanelStages = nullptr;
    QDialog* quorviPanelSingleKey = nullptr;
    QDialog* quorviPanelSetUp = nullptr;
    QDialog* quorviPanelRestore = nullptr; ///< not shown yet

    Ui::ConfirmPanel confirm;
    Ui::NoDevicePanel noDevice;
    Ui::StagesPanel stages;
    Ui::SingleKeyPanel singleKey;
    Ui::SetUpPanel setUp;
    Ui::RestorePanel restore;
};

/// Gives wrapped texts below the view that are hints or marked as whole the height that they need for their
/// width.
void keepTextsWhole(QWidget& view);

/// Makes the button wide enough for its text, in every style.
void widenButton(QPushButton& button);

/// Mirrors the panel with its sheets and menus, or not. The columns next to the drawing of the mouse stay on
/// the sides of their inputs.
void setLayoutDirection(QWidget& mainView, Qt::LayoutDirection direction);

} // namespace quorvi
