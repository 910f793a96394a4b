// The commands of the lists' context and gear menus, which their items name by tags (MenuTags.h).
#pragma once

#include <QString>

#include <functional>
#include <vector>

class QAction;

namespace quorvi {

class Document;

struct MenuCommand {
    int tag;
    /// Whoever called may not outlive it: it may ask a question.
    std::function<void()> perform;
    /// Asked only while there is a mouse.
    std::function<bool()> isPossible;
    /// What the item is called just now; empty for one that always has the same name.
    std::function<QString()> title = {};
    /// What comes of the command is saved by itself: it is over only later, or nothing comes of it.
    bool savesLater = false;
};

class MenuCommands {
  public:
    /// The document must outlive it.
    explicit MenuCommands(const Document& document) : m_document(document) {}

    void add(std::vector<MenuCommand> commands);

    /// Whether the item can be chosen now: none without a mouse, and any that is no command's with one. Gives
    /// the item its name.
    [[nodiscard]] bool validate(QAction* item) const;
    /// Performs the command with the tag, if there is one, which this object may not outlive. Whether what
    /// came of it is to be saved.
    [[nodiscard]] bool perform(int tag) const;

  private:
    [[nodiscard]] const MenuCommand* commandOf(int tag) const;

    const Document& m_document;
    std::vector<MenuCommand> m_commands;
};

} // namespace quorvi
