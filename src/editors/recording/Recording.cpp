#include "editors/recording/Recording.h"

#include <QMouseEvent>
#include <QWidget>

#include <bit>
#include <utility>

#include "macros/StepCodes.h"
#include "model/Keys.h"
#include "plist/DeepCopy.h"
#include "window/ActionNames.h"

namespace quorvi {

namespace {

/// How long Escape must be held to end a recording.
constexpr double kSecondsToEnd = 1.5;

/// From 0: left, right, middle, back, forward and further ones, as the bits of Qt's buttons.
std::int32_t buttonNumber(Qt::MouseButton button) {
    return std::countr_zero(static_cast<unsigned>(button));
}

} // namespace

Recording::Recording(const EditorContext& context, const RecordingView::Views& views,
    std::vector<QWidget*> tables, Surroundings surroundings)
    : m_context(context), m_view(views, context.text),
      m_offers(context, {surroundings.reloadSteps, surroundings.offerHasChanged}),
      m_tables(std::move(tables)), m_surroundings(std::move(surroundings)) {}

void Recording::start(bool oneStep) {
    run([&] { m_recorder.start(oneStep); });
}

void Recording::startAt(std::size_t index) {
    run([&] { m_recorder.startAt(index); });
}

void Recording::run(const std::function<void()>& startRecorder) {
    if (isRunning())
        return;
    takeFocusFromCells();
    m_offers.withdraw();
    m_stepsBefore = plist::deepCopy(m_context.document.macroSteps());
    startRecorder();
    m_firstStep = m_recorder.nextPlace(m_context.document.macroSteps().size());
    didStartOrStop({.saving = Saving::never});
}

void Recording::stop() {
    if (!isRunning())
        return;
    m_recorder.stop();
    m_heldEscape.reset();
    setTablesTakeFocus(true);
    const std::u16string name = action();
    didStartOrStop({.action = name});
    if (!name.empty() && !m_recorder.isForOneStep())
        tellOffers();
}

void Recording::tellOffers() {
    m_offers.tell({.stepsBefore = m_firstStep, .foundCapsLock = m_recorder.placeOfFoundCapsLock()});
}

std::u16string Recording::action() const {
    if (plist::Value(m_context.document.macroSteps()) == m_stepsBefore)
        return {};
    if (m_recorder.isForOneStep())
        return actionName(m_context.text("Record Step Again"));
    return actionName(m_context.text("Record Macro “^1”"), m_context.document.macro().string(keys::name));
}

void Recording::didStartOrStop(const Change& change) {
    m_view.showCommand(isRunning());
    m_surroundings.tellHelper(isRunning());
    m_context.document.commit(change);
    m_view.redrawSteps();
    m_surroundings.keyCaptureBeganOrEnded();
}

// In a text field, the input method composes text and consumes dead keys before the recording sees them. So
// the focus moves to the button that stops the recording, which also ends an edit.
void Recording::takeFocusFromCells() {
    m_view.takeFocus();
    setTablesTakeFocus(false);
}

// A recorded click must not move the focus.
void Recording::setTablesTakeFocus(bool take) {
    for (QWidget* table : m_tables)
        table->setFocusPolicy(take ? Qt::StrongFocus : Qt::NoFocus);
}

RecordingTarget Recording::target() const {
    return {m_context.document.macroSteps(), m_view.selectedStep()};
}

void Recording::receiveKey(const CapturedKey& key) {
    if (m_recorder.receiveKey(target(), key.key, key.modifiers, key.goingDown, m_surroundings.clock()))
        showRecordedStep();
    followHeldEscape();
}

bool Recording::receiveMouseEvent(const QMouseEvent& event, int type) {
    const auto code = isRunning() ? commandOfMouseEvent(type, buttonNumber(event.button())) : std::nullopt;
    if (!code)
        return false;
    m_recorder.receiveMouse(target(), *code, m_surroundings.clock());
    showRecordedStep();
    followHeldEscape();
    return true;
}

void Recording::showRecordedStep() {
    m_surroundings.reloadSteps();
    if (m_recorder.isForOneStep())
        stop();
    else
        m_view.selectStep(static_cast<int>(m_recorder.nextPlace(m_context.document.macroSteps().size())) - 1);
}

// Every key is recorded, so no key can press the button that stops it.
void Recording::followHeldEscape() {
    m_heldEscape.reset();
    if (!m_recorder.isEscapeHeld())
        return;
    m_heldEscape = std::make_unique<QObject>();
    m_surroundings.callLater(kSecondsToEnd, m_heldEscape.get(), [this] { endByEscape(); });
}

void Recording::endByEscape() {
    m_recorder.takeBackEscape(m_context.document.macroSteps());
    showRecordedStep();
    stop();
}

void Recording::setStep(std::uint32_t code, std::uint8_t argument, std::int32_t index) {
    m_recorder.setStep(m_context.document.macroSteps(), code, argument, index, m_surroundings.clock());
}

void Recording::appendStep(std::uint32_t code, std::uint8_t argument) {
    m_recorder.appendStep(m_context.document.macroSteps(), code, argument, m_surroundings.clock());
}

void Recording::show() {
    if (isRunning())
        m_view.showProgress({.steps = m_context.document.macroSteps().size(),
            .row = m_view.selectedStep(),
            .oneStep = m_recorder.isForOneStep()});
    else
        m_view.showNoProgress();
    m_offers.show();
}

} // namespace quorvi
