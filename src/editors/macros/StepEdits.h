// The commands of the list of steps that move, cut, copy, paste and duplicate steps. A press and its release
// go together.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "macros/StepClipboard.h"
#include "macros/StepMoves.h"
#include "window/EditorContext.h"
#include "window/MenuCommands.h"

namespace quorvi {

class TableList;

class StepEdits {
  public:
    /// The list is that of the current macro's steps, and outlives it. While a recording runs nothing is
    /// possible here.
    StepEdits(const EditorContext& context, TableList& list, std::function<bool()> isRecording);

    /// Each is one action, which saves itself.
    [[nodiscard]] std::vector<MenuCommand> commands();

  private:
    [[nodiscard]] bool canMove(MoveDirection direction) const;
    void move(MoveDirection direction);
    [[nodiscard]] bool canCopy() const;
    /// The text of the selected step and its other half; empty without one.
    [[nodiscard]] std::string textOfSelected() const;
    void copy();
    void cut();
    [[nodiscard]] bool canPaste() const;
    void paste();
    [[nodiscard]] bool canDuplicate() const;
    void duplicate();

    /// The index of the selected step; past the end for none.
    [[nodiscard]] std::size_t selected() const;
    /// Shows the list with the row selected, none for -1, and ends the action that the text names.
    void finish(int row, const char* action);
    void tellWhatIsNoStep(const StepsOfText& read) const;
    void tellLeftOut(const InsertedSteps& inserted) const;

    EditorContext m_context;
    TableList& m_list;
    std::function<bool()> m_isRecording;
};

} // namespace quorvi
