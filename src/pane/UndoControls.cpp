#include "pane/UndoControls.h"

#include <QKeySequence>
#include <QTabWidget>

#include <algorithm>
#include <utility>

#include "document/ChangePlace.h"
#include "widgets/Announcement.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/ShownText.h"
#include "window/Notices.h"

namespace quorvi {

struct UndoControls::Way {
    QKeySequence::StandardKey key;
    UndoOffer (Document::*offer)() const;
    Restored (Document::*take)();
    // English, keys of the string table; "^1" stands for the action.
    const char* command;
    const char* nothing;
    const char* refused;
    const char* done;
};

namespace {

QString withKey(const QString& command, QKeySequence::StandardKey key, const PanelText& text) {
    const QString shown = QKeySequence(key).toString(QKeySequence::NativeText);
    return shown.isEmpty() ? command : filledText(text("^1 (^2)"), {command, shown});
}

} // namespace

UndoControls::UndoControls(const EditorContext& context, const Views& views, Others others)
    : m_context(context), m_views(views), m_others(std::move(others)) {}

const UndoControls::Way& UndoControls::back() {
    static constexpr Way way{QKeySequence::Undo, &Document::undoOffer, &Document::undo, "Undo ^1",
        "Nothing to undo", "^1 cannot be undone: another program has changed the same settings.",
        "Undone: ^1"};
    return way;
}

const UndoControls::Way& UndoControls::forth() {
    static constexpr Way way{QKeySequence::Redo, &Document::redoOffer, &Document::redo, "Redo ^1",
        "Nothing to redo", "^1 cannot be redone: another program has changed the same settings.",
        "Redone: ^1"};
    return way;
}

QString UndoControls::filled(const char* pattern, const UndoOffer& offer) const {
    const QString text = m_context.text(pattern);
    return filledText(text, {nameWithin(text, QString::fromStdU16String(offer.action))});
}

QString UndoControls::tipOf(const Way& way, const UndoOffer& offer) const {
    switch (offer.able) {
    case Undoable::yes:
        return withKey(filled(way.command, offer), way.key, m_context.text);
    case Undoable::othersChanged:
        return filled(way.refused, offer);
    case Undoable::nothing:
        break;
    }
    return m_context.text(way.nothing);
}

void UndoControls::show() {
    showButton(m_views.undo, m_shownUndo, back());
    showButton(m_views.redo, m_shownRedo, forth());
}

void UndoControls::showButton(QPushButton* button, UndoOffer& shown, const Way& way) {
    if (!button)
        return;
    const UndoOffer offer = (m_context.document.*way.offer)();
    button->setEnabled(
        m_context.document.hasDevice() && offer.able == Undoable::yes && !m_others.isCapturing());
    if (std::exchange(shown, offer) == offer)
        return; // reached by every click
    const QString tip = tipOf(way, offer);
    button->setToolTip(tip);
    button->setAccessibleDescription(tip);
}

void UndoControls::undo() {
    go(m_views.undo, back());
}

void UndoControls::redo() {
    go(m_views.redo, forth());
}

void UndoControls::go(QPushButton* button, const Way& way) {
    Document& document = m_context.document;
    if (!button || !document.hasDevice() || m_others.isCapturing())
        return;
    const UndoOffer offer = (document.*way.offer)();
    const Restored change = (document.*way.take)();
    m_context.notices.withdrawOffer();
    if (offer.able == Undoable::othersChanged)
        m_context.notices.tell(Notice::outcome, filled(way.refused, offer), NoticeSign::warning);
    if (!change)
        return;
    lead(change);
    announce(*button, filled(way.done, offer));
}

void UndoControls::lead(const Restored& change) {
    const ChangePlace place = placeOfChange(change.from, change.to);
    if (place.macro >= 0)
        m_context.document.editMacroIndex(place.macro);
    m_others.showLists();
    const auto current = static_cast<PlaceTab>(m_views.tabs.currentIndex());
    if (!place.tabs.empty() && std::ranges::find(place.tabs, current) == place.tabs.end())
        m_views.tabs.setCurrentIndex(static_cast<int>(place.tabs.front()));
    if (place.step >= 0)
        m_views.steps.selectRowAlone(place.step);
    m_context.document.commit();
}

} // namespace quorvi
