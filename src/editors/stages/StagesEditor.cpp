#include "editors/stages/StagesEditor.h"

#include <QDialog>
#include <QPointer>
#include <QPushButton>

#include <algorithm>

#include "editors/stages/StagesModel.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "widgets/CheckBox.h"
#include "widgets/KyvarQuorviSlider.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/ViewActivation.h"
#include "window/ActionNames.h"
#include "window/Sheets.h"

namespace quorvi {

namespace {

/// The sliders' value while no stage is selected, in DPI.
constexpr int kResolutionWithoutStage = 1500;

} // namespace

StagesEditor::StagesEditor(const EditorContext& context, const Views& views)
    : m_document(context.document), m_text(context.text), m_sheets(context.sheets), m_views(views),
      m_list(views.table, std::make_unique<StagesModel>(m_document, m_stages, context.text)) {
    m_list.onSelectionChange([this] { followSelection(); });
}

void StagesEditor::editAt(std::int32_t stage) {
    if (m_stages.areOpen())
        return; // the sheet is open
    const QPointer<StagesEditor> guard(this);
    const std::int32_t profile = m_document.profileIndex();
    m_stages.copyFrom(m_document);
    if (stage != m_document.stageIndex())
        m_stages.select(stage);
    show();
    const bool confirmed = m_sheets.run(&m_views.sheet) == QDialog::Accepted;
    if (!guard)
        return;
    // The settings may have been re-read during the sheet. Store the stages in the present tree, unless
    // another profile has become current. A profile is identified by its place in the list, because another
    // program may have renamed it.
    if (confirmed && m_document.profileIndex() == profile && m_stages.storeIn(m_document))
        m_document.commit({.action = actionName(m_text("Change Stages"))});
    close();
}

void StagesEditor::close() {
    m_stages.forget();
    m_list.reloadQuietly();
}

// There is always a current stage: without a selection it is the first.
void StagesEditor::followSelection() {
    m_stages.select(std::max(m_views.table.selectedRow(), 0));
    show();
}

void StagesEditor::add() {
    if (m_stages.duplicate())
        show();
}

void StagesEditor::remove() {
    if (m_stages.remove())
        show();
}

void StagesEditor::setX(int resolution) {
    if (m_stages.setX(resolution))
        show();
}

void StagesEditor::setY(int resolution) {
    if (m_stages.setY(resolution))
        show();
}

void StagesEditor::setIndependentAxes(bool independent) {
    if (m_stages.setIndependentAxes(independent))
        show();
}

void StagesEditor::show() {
    if (!m_stages.areOpen())
        return;
    const auto count = static_cast<std::int64_t>(m_stages.stages().size());
    const plist::Dictionary stage = m_stages.stage();
    const bool independent = stage.boolean(keys::independentXY);
    // Quietly: a list that is empty because the mouse is unplugged must not make the first stage the current
    // one.
    m_list.reloadQuietly();
    if (m_stages.index() >= 0)
        m_views.table.selectRowAlone(m_stages.index());
    m_views.add.setEnabled(count < limits::stages);
    // With two stages left the button is enabled and does nothing: only a single stage leaves nothing to
    // remove.
    m_views.remove.setEnabled(count >= limits::minimumStages);
    makeViewActive(&m_views.settings, static_cast<bool>(stage));
    m_views.sliderX.setValue(stage ? stage.integer(keys::dpiX) : kResolutionWithoutStage);
    m_views.sliderY.setValue(stage ? stage.integer(keys::dpiY) : kResolutionWithoutStage);
    m_views.sliderY.setEnabled(independent);
    m_views.independentAxes.setChecked(independent);
}

} // namespace quorvi
