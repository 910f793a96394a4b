#include "editors/sensitivity/SensitivityEditor.h"

#include <cmath>
#include <cstdlib>

#include "document/StageResolution.h"
#include "editors/sensitivity/AccelerationScale.h"
#include "widgets/CheckBox.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/NumberField.h"
#include "widgets/StageBar.h"
#include "window/ActionNames.h"
#include "window/Sheets.h"

namespace quorvi {

namespace {

/// 10 to 200.
int percentOfValue(const KyvarQuorviSlider& slider, int value) {
    constexpr float percent = 100.0F;
    return int(
        std::lround(sliderValueToAcceleration(float(value) / float(slider.valuesPerUnit())) * percent));
}

/// The slider's scale has a gap below 100 percent, and not every percent in it. What it does not have becomes
/// the nearest that it has.
int valueOfPercent(const KyvarQuorviSlider& slider, int percent) {
    int nearest = slider.minimum();
    const auto distance = [&](int value) { return std::abs(percentOfValue(slider, value) - percent); };
    for (int value = slider.minimum(); value <= slider.maximum(); value += slider.singleStep())
        if (distance(value) < distance(nearest))
            nearest = value;
    return nearest;
}

} // namespace

SensitivityEditor::SensitivityEditor(const EditorContext& context, const Views& views)
    : m_document(context.document), m_text(context.text), m_sheets(context.sheets), m_views(views) {
    const KyvarQuorviSlider& slider = m_views.accelerationSlider;
    m_views.accelerationField.join(m_views.accelerationSlider,
        {.numberOfValue = [&slider](int value) { return percentOfValue(slider, value); },
            .valueOfNumber = [&slider](int percent) { return valueOfPercent(slider, percent); }});
}

// The current stage and the settings in force hold the same numbers, so every change is stored in both.

void SensitivityEditor::setX(int resolution) {
    const bool bothAxes = !m_document.stage().boolean(keys::independentXY);
    for (const plist::Dictionary& holder : {m_document.stage(), m_document.settings()}) {
        holder.set(keys::dpiX, resolution);
        if (bothAxes)
            holder.set(keys::dpiY, resolution);
    }
    commitResolution();
}

void SensitivityEditor::setY(int resolution) {
    for (const plist::Dictionary& holder : {m_document.stage(), m_document.settings()})
        holder.set(keys::dpiY, resolution);
    commitResolution();
}

void SensitivityEditor::commitResolution() {
    m_document.commit(
        {.action = actionName(m_text("Change Sensitivity")), .touched = Touched::currentProfile});
}

void SensitivityEditor::setIndependentAxes(bool independent) {
    for (const plist::Dictionary& holder : {m_document.stage(), m_document.settings()}) {
        holder.set(keys::independentXY, independent);
        if (!independent)
            holder.set(keys::dpiY, holder.integer(keys::dpiX));
    }
    const QString action = m_text(independent ? "Set X and Y Separately" : "Set X and Y Together");
    m_document.commit({.action = actionName(action), .touched = Touched::currentProfile});
}

void SensitivityEditor::storeAcceleration() {
    m_document.driverData().set(
        keys::acceleration, sliderValueToAcceleration(m_views.accelerationSlider.floatValue()));
    m_document.commit({.shown = Shown::acceleration,
        .action = actionName(m_text("Change Acceleration")),
        .touched = Touched::currentProfile});
}

void SensitivityEditor::storeAccelerated() {
    const bool on = m_views.acceleration.isChecked();
    m_document.driverData().set(keys::enableAcceleration, on);
    m_document.commit({.action = actionName(m_text(on ? "Turn On Acceleration" : "Turn Off Acceleration")),
        .touched = Touched::currentProfile});
}

void SensitivityEditor::storeDisplay() {
    const bool on = m_views.display.isChecked();
    m_document.driverData().set(keys::sensitivityDisplay, on);
    const QString action = m_text(on ? "Show Sensitivity on Screen" : "Do Not Show Sensitivity on Screen");
    m_document.commit(
        {.shown = Shown::nothing, .action = actionName(action), .touched = Touched::currentProfile});
}

bool SensitivityEditor::isCurrentProfile(std::uint32_t number) const {
    return number > 0 && m_document.profileIndex() >= 0 &&
           number - 1 == static_cast<std::uint32_t>(m_document.profileIndex());
}

void SensitivityEditor::followRunningStage(std::uint32_t profile, std::uint32_t stage) {
    const auto index = static_cast<std::size_t>(stage) - 1;
    if (!isCurrentProfile(profile) || stage == 0 || index >= m_document.stages().size() ||
        index == static_cast<std::size_t>(m_document.stageIndex()) || m_sheets.isRunning())
        return;
    m_document.changeQuietly([&] {
        m_document.settings().set(keys::stage, static_cast<std::int32_t>(stage));
        copyResolution(m_document.stages().dictionary(index), m_document.settings());
        m_document.editProfileIndex(m_document.profileIndex());
    });
    const int before = m_views.stages.currentStage();
    show();
    m_views.stages.moveGroundFrom(before);
}

} // namespace quorvi
