#include "window/StageText.h"

#include "model/Keys.h"

namespace quorvi {

QString resolutionText(QString format, int x, int y) {
    const QString place = QStringLiteral("%d");
    for (const int number : {x, y})
        if (const auto index = format.indexOf(place); index >= 0)
            format.replace(index, place.size(), QString::number(number));
    return format;
}

QString stageText(const plist::Dictionary& stage, const PanelText& text) {
    if (!stage)
        return {};
    return resolutionText(text(stage.boolean(keys::independentXY) ? "X = %d, Y = %d DPI" : "%d DPI"),
        stage.integer(keys::dpiX), stage.integer(keys::dpiY));
}

QString stageShortText(const plist::Dictionary& stage) {
    const QString x = QString::number(stage.integer(keys::dpiX));
    return stage.boolean(keys::independentXY)
               ? QStringLiteral("%1 × %2").arg(x, QString::number(stage.integer(keys::dpiY)))
               : x;
}

} // namespace quorvi
