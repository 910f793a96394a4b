// The panel's views, built from the interface files of this folder and the menu tables.
//
// A view's objectName is its outlet's name. The dynamic property "action" names the action that a control or
// a menu item sends, and "tag" tells tables and menu items apart. No view acts by itself: the controller
// connects what carries an action.
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
/// members of the Ui classes, so that one that is missing does not compile.
class Interface {
  public:
    /// Fills the empty widget with the panel, and gives it the menus and the six panels as children. Texts
    /// are looked up now: set setInterfaceTextLookup() before.
    explicit Interface(QWidget& mainView);

    Ui::KyvarQuorviPane main;
    Menus menus;

    QDialog* quorviPanelConfirm = nullptr;
    QDialog* quorviPanelNoDevice = nullptr;
    QDialog* quorviPanelStages = nullptr;
    QDialog* quorviPanelSingleKey = nullptr;
    QDialog* quorviPanelSetUp = nullptr;
    QDialog* quorviPanelRestore = nullptr; ///< nothing shows it yet

    Ui::ConfirmPanel confirm;
    Ui::NoDevicePanel noDevice;
    Ui::StagesPanel stages;
    Ui::SingleKeyPanel singleKey;
    Ui::SetUpPanel setUp;
    Ui::RestorePanel restore;
};

/// Lets wrapped texts below the view that are marked as notes or as whole be as high as they have to be in
/// the width that they get.
void keepTextsWhole(QWidget& view);

/// Lets the button be wide enough for its text, now and in every style.
void widenButton(QPushButton& button);

/// Mirrors the panel with its sheets and menus, or not. The columns beside the drawing of the mouse stay on
/// the sides of the inputs that they stand for.
void setLayoutDirection(QWidget& mainView, Qt::LayoutDirection direction);

} // namespace quorvi
