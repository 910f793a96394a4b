#include "window/MenuCommands.h"

#include <algorithm>
#include <iterator>

#include "document/Document.h"
#include "widgets/MenuItems.h"

namespace quorvi {

void MenuCommands::add(std::vector<MenuCommand> commands) {
    std::ranges::move(commands, std::back_inserter(m_commands));
}

const MenuCommand* MenuCommands::commandOf(int tag) const {
    const auto found = std::ranges::find(m_commands, tag, &MenuCommand::tag);
    return found == m_commands.end() ? nullptr : &*found;
}

bool MenuCommands::validate(QAction* item) const {
    if (!item || !m_document.hasDevice())
        return false;
    const MenuCommand* command = commandOf(tagOfItem(*item).value_or(0));
    if (!command)
        return true;
    if (command->title)
        setTitleOfItem(*item, command->title());
    return command->isPossible();
}

bool MenuCommands::perform(int tag) const {
    const MenuCommand* found = commandOf(tag);
    if (!found)
        return true;
    const MenuCommand command = *found;
    command.perform();
    return !command.savesLater;
}

} // namespace quorvi
