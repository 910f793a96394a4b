#include "editors/macros/TimelineEditor.h"

#include <QMenu>

#include <algorithm>
#include <utility>

#include "document/Document.h"
#include "model/Keys.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MenuItems.h"
#include "window/ActionNames.h"
#include "window/ShownStep.h"
#include "window/TableList.h"

namespace quorvi {

namespace {

std::vector<std::int32_t> delaysOf(const QMenu& menu) {
    std::vector<std::int32_t> delays;
    for (const QAction* item : menu.actions())
        if (const auto delay = tagOfItem(*item))
            delays.push_back(*delay);
    std::ranges::sort(delays);
    return delays;
}

} // namespace

TimelineEditor::TimelineEditor(
    const EditorContext& context, const Views& views, TableList& list, std::function<bool()> isRecording)
    : m_context(context), m_timeline(views.timeline), m_list(list), m_isRecording(std::move(isRecording)),
      m_delays(context.text, context.notices) {
    m_timeline.setMenu(&views.commands);
    m_timeline.setList(&list.table());
    m_timeline.setUsualDelays(delaysOf(views.delays));
    m_timeline.setDelayText([this](std::int32_t delay) { return delayText(delay); });
    followList();
    QObject::connect(&m_timeline, &StepsTimeline::appears, &m_timeline, [this] { draw(); });
    QObject::connect(&m_timeline, &StepsTimeline::stepsChosen, &m_timeline,
        [this](const std::vector<int>& steps) { select(steps); });
    QObject::connect(&m_timeline, &StepsTimeline::delayChosen, &m_timeline,
        [this](int step, int delay) { setDelay(step, delay); });
}

void TimelineEditor::followList() {
    const TableModel* model = &m_list.model();
    const auto show = [this] { this->show(); };
    QObject::connect(model, &QAbstractItemModel::modelReset, &m_timeline, show);
    QObject::connect(model, &QAbstractItemModel::dataChanged, &m_timeline, show);
    QObject::connect(
        &m_list.table(), &KyvarQuorviTableView::selectedRowChanged, &m_timeline, [this] { showSelection(); });
}

bool TimelineEditor::isEditable() const {
    return m_context.document.hasDevice() && !m_isRecording();
}

// Every click in the window comes here, and most of them on another tab.
void TimelineEditor::show() {
    m_timeline.setEditable(isEditable());
    if (m_timeline.isVisible())
        draw();
}

void TimelineEditor::draw() {
    m_timeline.setContent(content());
    showSelection();
}

void TimelineEditor::showSelection() {
    m_timeline.setSelectedSteps(m_list.table().selectedRows(), m_list.table().selectedRow());
}

void TimelineEditor::select(const std::vector<int>& steps) {
    m_list.table().completeModel();
    m_list.table().selectRows(steps, steps.front());
}

void TimelineEditor::setDelay(int step, int milliseconds) {
    const plist::Array& steps = m_context.document.macroSteps();
    if (!isEditable() || step < 0 || static_cast<std::size_t>(step) >= steps.size())
        return;
    steps.dictionary(static_cast<std::size_t>(step)).set(keys::delay, milliseconds);
    m_list.reload();
    m_context.document.commit(
        {.shown = Shown::nothing, .action = actionName(m_context.text("Change Delay"))});
}

// What is shown

TimelineContent TimelineEditor::content() const {
    if (!m_context.document.hasDevice())
        return {};
    TimelineContent content;
    content.timeline = timelineOf(m_context.document.macroSteps());
    for (const TimelineLane& lane : content.timeline.lanes)
        content.laneNames << shownLane(lane, m_context.text);
    for (std::size_t step = 0; step < content.timeline.steps(); ++step)
        content.stepsInWords << stepInWords(content.timeline, step);
    return content;
}

QString TimelineEditor::stepInWords(const Timeline& timeline, std::size_t step) const {
    const std::int32_t before = step > 0 ? timeline.delays[step - 1] : 0;
    const std::int32_t behind = timeline.delays[step];
    QStringList parts{QString::number(step + 1), QString::number(timeline.steps()),
        shownStep(m_context.document.macroSteps().dictionary(step), m_context.text)};
    for (const std::int32_t delay : {before, behind})
        if (delay > 0)
            parts << delayText(delay);
    const char* const text = before > 0 && behind > 0 ? "Step ^1 of ^2: ^3, after ^4, then ^5"
                             : before > 0             ? "Step ^1 of ^2: ^3, after ^4"
                             : behind > 0             ? "Step ^1 of ^2: ^3, then ^4"
                                                      : "Step ^1 of ^2: ^3";
    return filledText(m_context.text(text), parts);
}

QString TimelineEditor::delayText(std::int32_t milliseconds) const {
    return milliseconds == 0 ? m_context.text("None") : m_delays.text(milliseconds);
}

} // namespace quorvi
