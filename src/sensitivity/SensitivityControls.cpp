#include <QLabel>

#include "model/Keys.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"

namespace quorvi {

void KyvarQuorviPane::updateDpiText() {
    const int x = fSettings.integer(keys::dpiX);
    // Two blanks after the comma: the label is set wider than the list of stages on purpose.
    fViews->main.quorviTextDPI->setText(fSettings.boolean(keys::independentXY)
            ? QStringLiteral("X = %1,  Y = %2 DPI").arg(x).arg(fSettings.integer(keys::dpiY))
            : QStringLiteral("%1 DPI").arg(x));
}

} // namespace quorvi
