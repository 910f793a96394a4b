#include "editors/recording/RecordingOffers.h"

#include <QStringList>

#include <algorithm>
#include <utility>

#include "document/Document.h"
#include "plist/DeepCopy.h"
#include "window/ActionNames.h"
#include "window/FaultTexts.h"
#include "window/Notices.h"

namespace quorvi {

namespace {

/// The steps that letGo() would add and remove.
LettingGo wouldLetGo(const plist::Array& steps, std::size_t from) {
    return letGo(plist::deepCopy(steps).array(), from);
}

} // namespace

RecordingOffers::RecordingOffers(const EditorContext& context, Others others)
    : m_context(context), m_others(std::move(others)) {}

void RecordingOffers::tell(const Run& run) {
    const Document& document = m_context.document;
    m_told = Told{run, document.macroIndex(), plist::deepCopy(document.macroSteps())};
    tellCapsLock();
    tellKeysDown();
}

bool RecordingOffers::isCurrent() const {
    const Document& document = m_context.document;
    return m_told && document.hasDevice() && document.macroIndex() == m_told->macro &&
           plist::Value(document.macroSteps()) == m_told->steps;
}

void RecordingOffers::show() {
    if (m_told && !isCurrent())
        withdraw();
}

void RecordingOffers::withdraw() {
    m_told.reset();
    m_context.notices.withdraw(Notice::keysDown);
    m_context.notices.withdraw(Notice::capsLock);
}

void RecordingOffers::tellCapsLock() {
    const auto& place = m_told->run.foundCapsLock;
    if (!place)
        return;
    const QString text = *place == 0 ? m_context.text("Caps Lock was on, so the macro begins with it.")
                                     : m_context.text("Caps Lock was on, so the new steps press it too.");
    m_context.notices.tellOffer(Notice::capsLock, text,
        {.title = m_context.text("Remove Caps Lock"), .take = [this] { removeFoundCapsLock(); }});
}

void RecordingOffers::tellKeysDown() {
    const plist::Array& steps = m_context.document.macroSteps();
    const auto left = pressesLeftDown(steps, m_told->run.stepsBefore);
    if (left.empty())
        return;
    const LettingGo mending = wouldLetGo(steps, m_told->run.stepsBefore);
    m_context.notices.tellOffer(Notice::keysDown, keysDownText(left, mending),
        {.title = titleOf(mending),
            .take = [this] { letKeysGo(); },
            .ended = [this] { setOffersRelease(false); }});
    setOffersRelease(true);
}

void RecordingOffers::setOffersRelease(bool offers) {
    m_offersRelease = offers;
    m_others.offerHasChanged();
}

bool RecordingOffers::offersToMend(const StepCheck& fault) const {
    if (!m_offersRelease || !isCurrent())
        return false;
    const auto left = pressesLeftDown(m_context.document.macroSteps(), m_told->run.stepsBefore);
    return std::ranges::find(left, fault) != left.end();
}

QString RecordingOffers::keysDownText(const std::vector<StepCheck>& left, const LettingGo& mending) const {
    QStringList names;
    for (const StepCheck& check : left)
        names << nameOfPressed(m_context.document.macroSteps().dictionary(check.index), m_context.text);
    const QString pattern = names.size() == 1
                                ? m_context.text("The recording ended before ^1 was released.")
                                : m_context.text("The recording ended before all keys were released: ^1.");
    QString sentence = filledText(pattern, {joinedText(m_context.text("^1, ^2, ^3"), names)});
    if (mending.removed == 0)
        return sentence;
    const QString reason = names.size() == 1 ? m_context.text("There is no room for the release.")
                                             : m_context.text("There is no room for every release.");
    return filledText(m_context.text("^1 ^2"), {sentence, reason});
}

QString RecordingOffers::titleOf(const LettingGo& mending) const {
    if (mending.removed == 0)
        return mending.added == 1 ? mendingTitle(Mending::addRelease, m_context.text)
                                  : m_context.text("Add the Missing Releases");
    return mending.added + mending.removed == 1 ? mendingTitle(Mending::removePress, m_context.text)
                                                : m_context.text("Repair the Macro");
}

void RecordingOffers::letKeysGo() {
    if (!isCurrent())
        return;
    finish(titleOf(letGo(m_context.document.macroSteps(), m_told->run.stepsBefore)), m_told->run);
}

void RecordingOffers::removeFoundCapsLock() {
    if (!isCurrent() || !removeCapsLock(m_context.document.macroSteps(), m_told->run.stepsBefore))
        return;
    finish(m_context.text("Remove Caps Lock"), {.stepsBefore = m_told->run.stepsBefore});
}

// By value, because the run is part of the data that is deleted here.
void RecordingOffers::finish(const QString& action, Run run) {
    m_told.reset();
    m_others.showSteps();
    m_context.document.commit({.action = actionName(action)});
    tell(run);
}

} // namespace quorvi
