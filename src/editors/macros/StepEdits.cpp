#include "editors/macros/StepEdits.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>
#include <utility>

#include "document/Document.h"
#include "editors/macros/SelectedSteps.h"
#include "macros/StepPairs.h"
#include "resources/MenuTags.h"
#include "widgets/KyvarQuorviTableView.h"
#include "window/ActionNames.h"
#include "window/Notices.h"
#include "window/TableList.h"

namespace quorvi {

namespace {

/// Asks for no more than whether there is a text: its owner may be slow to give it.
bool clipboardHasText() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasText();
}

} // namespace

StepEdits::StepEdits(const EditorContext& context, TableList& list, std::function<bool()> isRecording)
    : m_context(context), m_list(list), m_isRecording(std::move(isRecording)) {
    const auto movedStep = [](bool alone) { return alone ? MovedStep::alone : MovedStep::keepingPairs; };
    m_list.table().setRowMoves({.carried =
                                    [=, this](const std::vector<int>& rows, int before, bool alone) {
                                        return rowsOf(carried(stepsOfRows(rows),
                                            static_cast<std::size_t>(before), movedStep(alone)));
                                    },
        .drop =
            [=, this](const std::vector<int>& rows, int before, bool alone) {
                drop(stepsOfRows(rows), static_cast<std::size_t>(before), movedStep(alone));
            }});
}

const char* StepEdits::named(const char* one, const char* several) const {
    return selectedSteps(m_list.table(), m_context.document).size() > 1 ? several : one;
}

void StepEdits::finish(const StepPlaces& steps, const char* action) {
    m_list.reload();
    m_list.table().selectRows(rowsOf(steps));
    m_context.document.commit({.action = actionName(m_context.text(action))});
}

bool StepEdits::canMove(MoveDirection direction) const {
    const StepPlaces steps = selectedSteps(m_list.table(), m_context.document);
    return !m_isRecording() &&
           placesOfMovedSteps(m_context.document.macroSteps(), steps, direction).has_value();
}

void StepEdits::move(MoveDirection direction) {
    const char* action = named("Move Step", "Move Steps");
    const StepPlaces steps = selectedSteps(m_list.table(), m_context.document);
    if (const auto places = moveSteps(m_context.document.macroSteps(), steps, direction))
        finish(*places, action);
}

StepPlaces StepEdits::carried(const StepPlaces& steps, std::size_t before, MovedStep moved) const {
    if (m_isRecording())
        return {};
    return stepsMovedByDrop(m_context.document.macroSteps(), steps, before, moved).value_or(StepPlaces());
}

void StepEdits::drop(const StepPlaces& steps, std::size_t before, MovedStep moved) {
    const bool one = carried(steps, before, moved).size() == 1;
    if (m_isRecording())
        return;
    if (const auto places = dropSteps(m_context.document.macroSteps(), steps, before, moved))
        finish(*places, one ? "Move Step" : "Move Steps");
}

std::string StepEdits::textOfSelected() const {
    const plist::Array& steps = m_context.document.macroSteps();
    const StepPlaces selected = selectedSteps(m_list.table(), m_context.document);
    return textOfSteps(copyOfSteps(steps, stepsWithPartners(steps, selected)));
}

bool StepEdits::canCopy() const {
    return !m_isRecording() && !textOfSelected().empty();
}

void StepEdits::copy() {
    QGuiApplication::clipboard()->setText(QString::fromStdString(textOfSelected()));
}

void StepEdits::cut() {
    copy();
    const char* action = named("Cut Step", "Cut Steps");
    const plist::Array& steps = m_context.document.macroSteps();
    const int row = m_list.table().selectedRow();
    takeSteps(steps, stepsWithPartners(steps, selectedSteps(m_list.table(), m_context.document)));
    m_list.reload();
    m_list.table().selectRowAlone(std::min(row, static_cast<int>(steps.size()) - 1));
    m_context.document.commit({.action = actionName(m_context.text(action))});
}

bool StepEdits::canPaste() const {
    return !m_isRecording() && m_context.document.macroSteps() && clipboardHasText();
}

void StepEdits::paste() {
    const StepsOfText read = stepsOfText(QGuiApplication::clipboard()->text().toStdU16String());
    if (read.error != StepsTextError::none)
        return tellWhatIsNoStep(read);
    const InsertedSteps inserted = insertSteps(m_context.document.macroSteps(),
        placeBehindSelection(m_list.table(), m_context.document), read.steps);
    if (inserted.count > 0)
        finish({inserted.first + inserted.count - 1}, "Paste Steps");
    if (inserted.leftOut > 0)
        tellLeftOut(inserted);
}

void StepEdits::tellWhatIsNoStep(const StepsOfText& read) const {
    const QString text =
        read.error == StepsTextError::notAStep
            ? textWithName(m_context.text("“^1” on the clipboard is not a macro step."), read.part)
            : m_context.text("There are no macro steps on the clipboard.");
    m_context.notices.tell(Notice::outcome, text, NoticeSign::warning);
}

void StepEdits::tellLeftOut(const InsertedSteps& inserted) const {
    const QString text =
        filledText(m_context.text("Steps that did not fit: ^1. A macro has at most 16 steps."),
            {QString::number(inserted.leftOut)});
    if (inserted.count > 0)
        m_context.notices.tellUndoable(text, NoticeSign::warning);
    else
        m_context.notices.tell(Notice::outcome, text, NoticeSign::warning);
}

bool StepEdits::canDuplicate() const {
    return !m_isRecording() && canDuplicateSteps(m_context.document.macroSteps(),
                                   selectedSteps(m_list.table(), m_context.document));
}

void StepEdits::duplicate() {
    const char* action = named("Duplicate Step", "Duplicate Steps");
    const StepPlaces selected = selectedSteps(m_list.table(), m_context.document);
    const InsertedSteps inserted = duplicateSteps(m_context.document.macroSteps(), selected);
    if (inserted.count == 0)
        return;
    StepPlaces copies{inserted.first};
    while (selected.size() > 1 && copies.size() < inserted.count)
        copies.push_back(copies.back() + 1);
    finish(copies, action);
}

std::vector<MenuCommand> StepEdits::commands() {
    // An assistive program may choose an item that has become impossible since the menu was open.
    const auto command = [this](int tag, const char* one, const char* several,
                             const std::function<void()>& perform, const std::function<bool()>& isPossible) {
        const auto performIfPossible = [perform, isPossible] {
            if (isPossible())
                perform();
        };
        const auto title = [this, one, several] { return m_context.text(named(one, several)); };
        return MenuCommand{tag, performIfPossible, isPossible, title, true};
    };
    const auto commandToMove = [&](int tag, const char* one, const char* several, MoveDirection direction) {
        return command(
            tag, one, several, [this, direction] { move(direction); },
            [this, direction] { return canMove(direction); });
    };
    const auto canCopyIt = [this] { return canCopy(); };
    return {
        commandToMove(kMoveStepUpItem, "Move Step Up", "Move Steps Up", MoveDirection::up),
        commandToMove(kMoveStepDownItem, "Move Step Down", "Move Steps Down", MoveDirection::down),
        command(
            kCutStepItem, "Cut Step", "Cut Steps", [this] { cut(); }, canCopyIt),
        command(
            kCopyStepItem, "Copy Step", "Copy Steps", [this] { copy(); }, canCopyIt),
        command(
            kPasteStepsItem, "Paste Steps", "Paste Steps", [this] { paste(); },
            [this] { return canPaste(); }),
        command(
            kDuplicateStepItem, "Duplicate Step", "Duplicate Steps", [this] { duplicate(); },
            [this] { return canDuplicate(); }),
    };
}

} // namespace quorvi
