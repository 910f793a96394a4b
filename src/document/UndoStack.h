// The user's actions on the settings, for undo and redo.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "plist/Value.h"

namespace quorvi {

/// Whether an action can be undone or redone, and if not, why.
enum class Undoable : std::uint8_t {
    nothing, ///< there is none
    yes,
    othersChanged, ///< another program has since changed the same settings
};

/// The next action.
struct UndoOffer {
    Undoable able = Undoable::nothing;
    std::u16string action; ///< its name, in the user's language; empty if there is none
    bool operator==(const UndoOffer&) const = default;
};

/// The change to the tree by undo or redo.
struct Restored {
    plist::Dictionary from; ///< neither may be changed
    plist::Dictionary to;

    explicit operator bool() const { return static_cast<bool>(to); }
};

/// Stores each action as the trees before and after it, which share their equal parts. Undo applies to the
/// present tree: later changes by other programs stay.
class UndoStack {
  public:
    /// The most actions that are kept; a further one removes the oldest.
    static constexpr std::size_t kMostActions = 100;

    /// Sets a tree that was read from the file or merged with other programs' changes.
    void takeOver(const plist::Dictionary& tree);
    /// Adds the panel's repairs after the last action, or after its undo, to that action.
    void takeRepairsOver(const plist::Dictionary& tree);
    /// Records the user's change since the last call of these functions. Records nothing if the tree is
    /// unchanged, or takeOver() was never called. Clears the redo list. Returns whether the tree has changed.
    bool note(const plist::Dictionary& tree, const std::u16string& action);
    /// The same if the action can have changed only the settings and the profile at the index.
    bool noteInProfile(const plist::Dictionary& tree, const std::u16string& action, std::size_t profile);
    /// Everything recorded until endGroup() is one action, with its first name.
    void beginGroup() { m_group = Group::begun; }
    void endGroup();
    /// Whether the tree is unchanged since the last call of takeOver(), note(), undo() or redo().
    [[nodiscard]] bool isAt(const plist::Dictionary& tree) const;

    [[nodiscard]] UndoOffer undoOffer() const { return offer(m_done, Direction::back); }
    [[nodiscard]] UndoOffer redoOffer() const { return offer(m_undone, Direction::forth); }
    /// Undoes the last action in the tree, in place. Changes nothing if there is none, or if other programs
    /// have changed the same settings.
    Restored undo(const plist::Dictionary& tree) { return move(m_done, m_undone, Direction::back, tree); }
    /// Redoes the last undone action.
    Restored redo(const plist::Dictionary& tree) { return move(m_undone, m_done, Direction::forth, tree); }

  private:
    enum class Direction : std::uint8_t { back, forth };
    enum class Group : std::uint8_t { none, begun, noted };

    struct Action {
        std::u16string name;
        plist::Dictionary before;
        plist::Dictionary after;
    };
    using Actions = std::deque<Action>;

    bool noteSnapshot(const plist::Dictionary& now, const std::u16string& action);
    void forgetOldest();
    [[nodiscard]] UndoOffer offer(const Actions& actions, Direction direction) const;
    [[nodiscard]] plist::Dictionary treeWithout(
        const Action& action, Direction direction, const plist::Dictionary& now) const;
    Restored move(Actions& from, Actions& to, Direction direction, const plist::Dictionary& tree);

    Actions m_done;   ///< the last one at the end
    Actions m_undone; ///< the next one to redo is at the end
    /// The redo list before the present group, which may turn out to be empty.
    Actions m_undoneBefore;
    plist::Dictionary m_last;
    Group m_group = Group::none;
};

} // namespace quorvi
