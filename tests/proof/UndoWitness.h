// The expected results of undo: plain copies of the settings before each action and after each undone one.
#pragma once

#include <deque>
#include <string>

#include "plist/Value.h"

namespace quorvi::test {

class UndoWitness {
  public:
    [[nodiscard]] static std::string bytesOf(const plist::Dictionary& tree);

    /// To be called before whatever may be an action, and noteAction() behind it, which takes it for one when
    /// the tree is another one.
    void beginAction(const plist::Dictionary& tree);
    void noteAction(const plist::Dictionary& tree);

    [[nodiscard]] bool canUndo() const { return !m_before.empty(); }
    [[nodiscard]] bool canRedo() const { return !m_after.empty(); }
    /// The tree was this and is to be undone, or done again. The bytes that it has to have then.
    [[nodiscard]] std::string undo(const plist::Dictionary& tree);
    [[nodiscard]] std::string redo(const plist::Dictionary& tree);

    /// Another program has set the number under the key of the tree.
    void othersSet(std::string_view key, std::int32_t number);

  private:
    plist::Dictionary m_begun;
    std::deque<plist::Dictionary> m_before;
    std::deque<plist::Dictionary> m_after;
};

} // namespace quorvi::test
