#include "editors/macros/StepInserts.h"

#include <utility>

#include "document/Document.h"
#include "editors/macros/SelectedSteps.h"
#include "macros/StepCodes.h"
#include "model/Limits.h"
#include "resources/MenuTags.h"
#include "resources/TableTags.h"
#include "widgets/KyvarQuorviTableView.h"
#include "window/ActionNames.h"
#include "window/TableList.h"

namespace quorvi {

StepInserts::StepInserts(const EditorContext& context, TableList& list, Others others)
    : m_context(context), m_list(list), m_others(std::move(others)) {}

std::size_t StepInserts::place(Side side) const {
    const StepPlaces selected = selectedSteps(m_list.table(), m_context.document);
    if (side == Side::before && !selected.empty())
        return selected.front();
    return placeBehindSelection(m_list.table(), m_context.document);
}

bool StepInserts::hasRoomFor(std::size_t steps) const {
    const plist::Array& present = m_context.document.macroSteps();
    return !m_others.isRecording() && present && present.size() + steps <= limits::macroSteps;
}

void StepInserts::insertKey(Side side) {
    const std::int32_t macro = m_context.document.macroIndex();
    const std::size_t where = place(side);
    const std::optional<std::uint8_t> key = m_others.askForKey();
    // The mouse may have gone while the sheet was up, or its settings may have been read afresh.
    if (!key || m_context.document.macroIndex() != macro || !hasRoomFor(2))
        return;
    insertTapAt(where, stepcodes::keyDown, *key, "Insert Key");
}

void StepInserts::insertTapAt(
    std::size_t place, std::uint32_t press, std::uint8_t argument, const char* action) {
    const InsertedSteps inserted = insertTap(m_context.document.macroSteps(), place, press, argument);
    if (inserted.count == 0)
        return;
    m_list.reload();
    m_list.table().selectRows(rowsOf({inserted.first, inserted.first + 1}));
    m_context.document.commit({.action = actionName(m_context.text(action))});
}

// A pause is the delay of the step before it; before the first step there is none to have it.
bool StepInserts::canInsertPause(Side side) const {
    return !m_others.isRecording() && place(side) > 0;
}

void StepInserts::insertPause(Side side) {
    const int row = static_cast<int>(place(side)) - 1;
    m_list.table().selectRowAlone(row);
    m_list.table().editCell(m_list.model().columnOf(kStepDelayColumn), row);
}

void StepInserts::addCommands(Side side, std::vector<MenuCommand>& commands) {
    // An assistive program may choose an item that has become impossible since the menu was open.
    const auto add = [&](int tag, const std::function<void()>& perform,
                         const std::function<bool()>& isPossible) {
        const auto performIfPossible = [perform, isPossible] {
            if (isPossible())
                perform();
        };
        commands.push_back({tag, performIfPossible, isPossible, {}, true});
    };
    const auto tag = [side](int before) {
        return side == Side::before ? before : before + kInsertAfterItems - kInsertBeforeItems;
    };
    const auto hasRoomForTap = [this] { return hasRoomFor(2); };
    add(
        tag(kRecordBeforeItem), [this, side] { m_others.recordAt(place(side)); },
        [this] { return hasRoomFor(1); });
    add(
        tag(kKeyBeforeItem), [this, side] { insertKey(side); }, hasRoomForTap);
    add(
        tag(kPauseBeforeItem), [this, side] { insertPause(side); },
        [this, side] { return canInsertPause(side); });
    int item = kButton1BeforeItem;
    for (const std::uint32_t press : stepcodes::buttonsDown)
        add(
            tag(item++), [this, side, press] { insertTapAt(place(side), press, 0, "Insert Mouse Button"); },
            hasRoomForTap);
}

std::vector<MenuCommand> StepInserts::commands() {
    std::vector<MenuCommand> commands;
    addCommands(Side::before, commands);
    addCommands(Side::after, commands);
    return commands;
}

} // namespace quorvi
