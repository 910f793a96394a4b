#include "editors/assignment/AssignmentEditor.h"

#include <QMenu>
#include <QPointer>

#include <algorithm>

#include "editors/assignment/AssignmentTexts.h"
#include "editors/assignment/FunctionSymbols.h"
#include "editors/assignment/InputActions.h"
#include "editors/assignment/InputCopies.h"
#include "editors/assignment/InputNumbers.h"
#include "keyboard/KeyCodeConversion.h"
#include "model/CommandCodes.h"
#include "model/Keys.h"
#include "model/Lookups.h"
#include "widgets/InputLabel.h"
#include "widgets/MenuItems.h"
#include "widgets/MouseView.h"
#include "widgets/PopUpButton.h"
#include "widgets/ShownText.h"
#include "window/Unread.h"

namespace quorvi {

namespace {

/// The commands whose items show a decorated title while they are the selected assignment.
constexpr std::array kDecorated{commands::switchToProfile, commands::runMacro, commands::singleKey};

bool isDecorated(int command) {
    return std::ranges::find(kDecorated, command) != kDecorated.end();
}

/// Some items show a decorated title while they are the selected assignment; this one is restored afterwards.
void rememberItemTitles(const QMenu& menu) {
    for (QAction* item : menu.actions()) {
        item->setProperty(kRepresentedObject, titleOfItem(*item));
        if (isItemGroup(*item))
            rememberItemTitles(*item->menu());
    }
}

QString plainTitleOf(const QAction& item) {
    return item.property(kRepresentedObject).toString();
}

/// The number of the input that the pop-up is for, 1 to 9.
int inputOf(const QObject& popUp) {
    return popUp.property("tag").toInt();
}

/// The number of the input that a list's item is for; std::nullopt for the fixed item.
std::optional<int> inputOfListItem(const QAction& listItem) {
    const auto* popUp = listItem.property(kRepresentedObject).value<QObject*>();
    return popUp ? std::optional(inputOf(*popUp)) : std::nullopt;
}

/// "4  Rear side button" without the mark of the key that leads to it.
QString titleOfLabel(const InputLabel& label) {
    return withoutDirection(label.text()).remove(QLatin1Char('&')).simplified();
}

/// The assigned key; none if something else is assigned.
KeyChoice keyOf(const plist::Dictionary& assignment) {
    if (assignment.integer(keys::command) != commands::singleKey)
        return {};
    return {.key = UsbToAdbKeycode(assignment.integer(keys::param1) & 0xFF),
        .modifiers = UsbToAdbModifiers(assignment.integer(keys::param2) & 0xFF)};
}

} // namespace

AssignmentEditor::AssignmentEditor(const EditorContext& context, const Views& views, Others others)
    : m_document(context.document), m_text(context.text), m_views(views),
      m_description(views.popUps.front()->accessibleDescription()), m_others(std::move(others)),
      m_lists(views.popUps),
      m_menu(context, views.popUps,
          {.titleOf = [this](int input, const plist::Dictionary& given) { return titleOf(input, given); },
              .defaultSettings = m_others.defaultSettings}) {
    for (const QMenu* commands : {&m_views.commands, &m_views.wheelCommands})
        rememberItemTitles(*commands);
    m_views.mouse.setExplanation([this](int input) { return explanationOfInput(input); });
    for (int input = 1; input <= limits::buttons; ++input) {
        PopUpButton* popUp = m_views.popUps[static_cast<std::size_t>(input - 1)];
        popUp->setMenuLike(commandsOf(input));
        popUp->setProperty("tag", input);
        connect(popUp, &PopUpButton::menuMade, this, [this, popUp] { m_lists.fill(*popUp); });
    }
}

const QMenu& AssignmentEditor::commandsOf(int input) const {
    return input <= lastButton ? m_views.commands : m_views.wheelCommands;
}

plist::Dictionary AssignmentEditor::assignmentOf(int input) const {
    return assignmentIn(m_document.profile(), input);
}

QString AssignmentEditor::titleOf(int input, const plist::Dictionary& assignment) const {
    const QMenu& menu = commandsOf(input);
    const QAction* item = selectableItemWithTag(menu, assignment.integer(keys::command));
    if (!item)
        item = selectableItemWithTag(menu, commands::noFunction);
    return assignmentTitle(m_document, assignment, plainTitleOf(*item), m_text);
}

void AssignmentEditor::show() {
    for (int input = 1; input <= limits::buttons; ++input)
        showInput(*m_views.popUps[static_cast<std::size_t>(input - 1)], input);
}

void AssignmentEditor::listProfiles() {
    m_lists.listProfiles(m_document.tree().array(keys::profiles));
}

void AssignmentEditor::listMacros() {
    m_lists.listMacros(m_document.tree().array(keys::macros));
}

// Without a primary click the user could not undo the change: button 1 gets it if no other button has it.
std::int32_t AssignmentEditor::commandOf(int input) {
    const plist::Dictionary assignment = assignmentOf(input);
    const std::int32_t command = assignment.integer(keys::command);
    if (input != 1 || command == commands::click ||
        KyvarFindClickInProfile(m_document.profile(), buttonsBut(1)) >= 0)
        return command;
    assignment.set(keys::command, commands::click);
    return commands::click;
}

bool AssignmentEditor::isOnlyClick(int input, std::int32_t command) const {
    return command == commands::click && KyvarFindClickInProfile(m_document.profile(), buttonsBut(input)) < 0;
}

bool AssignmentEditor::isLocked(int input, std::int32_t command) const {
    return input <= lastButton && m_document.hasDevice() && isOnlyClick(input, command);
}

QString AssignmentEditor::lockReason() const {
    return m_text(
        "This is the only primary click of the profile. Give another button the primary click first; "
        "then this one can change.");
}

void AssignmentEditor::showSign(PopUpButton& popUp, int input, std::int32_t command) {
    const bool locked = isLocked(input, command);
    popUp.setSymbol(locked ? Symbol::Locked : m_document.tree() ? symbolOfFunction(command) : std::nullopt);
    popUp.setToolTip(locked ? lockReason() : QString());
    popUp.setAccessibleDescription(locked ? lockReason() : m_description);
    m_views.labels.at(static_cast<std::size_t>(input - 1))
        ->setNote(locked ? m_text("only primary click") : QString());
}

void AssignmentEditor::showInput(PopUpButton& popUp, int input) {
    const std::int32_t command = commandOf(input);
    if (input <= lastButton)
        popUp.setEnabled(m_document.hasDevice() && !isOnlyClick(input, command));
    showSign(popUp, input, command);
    if (!m_document.tree()) {
        popUp.selectNone(unreadText());
        return;
    }
    std::optional<QString> title;
    if (const QAction* item =
            isDecorated(command) ? selectableItemWithTag(commandsOf(input), command) : nullptr)
        title = assignmentTitle(m_document, assignmentOf(input), plainTitleOf(*item), m_text);
    // Until the menu is built its titles are the plain ones; asking for an item would build it.
    if (!popUp.awaitsMenu())
        for (const int other : kDecorated)
            if (QAction* item = popUp.itemWithTag(other); item && other != command)
                setTitleOfItem(*item, plainTitleOf(*item));
    if (!popUp.selectItemWithTag(command, title))
        popUp.selectItemWithTag(commands::noFunction);
}

QString AssignmentEditor::explanationOfInput(int input) const {
    if (!m_document.tree() || !m_document.hasDevice())
        return {};
    const auto index = static_cast<std::size_t>(input - 1);
    QStringList lines{titleOfLabel(*m_views.labels[index]),
        withoutDirection(m_views.popUps[index]->currentText()),
        stepsOfMacro(m_document, assignmentOf(input), m_text), m_others.profileInUse()};
    if (isLocked(input, assignmentOf(input).integer(keys::command)))
        lines << lockReason();
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

/// Values of an earlier choice are removed: unused ones read as 0.
void AssignmentEditor::assign(const plist::Dictionary& assignment, Values values) {
    assignment.removeAll();
    for (const auto& [key, value] : values)
        assignment.set(key, value);
}

void AssignmentEditor::chooseFunction(PopUpButton& popUp) {
    const int input = inputOf(popUp);
    const int command = popUp.selectedTag();
    showSign(popUp, input, command); // of the title that is shown by now
    if (command == commands::singleKey) {
        // The menu must finish the choice before the sheet's event loop runs, because the pop-up and its menu
        // may be destroyed during the sheet.
        QMetaObject::invokeMethod(
            this, [this, input] { askForSingleKey(input); }, Qt::QueuedConnection);
        return;
    }
    assign(assignmentOf(input), {{keys::command, command}});
    m_document.commit({.action = assignAction(input, m_text), .touched = Touched::currentProfile});
}

void AssignmentEditor::askForSingleKey(int input) {
    if (!m_others.isPanelShown())
        return; // hidden in the meantime
    const std::int32_t profile = m_document.profileIndex();
    const QPointer<AssignmentEditor> guard(this);
    const std::optional<KeyChoice> chosen = m_others.askForKey(keyOf(assignmentOf(input)));
    if (!guard)
        return;
    if (!chosen) {
        m_document.commit();
        return;
    }
    // A device list may have replaced the whole tree during the sheet: store the key at the same place of the
    // present tree.
    assign(m_document.profiles()
               .dictionary(static_cast<std::size_t>(profile))
               .dictionary(keys::buttons)
               .dictionary(keys::button(input)),
        {{keys::command, commands::singleKey}, {keys::param1, AdbToUsbKeycode(chosen->key)},
            {keys::param2, AdbToUsbModifiers(chosen->modifiers)}});
    m_document.commit({.action = assignAction(input, m_text)});
}

void AssignmentEditor::chooseMacro(const QAction& item) {
    const int macroId = tagOfItem(item).value_or(0);
    if (const auto input = inputOfListItem(item))
        assignFromList(
            item, *input, {{keys::command, commands::runMacro}, {keys::param1, macroId}, {keys::param2, 1}});
    else
        m_others.showMacrosTab();
}

void AssignmentEditor::chooseProfile(const QAction& item) {
    const int number = tagOfItem(item).value_or(0) + 1;
    if (const auto input = inputOfListItem(item))
        assignFromList(item, *input, {{keys::command, commands::switchToProfile}, {keys::param1, number}});
    else
        m_others.showProfilesTab();
}

void AssignmentEditor::assignFromList(const QAction& item, int input, Values values) {
    const plist::Dictionary assignment = assignmentOf(input);
    assign(assignment, values);
    assignment.set(keys::string, titleOfItem(item).toStdU16String());
    m_document.commit({.action = assignAction(input, m_text), .touched = Touched::currentProfile});
}

} // namespace quorvi
