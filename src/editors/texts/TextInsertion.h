// The command of the list of steps that inserts the steps of a text.
#pragma once

#include <functional>
#include <vector>

#include "window/EditorContext.h"
#include "window/MenuCommands.h"

class QWidget;

namespace quorvi {

class TableList;

class TextInsertion {
  public:
    struct Others {
        QWidget& mainView;
        std::function<TableList&()> list; ///< of the current macro's steps
        std::function<bool()> isRecording;
    };

    TextInsertion(const EditorContext& context, Others others);

    /// Asks for the text and inserts its steps behind the selected one, or at the end. This object may not
    /// outlive the question.
    void insert();
    [[nodiscard]] std::vector<MenuCommand> commands();

  private:
    [[nodiscard]] std::size_t room() const;
    [[nodiscard]] bool isPossible() const;

    EditorContext m_context;
    Others m_others;
};

} // namespace quorvi
