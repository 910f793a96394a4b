#include "editors/playing/MacroTrial.h"

#include <utility>

#include "document/Document.h"
#include "model/Keys.h"
#include "plist/DeepCopy.h"
#include "widgets/TrialField.h"
#include "window/ShownStep.h"

namespace quorvi {

namespace {

constexpr double kSecondsOfFrame = 1.0 / 30; // smooth enough for a line that passes

} // namespace

MacroTrial::MacroTrial(const EditorContext& context, const TrialView::Views& views, Others others)
    : m_context(context), m_view(views, context.text), m_others(std::move(others)),
      m_macro(m_others.time, *this) {}

bool MacroTrial::isPossible() const {
    const Document& document = m_context.document;
    return document.hasDevice() && !m_others.isRecording() && document.macroSteps().size() > 0;
}

bool MacroTrial::isStillShown() const {
    const Document& document = m_context.document;
    return isPossible() && document.macroIndex() == m_macroIndex &&
           document.profileIndex() == m_profileIndex && plist::Value(document.macroSteps()) == m_steps;
}

void MacroTrial::show() {
    if (isRunning() && !isStillShown())
        stop();
    m_view.setPossible(isPossible());
}

void MacroTrial::startOrStop() {
    if (isRunning())
        stop();
    else if (isPossible())
        start();
    else
        m_view.showRunning(false);
}

void MacroTrial::start() {
    const Document& document = m_context.document;
    m_steps = plist::deepCopy(document.macroSteps());
    m_macroIndex = document.macroIndex();
    m_profileIndex = document.profileIndex();
    m_view.field().beginTrial();
    m_keyboard = std::make_unique<TrialKeyboard>(m_view.field(), layoutInUse(), lookupIn(m_context.text));
    m_view.showRunning(true);
    m_view.showKeys({});
    if (!m_macro.start(document.tree(), document.macro().integer(keys::macroId)))
        return stop();
    if (isRunning())
        showFrame();
}

void MacroTrial::stop() {
    if (!isRunning())
        return;
    m_macro.stop();
    hasEnded();
}

void MacroTrial::hasEnded() {
    m_awaitingFrame.reset();
    m_view.field().endTrial();
    m_view.announceEnd(m_keyboard->line());
    m_keyboard.reset();
    m_view.showRunning(false);
    m_others.markStep(std::nullopt);
    m_others.showTime(std::nullopt);
}

void MacroTrial::keyChanged(std::uint8_t usage, bool down) {
    m_keyboard->change(usage, down);
    m_view.showKeys(m_keyboard->shownKeys());
}

void MacroTrial::buttonChanged(int button, bool down) {
    m_keyboard->changeButton(button, down);
    m_view.showKeys(m_keyboard->shownKeys());
}

void MacroTrial::stepHasGoneOut() {
    m_others.markStep(m_macro.step());
    if (m_macro.isRunning())
        m_others.showTime(m_macro.elapsed());
}

void MacroTrial::showFrame() {
    m_others.showTime(m_macro.elapsed());
    if (!m_view.mayMove())
        return;
    m_awaitingFrame = std::make_unique<QObject>();
    m_others.time.callLater(kSecondsOfFrame, m_awaitingFrame.get(), [this] { showFrame(); });
}

} // namespace quorvi
