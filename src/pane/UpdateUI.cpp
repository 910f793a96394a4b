// Every control's value and enabled state, derived in one place from the tree, the device's presence and
// whether a macro is being recorded, so that no two actions disagree.

#include <QLabel>
#include <QPushButton>
#include <QTabWidget>

#include "editors/assignment/AssignmentEditor.h"
#include "editors/device/DeviceEditor.h"
#include "editors/recording/Recording.h"
#include "editors/sensitivity/SensitivityEditor.h"
#include "live/LiveHelper.h"
#include "model/Keys.h"
#include "pane/KyvarQuorviPane.h"
#include "pane/ListEditors.h"
#include "platform/ViewActivation.h"
#include "resources/Interface.h"
#include "widgets/ShownText.h"

namespace quorvi {

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
    fListEditors->profiles.show();
    fListEditors->macros.show();
    fListEditors->steps.show();
    fRecording->show();
    fHelperLink.live().show();
    showRunningRow();
}

} // namespace quorvi
