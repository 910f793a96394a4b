#include "editors/macros/StepsEditor.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

#include "editors/macros/FactorPanel.h"
#include "editors/macros/SelectedSteps.h"
#include "macros/StepDelays.h"
#include "macros/StepInsertions.h"
#include "macros/StepPairs.h"
#include "model/Keys.h"
#include "model/Limits.h"
#include "platform/InterfaceText.h"
#include "resources/MenuTags.h"
#include "resources/TableTags.h"
#include "widgets/KyvarQuorviTableView.h"
#include "widgets/LineLabel.h"
#include "widgets/ShownText.h"
#include "window/ActionNames.h"
#include "window/ListButtons.h"
#include "window/Notices.h"
#include "window/Sheets.h"
#include "window/ShownNumber.h"

namespace quorvi {

namespace {

constexpr int kLeastRowsShown = 4;

} // namespace

StepsEditor::StepsEditor(const EditorContext& context, const Views& views, RecordingCommands recording)
    : m_context(context), m_views(views), m_recording(std::move(recording)),
      m_list(views.table, std::make_unique<StepsModel>(context, views.delays,
                              [&table = views.table] { return table.selectedRows(); })),
      m_edits(context, m_list, m_recording.isRunning), m_inserts(context, m_list,
                                                           {.isRecording = m_recording.isRunning,
                                                               .recordAt = m_recording.startAt,
                                                               .askForKey = m_recording.askForKey}),
      m_faults(context, {.list = m_list, .line = views.faults},
          {.isRecording = m_recording.isRunning, .isOfferedElsewhere = m_recording.offersToMend}) {
    m_list.onSelectionChange([this] { m_context.document.commit({.saving = Saving::never}); });
    m_views.table.setSeveralSelectable();
    m_views.table.setRowsNumbered();
    m_views.table.setLeastRows(kLeastRowsShown);
    QObject::connect(&m_list.model(), &TableModel::modelReset, &m_views.heading, [this] { showHeading(); });
    QObject::connect(&m_list.model(), &TableModel::dataChanged, &m_views.heading, [this] { showHeading(); });
    QObject::connect(&m_views.table, &KyvarQuorviTableView::doubleClickEnded, &m_list.model(),
        [this](const QModelIndex& cell) { recordAgain(cell); });
    m_views.table.setPopUpColumn(m_list.model().columnOf(kStepDelayColumn), &m_views.delays);
}

void StepsEditor::show() {
    const bool editable = m_context.document.hasDevice() && !m_recording.isRunning();
    m_list.model().setColumnEnabled(kStepDelayColumn, editable);
    m_views.addButton.setEnabled(editable);
    enableButtonOf(
        m_views.table, m_views.removeButton, editable && m_views.macros.selectedRow() >= 0 && isSelected());
    m_views.gearButton.setEnabled(editable);
    m_faults.show();
    showHeading();
}

void StepsEditor::showHeading() {
    const Document& document = m_context.document;
    const bool isShown = document.hasDevice() && document.macroIndex() >= 0;
    m_views.heading.setText(
        isShown ? shownName(QString::fromStdU16String(document.macro().string(keys::name))) : QString());
    const QStringList numbers{
        QString::number(document.macroSteps().size()), QString::number(limits::macroSteps)};
    const QString steps = filledText(m_context.text("^1 of ^2 s&teps"), numbers);
    const QString length = shownLength();
    m_views.count.setText(length.isEmpty() ? steps : filledText(m_context.text("^1 · ^2"), {steps, length}));
    m_views.count.setShortText(filledText(m_context.text("^1 of ^2"), numbers));
}

// The delay behind the last step takes no time: nothing comes after it.
QString StepsEditor::shownLength() const {
    constexpr std::int32_t second = 1000;
    const plist::Array& steps = m_context.document.macroSteps();
    std::int32_t length = 0;
    for (std::size_t step = 0; step + 1 < steps.size(); ++step)
        length += steps.dictionary(step).integer(keys::delay);
    if (length < second)
        return length > 0 ? model().exactText(length) : QString();
    QString seconds = QString::number(length / double(second), 'f', 1);
    seconds.replace(QLatin1Char('.'), QChar(decimalSign()));
    return filledText(m_context.text("^1 s"), {seconds});
}

void StepsEditor::showOtherMacro() {
    m_list.reload();
    m_views.table.deselectAll();
}

void StepsEditor::showPlayed(std::optional<std::size_t> step) {
    const int row = step ? static_cast<int>(*step) : -1;
    model().showPlayed(row);
    if (!step)
        return;
    // With the one that comes next: the last step is over too soon to be shown itself.
    m_views.table.scrollTo(model().index(std::min(row + 1, model().rowCount() - 1), 0));
    m_views.table.scrollTo(model().index(row, 0));
}

void StepsEditor::showKeyNames() {
    model().showActions();
}

void StepsEditor::recordAgain(const QModelIndex& cell) {
    const bool isAction = cell.column() == m_list.model().columnOf(kStepActionColumn);
    if (isAction && cell.row() == m_views.table.selectedRow() && m_context.document.hasDevice())
        m_recording.startOrStop(true, true);
}

void StepsEditor::remove() {
    const plist::Array& steps = m_context.document.macroSteps();
    const int row = m_views.table.selectedRow();
    if (row < 0 || row >= static_cast<int>(steps.size()))
        return;
    const StepPlaces selected = selectedSteps(m_views.table, m_context.document);
    const bool several = selected.size() > 1;
    if (several)
        takeSteps(steps, stepsWithPartners(steps, selected));
    else
        takeSteps(steps, selected);
    m_list.reload();
    const int last = static_cast<int>(steps.size()) - 1;
    const int next = static_cast<int>(selected.front());
    if (last >= 0)
        m_views.table.selectRowAlone(next < last ? next : last);
    m_context.document.commit({.saving = Saving::withNextAction,
        .action = actionName(m_context.text(several ? "Remove Steps" : "Remove Step"))});
}

// The list shows it already, and the command that asked for it saves.
void StepsEditor::commit(const QString& action) {
    m_context.document.commit(
        {.shown = Shown::nothing, .saving = Saving::never, .action = actionName(action)});
}

void StepsEditor::removeAll() {
    m_context.document.macroSteps().removeAll();
    m_list.reload();
    commit(m_context.text("Remove All Steps"));
    m_context.notices.tellUndoable(textWithName(m_context.text("All steps of the macro “^1” were removed."),
        m_context.document.macro().string(keys::name)));
}

void StepsEditor::useDelayOfSelectedForAll() {
    const plist::Array& steps = m_context.document.macroSteps();
    const int row = m_views.table.selectedRow();
    if (row >= 0 && row < static_cast<int>(steps.size()))
        setDelayForAll(steps.dictionary(static_cast<std::size_t>(row)).integer(keys::delay));
}

void StepsEditor::setDelayForAll(std::int32_t milliseconds) {
    setDelayForAllSteps(m_context.document.macroSteps(), milliseconds);
    m_list.reload();
    commit(m_context.text(milliseconds == 0 ? "Remove All Delays" : "Use This Delay for All Steps"));
}

void StepsEditor::multiplyDelays() {
    const bool some = areSeveralSelected();
    const std::u16string sign(1, decimalSign());
    const auto example = [&](const char16_t* whole, const char16_t* rest) {
        return QString::fromStdU16String(whole + sign + rest);
    };
    setInterfaceTextLookup(
        [this](const QString& english) { return m_context.text(english.toUtf8().constData()); });
    const QPointer<FactorPanel> sheet = new FactorPanel(m_views.table.window(),
        {.request = m_context.text(
             some ? "Multiply the delays of the selected steps by:" : "Multiply the delays of all steps by:"),
            .hint =
                filledText(m_context.text("A number such as ^1 for half as long, or ^2 for twice as long."),
                    {example(u"0", u"5"), QStringLiteral("2")})},
        decimalSign());
    setInterfaceTextLookup(nullptr);
    const bool confirmed = m_context.sheets.run(sheet) == QDialog::Accepted;
    if (!sheet)
        return; // the window went away underneath
    const auto factor = sheet->factor();
    delete sheet;
    if (confirmed && factor)
        multiplyDelays(*factor, some);
}

void StepsEditor::multiplyDelays(std::int32_t thousandths, bool ofSelected) {
    const StepPlaces selected = selectedSteps(m_views.table, m_context.document);
    const MultipliedDelays result = quorvi::multiplyDelays(
        m_context.document.macroSteps(), ofSelected ? selected : StepPlaces(), thousandths);
    m_list.reload();
    m_context.document.commit({.action = actionName(m_context.text("Multiply Delays"))});
    if (result.tooLong == 0)
        return;
    const QString text = filledText(m_context.text("Delays limited to ^1, the longest possible: ^2."),
        {model().exactText(limits::longestDelay), QString::number(result.tooLong)});
    if (result.changed > 0)
        m_context.notices.tellUndoable(text, NoticeSign::warning);
    else
        m_context.notices.tell(Notice::outcome, text, NoticeSign::warning);
}

bool StepsEditor::isSelected() const {
    return m_views.table.selectedRow() >= 0;
}

bool StepsEditor::areSeveralSelected() const {
    return m_views.table.selectedRows().size() > 1;
}

bool StepsEditor::hasSteps() const {
    return m_context.document.macroSteps().size() > 0;
}

QString StepsEditor::titleOfDelay(const QVariant& value) const {
    return model().titleOfDelay(value);
}

StepsModel& StepsEditor::model() const {
    return static_cast<StepsModel&>(m_list.model());
}

std::vector<MenuCommand> StepsEditor::commands() {
    const auto selected = [this] { return isSelected(); };
    const auto any = [this] { return hasSteps(); };
    std::vector<MenuCommand> commands{
        {kRecordItem, [this] { m_recording.startOrStop(!m_recording.isRunning(), false); },
            [] { return true; }, m_recording.title, true},
        {kRecordStepItem, [this] { m_recording.startOrStop(true, true); },
            [this] { return isSelected() && !m_recording.isRunning(); }, {}, true},
        {kRemoveStepItem, [this] { remove(); }, selected,
            [this] { return m_context.text(areSeveralSelected() ? "Remove Steps" : "Remove Step"); }},
        {kRemoveAllStepsItem, [this] { removeAll(); }, any},
        {kUseDelayForAllItem, [this] { useDelayOfSelectedForAll(); }, selected},
        {kMultiplyDelaysItem, [this] { multiplyDelays(); },
            [this] { return hasSteps() && !m_recording.isRunning(); }, {}, true},
        {kRemoveAllDelaysItem, [this] { setDelayForAll(0); }, any},
    };
    std::ranges::move(m_edits.commands(), std::back_inserter(commands));
    std::ranges::move(m_inserts.commands(), std::back_inserter(commands));
    return commands;
}

} // namespace quorvi
