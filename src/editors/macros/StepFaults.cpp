#include "editors/macros/StepFaults.h"

#include <algorithm>
#include <utility>

#include "document/Document.h"
#include "resources/TableTags.h"
#include "widgets/FaultLine.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/MarkedCells.h"
#include "window/ActionNames.h"
#include "window/FaultTexts.h"
#include "window/TableList.h"

namespace quorvi {

StepFaults::StepFaults(const EditorContext& context, const Views& views, Others others)
    : m_context(context), m_views(views), m_others(std::move(others)) {
    TableModel& model = views.list.model();
    KyvarQuorviTableView& table = views.list.table();
    table.setItemDelegateForColumn(
        model.columnOf(kStepActionColumn), std::make_unique<MarkedCells>(&table).release());
    // Many changes are shown by the list alone.
    QObject::connect(&model, &TableModel::modelReset, &views.line, [this] { show(); });
    QObject::connect(&model, &TableModel::dataChanged, &views.line, [this] { show(); });
    QObject::connect(&views.line, &FaultLine::mendingChosen, &model, [this] { mend(); });
}

void StepFaults::show() {
    if (m_others.isRecording()) {
        m_views.list.model().setMarks(kStepActionColumn, {});
        m_views.line.pause();
        return;
    }
    const auto faults = m_context.document.hasDevice() ? checkSteps(m_context.document.macroSteps())
                                                       : std::vector<StepCheck>();
    showMarks(faults);
    showLine(faults);
}

void StepFaults::showMarks(const std::vector<StepCheck>& faults) {
    RowMarks marks;
    for (const StepCheck& fault : faults) {
        QString& mark = marks[static_cast<int>(fault.index)];
        QString text = faultText(m_context.document.macroSteps(), fault, m_context.text);
        mark =
            joinedText(m_context.text("^1 ^2"), mark.isEmpty() ? QStringList(text) : QStringList{mark, text});
    }
    m_views.list.model().setMarks(kStepActionColumn, marks);
}

void StepFaults::showLine(const std::vector<StepCheck>& faults) {
    const Document& document = m_context.document;
    if (const auto told = toldFault(faults))
        return m_views.line.say(textOf(*told, faults.size()),
            m_others.isOfferedElsewhere(*told)
                ? QString()
                : mendingTitle(mendingOf(document.macroSteps(), *told), m_context.text));
    const auto inputs =
        document.hasDevice() && document.macroIndex() >= 0
            ? inputsThatRunNothing(document.tree(), static_cast<std::size_t>(document.macroIndex()))
            : std::vector<ProfileInput>();
    if (inputs.empty())
        m_views.line.clear();
    else
        m_views.line.say(emptyMacroText(document.tree(), inputs, m_context.text), {});
}

std::optional<StepCheck> StepFaults::toldFault(const std::vector<StepCheck>& faults) const {
    if (faults.empty())
        return std::nullopt;
    const int row = m_views.list.table().selectedRow();
    const auto ofSelected =
        std::ranges::find(faults, row, [](const StepCheck& fault) { return static_cast<int>(fault.index); });
    return ofSelected == faults.end() ? faults.front() : *ofSelected;
}

QString StepFaults::textOf(const StepCheck& fault, std::size_t count) const {
    QString text = faultText(m_context.document.macroSteps(), fault, m_context.text);
    if (count == 1)
        return text;
    return filledText(m_context.text("^1 ^2"),
        {text, filledText(m_context.text("And ^1 more."), {QString::number(count - 1)})});
}

void StepFaults::mend() {
    const plist::Array& steps = m_context.document.macroSteps();
    const auto fault = toldFault(checkSteps(steps));
    if (!fault || m_others.isRecording() || !m_context.document.hasDevice())
        return;
    const QString action = mendingTitle(mendingOf(steps, *fault), m_context.text);
    const std::size_t row = mendStep(steps, *fault);
    const bool hadFocus = m_views.line.hasFocusedButton();
    m_views.list.reload();
    m_views.list.table().selectRowAlone(static_cast<int>(row));
    m_context.document.commit({.action = actionName(action)});
    // The button may be another one now, or none.
    if (hadFocus)
        m_views.list.table().setFocus();
}

} // namespace quorvi
