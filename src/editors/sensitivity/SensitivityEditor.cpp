#include "editors/sensitivity/SensitivityEditor.h"

#include "document/StageResolution.h"
#include "editors/sensitivity/AccelerationScale.h"
#include "widgets/CheckBox.h"
#include "widgets/KyvarQuorviSlider.h"
#include "window/ActionNames.h"
#include "window/Sheets.h"

namespace quorvi {

SensitivityEditor::SensitivityEditor(const EditorContext& context, const Views& views)
    : m_document(context.document), m_text(context.text), m_sheets(context.sheets), m_views(views) {}

// The current stage and the settings in force hold the same numbers, so every change goes into both.

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
    m_document.commit(
        {.action = actionName(m_text(on ? "Switch Acceleration On" : "Switch Acceleration Off")),
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
    show();
}

} // namespace quorvi
