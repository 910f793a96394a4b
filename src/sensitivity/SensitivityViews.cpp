// What the sensitivity tab shows beside its controls: the sensitivity as text, the stages as a bar, the
// acceleration as a curve.

#include <QCheckBox>
#include <QLabel>

#include <algorithm>

#include "model/Keys.h"
#include "model/Limits.h"
#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "sensitivity/AccelerationScale.h"
#include "sensitivity/StageText.h"
#include "widgets/AccelerationCurve.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/StageBar.h"
#include "window/Unread.h"

namespace quorvi {

namespace {

/// The device carries five stages; a longer list is not worth drawing.
QList<StageField> stageFields(const plist::Array& stages) {
    QList<StageField> fields;
    for (std::size_t index = 0; index < std::min<std::size_t>(stages.size(), limits::stages); ++index) {
        const plist::Dictionary stage = stages.dictionary(index);
        fields << StageField{.text = stageShortText(stage),
            .x = stage.integer(keys::dpiX),
            .y = stage.boolean(keys::independentXY) ? stage.integer(keys::dpiY) : stage.integer(keys::dpiX)};
    }
    return fields;
}

constexpr float kNeutralFactor = 1.0F;

} // namespace

void KyvarQuorviPane::updateDpiText() {
    if (!fDocument.tree()) {
        fViews->main.quorviTextDPI->setText(unreadText());
        return;
    }
    // Two blanks after the comma: the label is set wider than the list of stages on purpose.
    const QString format =
        locString(fDocument.settings().boolean(keys::independentXY) ? QStringLiteral("X = %d,  Y = %d DPI")
                                                                    : QStringLiteral("%d DPI"));
    fViews->main.quorviTextDPI->setText(resolutionText(
        format, fDocument.settings().integer(keys::dpiX), fDocument.settings().integer(keys::dpiY)));
}

void KyvarQuorviPane::updateStagesView() {
    StageBar* const bar = fViews->main.quorviViewStages;
    bar->setStages(stageFields(fDocument.stages()), fDocument.stageIndex());
    bar->setEnabled(hasDevice());
    const QString all = bar->texts().join(QStringLiteral(", "));
    bar->setAccessibleDescription(
        bar->currentStage() < 0
            ? all
            : locString(QStringLiteral("Stage %1 of %2 is the current one. All stages in DPI: %3"))
                  .arg(bar->currentStage() + 1)
                  .arg(bar->stages().size())
                  .arg(all));
}

void KyvarQuorviPane::updateAccelerationView() {
    AccelerationCurve* const curve = fViews->main.quorviViewAcceleration;
    const bool accelerated = fViews->main.quorviBoxAcceleration->isChecked();
    const float factor = accelerated
                             ? sliderValueToAcceleration(fViews->main.quorviSliderAcceleration->floatValue())
                             : kNeutralFactor;
    curve->setFactor(factor);
    curve->setEnabled(hasDevice());
    if (!fDocument.tree())
        curve->setAccessibleDescription(unreadText());
    else if (factor == kNeutralFactor)
        curve->setAccessibleDescription(
            locString(accelerated ? QStringLiteral("The pointer follows the hand as it is, at every speed.")
                                  : QStringLiteral("Off: the pointer follows the hand as it is.")));
    else
        curve->setAccessibleDescription(
            locString(QStringLiteral("At full speed of the hand the pointer goes %1 times as fast."))
                .arg(double(factor), 0, 'f', 2));
}

} // namespace quorvi
