// What is probably not meant in the current macro: marked in the list of its steps, said below it, and put
// right by a click.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "macros/StepMending.h"
#include "window/EditorContext.h"

namespace quorvi {

class FaultLine;
class TableList;

class StepFaults {
  public:
    struct Views {
        TableList& list; ///< of the current macro's steps
        FaultLine& line;
    };

    /// What it asks others; none is empty.
    struct Others {
        std::function<bool()> isRecording;
        /// Somewhere else on the screen a button puts the fault right.
        std::function<bool(const StepCheck& fault)> isOfferedElsewhere;
    };

    /// The views must outlive it. While a recording runs nothing is found, because nothing is finished. What
    /// is offered elsewhere is said without a button.
    StepFaults(const EditorContext& context, const Views& views, Others others);

    /// Derives the marks and the line from the document, and from which step is selected.
    void show();

  private:
    void showMarks(const std::vector<StepCheck>& faults);
    void showLine(const std::vector<StepCheck>& faults);
    /// The first fault of the selected step; the first of all where it has none.
    [[nodiscard]] std::optional<StepCheck> toldFault(const std::vector<StepCheck>& faults) const;
    [[nodiscard]] QString textOf(const StepCheck& fault, std::size_t count) const;
    void mend();

    EditorContext m_context;
    Views m_views;
    Others m_others;
};

} // namespace quorvi
