// What the user has done to the settings, to be taken back and done again.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "plist/Value.h"

namespace quorvi {

/// Whether an action can be taken back, or done again, and if not, why.
enum class Undoable : std::uint8_t {
    nothing, ///< there is none
    yes,
    othersChanged, ///< another program has changed the same settings since
};

/// The action that is next.
struct UndoOffer {
    Undoable able = Undoable::nothing;
    std::u16string action; ///< its name, in the user's language; empty when there is none
    bool operator==(const UndoOffer&) const = default;
};

/// The change that undoing or redoing has made to the tree.
struct Restored {
    plist::Dictionary from; ///< neither is to be changed
    plist::Dictionary to;

    explicit operator bool() const { return static_cast<bool>(to); }
};

/// Each action is kept as the trees before and after it, which share what is the same in both. It is taken
/// back in the tree that is there by then: what other programs have changed meanwhile stays.
class UndoStack {
  public:
    /// So many actions are kept. The oldest one goes for a further one.
    static constexpr std::size_t kMostActions = 100;

    /// The tree is what it is through others: read from the file, or joined with what they wrote there.
    void takeOver(const plist::Dictionary& tree);
    /// The panel has put in order what the last action has left in the tree, or what undoing it has. That
    /// belongs to the action.
    void takeRepairsOver(const plist::Dictionary& tree);
    /// The user has done this to the tree since the last call of these two. Nothing is noted when the tree is
    /// as it was, or none was taken over before. There is nothing to be done again any more. Whether the
    /// tree is another one.
    bool note(const plist::Dictionary& tree, const std::u16string& action);
    /// The same when the action can have touched only the settings and the profile at the index.
    bool noteInProfile(const plist::Dictionary& tree, const std::u16string& action, std::size_t profile);
    /// What is noted from here to endGroup() is one action, under its first name.
    void beginGroup() { m_group = Group::begun; }
    void endGroup();
    /// Whether the tree is what the last call of takeOver(), note(), undo() or redo() has seen.
    [[nodiscard]] bool isAt(const plist::Dictionary& tree) const;

    [[nodiscard]] UndoOffer undoOffer() const { return offer(m_done, Direction::back); }
    [[nodiscard]] UndoOffer redoOffer() const { return offer(m_undone, Direction::forth); }
    /// Takes the last action back in the tree, in place. False, and nothing happens, when there is none or
    /// others have changed the same things.
    Restored undo(const plist::Dictionary& tree) { return move(m_done, m_undone, Direction::back, tree); }
    /// Does it again.
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
    Actions m_undone; ///< the next one to be done again at the end
    /// What could be done again before the group that has been begun, which may yet turn out to be no action.
    Actions m_undoneBefore;
    plist::Dictionary m_last;
    Group m_group = Group::none;
};

} // namespace quorvi
