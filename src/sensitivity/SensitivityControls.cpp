#include <QLabel>

#include <algorithm>

#include "model/Keys.h"
#include "model/Limits.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "sensitivity/StageText.h"

namespace quorvi {

void KyvarQuorviPane::updateDpiText() {
    const int x = fSettings.integer(keys::dpiX);
    // Two blanks after the comma: the label is set wider than the list of stages on purpose.
    fViews->main.quorviTextDPI->setText(
        fSettings.boolean(keys::independentXY)
            ? QStringLiteral("X = %1,  Y = %2 DPI").arg(x).arg(fSettings.integer(keys::dpiY))
            : QStringLiteral("%1 DPI").arg(x));
}

void KyvarQuorviPane::updateStagesView() {
    // The device carries five stages; a longer list is not worth drawing.
    QStringList texts;
    for (std::size_t index = 0; index < std::min<std::size_t>(fStages.size(), limits::stages); ++index)
        texts << stageShortText(fStages.dictionary(index));
    fViews->main.quorviViewStages->setStages(texts, fStageIndex);
    fViews->main.quorviViewStages->setEnabled(hasDevice());
}

} // namespace quorvi
