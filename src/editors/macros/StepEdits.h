// The commands of the list of steps that move, cut, copy, paste and duplicate the selected steps. A press and
// its release go together.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "macros/StepClipboard.h"
#include "macros/StepInsertions.h"
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
    [[nodiscard]] StepPlaces carried(const StepPlaces& steps, std::size_t before, MovedStep moved) const;
    void drop(const StepPlaces& steps, std::size_t before, MovedStep moved);
    /// The text of the selected steps and their other halves; empty without one.
    [[nodiscard]] std::string textOfSelected() const;
    [[nodiscard]] bool canCopy() const;
    void copy();
    void cut();
    [[nodiscard]] bool canPaste() const;
    void paste();
    [[nodiscard]] bool canDuplicate() const;
    void duplicate();

    /// The name of a command or an action for how many are selected.
    [[nodiscard]] const char* named(const char* one, const char* several) const;
    /// Shows the list with the steps selected, and ends the action that the text names.
    void finish(const StepPlaces& steps, const char* action);
    void tellWhatIsNoStep(const StepsOfText& read) const;
    void tellLeftOut(const InsertedSteps& inserted) const;

    EditorContext m_context;
    TableList& m_list;
    std::function<bool()> m_isRecording;
};

} // namespace quorvi
