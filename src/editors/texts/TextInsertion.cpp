#include "editors/texts/TextInsertion.h"

#include <QPointer>

#include <algorithm>
#include <numeric>
#include <utility>

#include "document/Document.h"
#include "editors/texts/InsertTextPanel.h"
#include "macros/StepInsertions.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "platform/InterfaceText.h"
#include "plist/DeepCopy.h"
#include "resources/MenuTags.h"
#include "widgets/KyvarQuorviTableView.h"
#include "window/ActionNames.h"
#include "window/Sheets.h"
#include "window/TableList.h"

namespace quorvi {

TextInsertion::TextInsertion(const EditorContext& context, Others others)
    : m_context(context), m_others(std::move(others)) {}

std::size_t TextInsertion::room() const {
    constexpr std::size_t most = limits::macroSteps;
    return most - std::min(most, m_context.document.macroSteps().size());
}

bool TextInsertion::isPossible() const {
    return !m_others.isRecording() && m_context.document.macroSteps() && room() > 0;
}

void TextInsertion::insert() {
    setInterfaceTextLookup(
        [this](const QString& english) { return m_context.text(english.toUtf8().constData()); });
    const QPointer<InsertTextPanel> sheet =
        new InsertTextPanel(&m_others.mainView, {.room = room(), .text = m_context.text});
    setInterfaceTextLookup(nullptr);
    const plist::Value before = plist::deepCopy(m_context.document.macroSteps());
    const int code = m_context.sheets.run(sheet);
    if (!sheet)
        return; // the panel has gone
    const TypedTextSteps typed = sheet->steps();
    delete sheet;
    // The settings may have been read afresh while the sheet stood.
    const plist::Array& steps = m_context.document.macroSteps();
    if (code != QDialog::Accepted || !isPossible() || plist::Value(steps) != before)
        return;
    TableList& list = m_others.list();
    const std::vector<int> selected = list.table().selectedRows();
    const auto place = selected.empty() ? steps.size() : static_cast<std::size_t>(selected.back()) + 1;
    const InsertedSteps inserted = insertSteps(steps, place, typed.steps);
    if (inserted.count == 0)
        return;
    const std::size_t last = inserted.first + inserted.count - 1;
    if (last + 1 == steps.size()) // nothing follows that could be held back
        steps.dictionary(last).set(keys::delay, 0);
    list.reload();
    std::vector<int> rows(inserted.count);
    std::iota(rows.begin(), rows.end(), static_cast<int>(inserted.first));
    list.table().selectRows(rows);
    m_context.document.commit({.action = actionName(m_context.text("Insert Text"))});
}

std::vector<MenuCommand> TextInsertion::commands() {
    // An assistive program may choose an item that has become impossible since the menu was open.
    const auto insertIfPossible = [this] {
        if (isPossible())
            insert();
    };
    return {{kInsertTextItem, insertIfPossible, [this] { return isPossible(); }, {}, true}};
}

} // namespace quorvi
