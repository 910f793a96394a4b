#include "editors/recording/RecordingView.h"

#include <QAccessible>
#include <QLabel>

#include <utility>

#include "model/Limits.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/ToggleButton.h"

namespace quorvi {

RecordingView::RecordingView(const Views& views, PanelText text)
    : m_views(views), m_text(std::move(text)), m_recordTitle(views.button->text()),
      m_stopTitle(views.button->property("alternateTitle").toString()),
      m_description(views.button->accessibleDescription()), m_noSteps(views.steps->emptyText()) {}

void RecordingView::showCommand(bool runs) {
    m_views.button->setText(commandTitle(runs));
    m_views.button->setAccessibleName(m_views.button->text());
    m_views.button->setChecked(runs);
}

QString RecordingView::stateText(const RecordingProgress& progress) const {
    const auto text = [this](const char* english, std::size_t number) {
        return filledText(m_text(english), {QString::number(number)});
    };
    if (progress.oneStep && progress.row >= 0)
        return text("Recording over step ^1", static_cast<std::size_t>(progress.row) + 1);
    const std::size_t left = progress.steps < limits::macroSteps ? limits::macroSteps - progress.steps : 0;
    return left == 0   ? text("Recording: no steps left", left)
           : left == 1 ? text("Recording: 1 step left", left)
                       : text("Recording: ^1 steps left", left);
}

void RecordingView::showProgress(const RecordingProgress& progress) {
    const QString state = stateText(progress);
    // A run of one step ends by itself.
    const QString shown =
        progress.oneStep ? state : state + QStringLiteral(" \u00B7 ") + m_text("hold Esc to stop");
    // The button has the focus meanwhile, and a change of what has it is what screen readers read out: how to
    // end once, how far it is with every step.
    const bool begins = m_views.text->text().isEmpty();
    showTexts(shown, m_text("Type, and click in this list."), begins ? shown : state);
}

void RecordingView::showNoProgress() {
    showTexts({}, m_noSteps, m_description);
}

void RecordingView::showTexts(const QString& shown, const QString& emptyList, const QString& ofButton) {
    if (m_views.text->text() == shown)
        return;
    m_views.text->setText(shown);
    m_views.steps->setEmptyText(emptyList);
    m_views.button->setAccessibleDescription(ofButton);
    QAccessibleEvent alert(m_views.text, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void RecordingView::takeFocus() {
    if (m_views.button->isVisible())
        m_views.button->setFocus();
}

int RecordingView::selectedStep() const {
    return m_views.steps->selectedRow();
}

void RecordingView::selectStep(int row) {
    m_views.steps->selectRowAlone(row);
}

void RecordingView::redrawSteps() {
    m_views.steps->viewport()->update();
}

} // namespace quorvi
