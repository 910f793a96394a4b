// The commands that insert steps before or after the selected ones: recorded ones, a key, a mouse button, or
// a pause.
#pragma once

#include <QString>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "macros/StepInsertions.h"
#include "window/EditorContext.h"
#include "window/MenuCommands.h"

namespace quorvi {

class TableList;

class StepInserts {
  public:
    /// What it has others do.
    struct Others {
        std::function<bool()> isRecording;
        /// Starts a recording that inserts its steps before the one at the index.
        std::function<void(std::size_t index)> recordAt;
        /// Asks for one key and gives its USB usage; nothing when the user has called it off, or the panel
        /// has gone meanwhile.
        std::function<std::optional<std::uint8_t>()> askForKey;
    };

    /// The list is that of the current macro's steps, and outlives it.
    StepInserts(const EditorContext& context, TableList& list, Others others);

    /// Each is one action, which saves itself, except that a recording saves when it ends, and a pause is
    /// typed into the cell of the step that it follows.
    [[nodiscard]] std::vector<MenuCommand> commands();

  private:
    enum class Side : std::uint8_t { before, after };

    void addCommands(Side side, std::vector<MenuCommand>& commands);
    /// Before the first or after the last of the selected steps, at the end when none is selected.
    [[nodiscard]] std::size_t place(Side side) const;
    [[nodiscard]] bool hasRoomFor(std::size_t steps) const;
    void insertKey(Side side);
    void insertTapAt(std::size_t place, std::uint32_t press, std::uint8_t argument, const char* action);
    [[nodiscard]] bool canInsertPause(Side side) const;
    void insertPause(Side side);

    EditorContext m_context;
    TableList& m_list;
    Others m_others;
};

} // namespace quorvi
