#include "document/UndoStack.h"

#include <algorithm>
#include <array>
#include <utility>

#include "document/Snapshot.h"
#include "model/Keys.h"
#include "model/SettingsMerge.h"
#include "plist/DeepCopy.h"

namespace quorvi {

namespace {

using plist::Dictionary;

constexpr std::array kInForce{keys::dpiX, keys::dpiY, keys::independentXY};

bool haveSameStage(const Dictionary& a, const Dictionary& b) {
    return a.integer(keys::profileId) == b.integer(keys::profileId) &&
           a.integer(keys::stage) == b.integer(keys::stage);
}

/// The action's target tree, without its change of the sensitivity in force. That belongs to the current
/// stage, which the mouse's own button may have changed since.
Dictionary withoutSensitivityInForce(const Dictionary& wanted, const Dictionary& base) {
    Dictionary tree = plist::mutableDeepCopy(wanted);
    const Dictionary settings = tree.dictionary(keys::settings);
    const Dictionary inForce = base.dictionary(keys::settings);
    for (const std::string_view key : kInForce)
        if (const auto& value = inForce.value(key); !value.isNothing())
            settings.set(key, value);
    return tree;
}

} // namespace

void UndoStack::takeOver(const Dictionary& tree) {
    m_last = snapshotOf(tree, m_last);
    if (m_group == Group::noted) // so that the next action does not include other programs' changes
        m_group = Group::begun;
}

void UndoStack::takeRepairsOver(const Dictionary& tree) {
    const Dictionary before = m_last;
    takeOver(tree);
    const auto takeOverInto = [&](Dictionary& state) {
        if (snapshotOf(before, state).isSameAs(state))
            state = m_last;
    };
    if (!m_done.empty())
        takeOverInto(m_done.back().after);
    if (!m_undone.empty())
        takeOverInto(m_undone.back().before);
}

bool UndoStack::note(const Dictionary& tree, const std::u16string& action) {
    return noteSnapshot(snapshotOf(tree, m_last), action);
}

bool UndoStack::noteInProfile(const Dictionary& tree, const std::u16string& action, std::size_t profile) {
    return noteSnapshot(m_last ? snapshotOfProfile(tree, m_last, profile) : snapshotOf(tree, m_last), action);
}

bool UndoStack::noteSnapshot(const Dictionary& now, const std::u16string& action) {
    if (now.isSameAs(m_last))
        return false;
    const Dictionary before = std::exchange(m_last, now);
    if (!before)
        return false;
    if (m_group == Group::noted) {
        m_done.back().after = now;
        return true;
    }
    m_done.push_back({action, before, now});
    m_undoneBefore = std::exchange(m_undone, {});
    if (m_group == Group::begun)
        m_group = Group::noted;
    else
        forgetOldest();
    return true;
}

void UndoStack::endGroup() {
    if (m_group == Group::noted) {
        const Action& action = m_done.back();
        const bool hasComeBack = snapshotOf(action.after, action.before).isSameAs(action.before);
        if (hasComeBack) {
            m_done.pop_back();
            m_undone = std::exchange(m_undoneBefore, {});
        }
        forgetOldest();
    }
    m_group = Group::none;
}

void UndoStack::forgetOldest() {
    m_undoneBefore.clear();
    if (m_done.size() > kMostActions)
        m_done.pop_front();
}

bool UndoStack::isAt(const Dictionary& tree) const {
    return snapshotOf(tree, m_last).isSameAs(m_last);
}

/// Nil if other programs have changed the same settings.
Dictionary UndoStack::treeWithout(const Action& action, Direction direction, const Dictionary& now) const {
    const bool isBack = direction == Direction::back;
    const Dictionary& base = isBack ? action.after : action.before;
    const Dictionary& wanted = isBack ? action.before : action.after;
    if (snapshotOf(now, base).isSameAs(base))
        return wanted;
    const Dictionary inForce = base.dictionary(keys::settings);
    const bool keepsStage = haveSameStage(inForce, wanted.dictionary(keys::settings)) &&
                            !haveSameStage(inForce, now.dictionary(keys::settings));
    const MergedSettings merged =
        mergeSettings(base, keepsStage ? withoutSensitivityInForce(wanted, base) : wanted, now);
    return merged.conflict ? Dictionary() : merged.tree;
}

UndoOffer UndoStack::offer(const Actions& actions, Direction direction) const {
    if (actions.empty() || !m_last)
        return {};
    const Action& action = actions.back();
    const bool isPossible = static_cast<bool>(treeWithout(action, direction, m_last));
    return {isPossible ? Undoable::yes : Undoable::othersChanged, action.name};
}

Restored UndoStack::move(Actions& from, Actions& to, Direction direction, const Dictionary& tree) {
    if (from.empty() || !tree)
        return {};
    const Dictionary now = snapshotOf(tree, m_last);
    const Dictionary wanted = plist::mutableDeepCopy(treeWithout(from.back(), direction, now));
    if (!wanted)
        return {};
    m_group = Group::none;
    bringTo(tree, wanted);
    to.push_back(std::move(from.back()));
    from.pop_back();
    const bool isBack = direction == Direction::back;
    m_last = snapshotOf(tree, isBack ? to.back().before : to.back().after);
    return {now, m_last};
}

} // namespace quorvi
