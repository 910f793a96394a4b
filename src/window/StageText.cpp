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

namespace {

QString textOf(const plist::Dictionary& stage, const QString& oneAxis, const QString& twoAxes) {
    return resolutionText(stage.boolean(keys::independentXY) ? twoAxes : oneAxis, stage.integer(keys::dpiX),
        stage.integer(keys::dpiY));
}

} // namespace

QString stageText(const plist::Dictionary& stage, const PanelText& text) {
    return stage ? textOf(stage, text("%d DPI"), text("X = %d, Y = %d DPI")) : QString();
}

QString stageShortText(const plist::Dictionary& stage, const PanelText& text) {
    const QString x = QString::number(stage.integer(keys::dpiX));
    return stage.boolean(keys::independentXY)
               ? filledText(text("^1 × ^2"), {x, QString::number(stage.integer(keys::dpiY))})
               : x;
}

QString stageSpokenText(const plist::Dictionary& stage, const PanelText& text) {
    return textOf(stage, text("%d DPI"), text("%d × %d DPI"));
}

} // namespace quorvi
