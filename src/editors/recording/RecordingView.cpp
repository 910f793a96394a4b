#include "editors/recording/RecordingView.h"

#include <QAccessible>

#include <utility>

#include "model/Limits.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/StateLabel.h"
#include "widgets/SymbolIcon.h"
#include "widgets/ToggleButton.h"

namespace quorvi {

namespace {

/// The sign in the text that says how to end a recording.
constexpr QChar kStopSign(u'\u25A0');

std::size_t stepsLeft(const RecordingProgress& progress) {
    return progress.steps < limits::macroSteps ? limits::macroSteps - progress.steps : 0;
}

/// Whether a step is replaced; otherwise steps are added.
bool isOverStep(const RecordingProgress& progress) {
    return progress.oneStep && progress.row >= 0;
}

} // namespace

RecordingView::RecordingView(const Views& views, PanelText text)
    : m_views(views), m_text(std::move(text)), m_recordTitle(views.button->text()),
      m_stopTitle(views.button->property("alternateTitle").toString()),
      m_description(views.button->accessibleDescription()), m_noSteps(views.steps->emptyText()) {}

void RecordingView::showCommand(bool runs) {
    m_views.button->setText(commandTitle(runs));
    m_views.button->setAccessibleName(m_views.button->text());
    m_views.button->setChecked(runs);
    m_views.button->setIcon(symbolIcon(runs ? Symbol::Stop : Symbol::Record));
}

QString RecordingView::stateText(const RecordingProgress& progress) const {
    const auto text = [this](const char* english, std::size_t number) {
        return filledText(m_text(english), {QString::number(number)});
    };
    if (isOverStep(progress))
        return text("Recording step ^1 again", static_cast<std::size_t>(progress.row) + 1);
    const std::size_t left = stepsLeft(progress);
    return left == 0   ? text("Recording: the macro is full", left)
           : left == 1 ? text("Recording: 1 step left", left)
                       : text("Recording: ^1 steps left", left);
}

void RecordingView::showProgress(const RecordingProgress& progress) {
    const QString state = stateText(progress);
    // A run of one step ends by itself.
    const QString shown =
        progress.oneStep ? state : filledText(m_text("^1 · ^2"), {state, m_text("■ or hold Esc to stop")});
    const bool begins = m_views.text->text().isEmpty();
    m_views.text->setWarning(!isOverStep(progress) && stepsLeft(progress) == 0);
    if (m_views.text->text() == shown)
        return;
    showTexts(shown, m_text("Press keys, or click in this list."));
    // Announcing every step would disturb the user's typing.
    if (begins)
        say(QString(shown).replace(kStopSign, m_stopTitle));
    else if (stepsLeft(progress) <= 1)
        say(state);
}

void RecordingView::showNoProgress() {
    m_views.text->setWarning(false);
    if (m_views.text->text().isEmpty())
        return;
    showTexts({}, m_noSteps);
    say(m_description);
}

void RecordingView::showTexts(const QString& shown, const QString& emptyList) {
    m_views.text->setText(shown);
    m_views.steps->setEmptyText(emptyList);
}

void RecordingView::say(const QString& text) {
    m_views.button->setAccessibleDescription(text);
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
