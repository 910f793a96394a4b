#include "sensitivity/StageText.h"

#include "model/Keys.h"

namespace quorvi {

QString stageText(const plist::Dictionary& stage) {
    if (!stage)
        return {};
    const int x = stage.integer(keys::dpiX);
    return stage.boolean(keys::independentXY)
               ? QStringLiteral("X = %1, Y = %2 DPI").arg(x).arg(stage.integer(keys::dpiY))
               : QStringLiteral("%1 DPI").arg(x);
}

QString stageShortText(const plist::Dictionary& stage) {
    const QString x = QString::number(stage.integer(keys::dpiX));
    return stage.boolean(keys::independentXY)
               ? QStringLiteral("%1 × %2").arg(x, QString::number(stage.integer(keys::dpiY)))
               : x;
}

} // namespace quorvi
