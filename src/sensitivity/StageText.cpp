#include "sensitivity/StageText.h"

#include "model/Keys.h"

namespace quorvi {

QString resolutionText(QString format, int x, int y) {
    const QString place = QStringLiteral("%d");
    for (const int number : {x, y})
        if (const auto index = format.indexOf(place); index >= 0)
            format.replace(index, place.size(), QString::number(number));
    return format;
}

QString stageText(const plist::Dictionary& stage, const InterfaceTextLookup& lookup) {
    if (!stage)
        return {};
    const QString format =
        stage.boolean(keys::independentXY) ? QStringLiteral("X = %d, Y = %d DPI") : QStringLiteral("%d DPI");
    return resolutionText(lookup(format), stage.integer(keys::dpiX), stage.integer(keys::dpiY));
}

QString stageShortText(const plist::Dictionary& stage) {
    const QString x = QString::number(stage.integer(keys::dpiX));
    return stage.boolean(keys::independentXY)
               ? QStringLiteral("%1 × %2").arg(x, QString::number(stage.integer(keys::dpiY)))
               : x;
}

} // namespace quorvi
