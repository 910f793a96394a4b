#include "editors/macros/StepEdits.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

#include <algorithm>
#include <utility>

#include "document/Document.h"
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
    : m_context(context), m_list(list), m_isRecording(std::move(isRecording)) {}

std::size_t StepEdits::selected() const {
    const int row = m_list.table().selectedRow();
    const std::size_t count = m_context.document.macroSteps().size();
    return row >= 0 ? static_cast<std::size_t>(row) : count;
}

void StepEdits::finish(int row, const char* action) {
    m_list.reload();
    m_list.table().selectRowAlone(row);
    m_context.document.commit({.action = actionName(m_context.text(action))});
}

bool StepEdits::canMove(MoveDirection direction) const {
    return !m_isRecording() &&
           placeOfMovedStep(m_context.document.macroSteps(), selected(), direction).has_value();
}

void StepEdits::move(MoveDirection direction) {
    if (const auto place = moveStep(m_context.document.macroSteps(), selected(), direction))
        finish(static_cast<int>(*place), "Move Step");
}

std::string StepEdits::textOfSelected() const {
    const plist::Array& steps = m_context.document.macroSteps();
    return textOfSteps(copyOfSteps(steps, stepWithPartner(steps, selected())));
}

bool StepEdits::canCopy() const {
    return !m_isRecording() && !textOfSelected().empty();
}

void StepEdits::copy() {
    QGuiApplication::clipboard()->setText(QString::fromStdString(textOfSelected()));
}

void StepEdits::cut() {
    copy();
    const plist::Array& steps = m_context.document.macroSteps();
    const int row = m_list.table().selectedRow();
    takeSteps(steps, stepWithPartner(steps, selected()));
    finish(std::min(row, static_cast<int>(steps.size()) - 1), "Cut Step");
}

bool StepEdits::canPaste() const {
    return !m_isRecording() && m_context.document.macroSteps() && clipboardHasText();
}

void StepEdits::paste() {
    const StepsOfText read = stepsOfText(QGuiApplication::clipboard()->text().toStdU16String());
    if (read.error != StepsTextError::none)
        return tellWhatIsNoStep(read);
    const InsertedSteps inserted = insertSteps(m_context.document.macroSteps(), selected() + 1, read.steps);
    if (inserted.count > 0)
        finish(static_cast<int>(inserted.first + inserted.count) - 1, "Paste Steps");
    if (inserted.leftOut > 0)
        tellLeftOut(inserted);
}

void StepEdits::tellWhatIsNoStep(const StepsOfText& read) const {
    const QString text =
        read.error == StepsTextError::notAStep
            ? textWithName(m_context.text("“^1” on the clipboard is not a step of a macro."), read.part)
            : m_context.text("There are no steps of a macro on the clipboard.");
    m_context.notices.tell(Notice::outcome, text, NoticeSign::warning);
}

void StepEdits::tellLeftOut(const InsertedSteps& inserted) const {
    const QString text =
        filledText(m_context.text("Steps that had no room: ^1. A macro has at most 16 steps."),
            {QString::number(inserted.leftOut)});
    if (inserted.count > 0)
        m_context.notices.tellUndoable(text, NoticeSign::warning);
    else
        m_context.notices.tell(Notice::outcome, text, NoticeSign::warning);
}

bool StepEdits::canDuplicate() const {
    return !m_isRecording() && canDuplicateStep(m_context.document.macroSteps(), selected());
}

void StepEdits::duplicate() {
    const InsertedSteps inserted = duplicateStep(m_context.document.macroSteps(), selected());
    if (inserted.count > 0)
        finish(static_cast<int>(inserted.first), "Duplicate Step");
}

std::vector<MenuCommand> StepEdits::commands() {
    // An assistive program may choose an item that has become impossible since the menu was open.
    const auto command = [](int tag, const std::function<void()>& perform,
                             const std::function<bool()>& isPossible) {
        const auto performIfPossible = [perform, isPossible] {
            if (isPossible())
                perform();
        };
        return MenuCommand{tag, performIfPossible, isPossible, {}, true};
    };
    const auto commandToMove = [&](int tag, MoveDirection direction) {
        return command(
            tag, [this, direction] { move(direction); }, [this, direction] { return canMove(direction); });
    };
    const auto canCopyIt = [this] { return canCopy(); };
    return {
        commandToMove(kMoveStepUpItem, MoveDirection::up),
        commandToMove(kMoveStepDownItem, MoveDirection::down),
        command(
            kCutStepItem, [this] { cut(); }, canCopyIt),
        command(
            kCopyStepItem, [this] { copy(); }, canCopyIt),
        command(
            kPasteStepsItem, [this] { paste(); }, [this] { return canPaste(); }),
        command(
            kDuplicateStepItem, [this] { duplicate(); }, [this] { return canDuplicate(); }),
    };
}

} // namespace quorvi
