// The current macro as a drawing in time, above the list of its steps. It follows the list's rows and its
// selection, whoever changes them, and changes delays.
#pragma once

#include <functional>

#include "editors/macros/TypedDelays.h"
#include "widgets/StepsTimeline.h"
#include "window/EditorContext.h"

class QMenu;

namespace quorvi {

class TableList;

class TimelineEditor final {
  public:
    struct Views {
        StepsTimeline& timeline;
        QMenu& commands;     ///< the menu of the steps
        const QMenu& delays; ///< the usual ones, with the milliseconds for tags
    };

    /// The list is that of the current macro's steps, and outlives it. While a recording runs the drawing
    /// grows with it, and nothing can be changed.
    TimelineEditor(
        const EditorContext& context, const Views& views, TableList& list, std::function<bool()> isRecording);
    TimelineEditor(const TimelineEditor&) = delete;
    TimelineEditor& operator=(const TimelineEditor&) = delete;

    /// Derives all of it from the document, from which rows are selected, and from whether a recording runs.
    /// While nobody sees it, that waits until it appears.
    void show();

  private:
    void followList();
    void draw();
    void showSelection();
    void select(const std::vector<int>& steps);
    /// One action, which saves itself.
    void setDelay(int step, int milliseconds);
    [[nodiscard]] bool isEditable() const;
    [[nodiscard]] TimelineContent content() const;
    [[nodiscard]] QString stepInWords(const Timeline& timeline, std::size_t step) const;
    [[nodiscard]] QString delayText(std::int32_t milliseconds) const;

    EditorContext m_context;
    StepsTimeline& m_timeline;
    TableList& m_list;
    std::function<bool()> m_isRecording;
    TypedDelays m_delays;
};

} // namespace quorvi
