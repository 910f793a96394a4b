// Shows the sensitivity tab: its controls, the sensitivity as text, the stages as a bar, the acceleration as
// a curve.

#include <QLabel>

#include <algorithm>

#include "editors/sensitivity/AccelerationScale.h"
#include "editors/sensitivity/SensitivityEditor.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "widgets/AccelerationCurve.h"
#include "widgets/CheckBox.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/StageBar.h"
#include "window/ShownNumber.h"
#include "window/StageText.h"
#include "window/Unread.h"

namespace quorvi {

namespace {

constexpr float kNeutralFactor = 1.0F;

} // namespace

void SensitivityEditor::show() {
    const plist::Dictionary& settings = m_document.settings();
    const plist::Dictionary& driverData = m_document.driverData();
    const bool independent = settings.boolean(keys::independentXY);
    // A blank keeps the label's height, so that nothing moves when the axes are separated.
    m_views.labelX.setText(independent ? QStringLiteral("X") : QStringLiteral(" "));
    m_views.labelY.setText(independent ? QStringLiteral("Y") : QStringLiteral(" "));
    m_views.sliderY.setEnabled(independent && m_document.hasDevice());
    showResolution();
    showStages();
    m_views.sliderX.setValue(settings.integer(keys::dpiX));
    m_views.sliderY.setValue(settings.integer(keys::dpiY));
    m_views.independentAxes.setChecked(independent);
    m_views.display.setChecked(driverData.boolean(keys::sensitivityDisplay));
    const bool accelerated = driverData.boolean(keys::enableAcceleration);
    m_views.acceleration.setChecked(accelerated);
    m_views.accelerationSlider.setEnabled(accelerated && m_document.hasDevice());
    m_views.accelerationSlider.setFloatValue(
        accelerationToSliderValue(static_cast<float>(driverData.real(keys::acceleration))));
    showAcceleration();
}

void SensitivityEditor::showResolution() {
    if (!m_document.tree()) {
        m_views.resolution.setText(unreadText());
        return;
    }
    // Two blanks after the comma: the label is set wider than the list of stages on purpose.
    const plist::Dictionary& settings = m_document.settings();
    const QString format = m_text(settings.boolean(keys::independentXY) ? "X = %d,  Y = %d DPI" : "%d DPI");
    m_views.resolution.setText(
        resolutionText(format, settings.integer(keys::dpiX), settings.integer(keys::dpiY)));
}

/// The device has five stages; do not draw more.
QList<StageField> SensitivityEditor::stageFields() const {
    const plist::Array& stages = m_document.stages();
    QList<StageField> fields;
    for (std::size_t index = 0; index < std::min<std::size_t>(stages.size(), limits::stages); ++index) {
        const plist::Dictionary stage = stages.dictionary(index);
        const int x = stage.integer(keys::dpiX);
        fields << StageField{.text = stageShortText(stage, m_text),
            .x = x,
            .y = stage.boolean(keys::independentXY) ? stage.integer(keys::dpiY) : x,
            .spoken = filledText(
                m_text("Stage ^1: ^2"), {QString::number(index + 1), stageSpokenText(stage, m_text)})};
    }
    return fields;
}

void SensitivityEditor::showStages() {
    StageBar& bar = m_views.stages;
    bar.setStages(stageFields(), m_document.stageIndex());
    bar.setEnabled(m_document.hasDevice());
    const QString all = joinedText(m_text("^1, ^2, ^3"), bar.texts());
    bar.setAccessibleDescription(bar.currentStage() < 0
                                     ? all
                                     : m_text("Stage %1 of %2 is current. All stages, in DPI: %3")
                                           .arg(bar.currentStage() + 1)
                                           .arg(bar.stages().size())
                                           .arg(all));
}

QString SensitivityEditor::accelerationText(float factor) const {
    if (!m_document.tree())
        return unreadText();
    if (factor != kNeutralFactor)
        return m_text("At the hand's full speed, the pointer moves %1 times as fast.")
            .arg(withDecimalSign(QString::number(double(factor), 'f', 2)));
    return m_text(m_views.acceleration.isChecked() ? "The pointer follows the hand unchanged at every speed."
                                                   : "Off: the pointer follows the hand unchanged.");
}

void SensitivityEditor::showAcceleration() {
    AccelerationCurve& curve = m_views.accelerationCurve;
    const float factor = m_views.acceleration.isChecked()
                             ? sliderValueToAcceleration(m_views.accelerationSlider.floatValue())
                             : kNeutralFactor;
    curve.setFactor(factor);
    curve.setEnabled(m_document.hasDevice());
    curve.setAccessibleDescription(accelerationText(factor));
}

} // namespace quorvi
