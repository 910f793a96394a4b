// The commands of the lists' context and gear menus, identified by tags (MenuTags.h).
#pragma once

#include <QString>

#include <functional>
#include <vector>

class QAction;

namespace quorvi {

class Document;

struct MenuCommand {
    int tag;
    /// The caller may be destroyed during it: it may ask a question.
    std::function<void()> perform;
    /// Called only while there is a mouse.
    std::function<bool()> isPossible;
    /// The item's present name; empty for a fixed one.
    std::function<QString()> title = {};
    /// The command saves its own result: it finishes later, or has none.
    bool savesLater = false;
};

class MenuCommands {
  public:
    /// The document must outlive it.
    explicit MenuCommands(const Document& document) : m_document(document) {}

    void add(std::vector<MenuCommand> commands);

    /// Returns whether the item can be chosen now: none without a mouse, else any that has no command or
    /// whose command is possible. Sets the item's name.
    [[nodiscard]] bool validate(QAction* item) const;
    /// Performs the command with the tag, if there is one; this object may be destroyed meanwhile. Returns
    /// whether its result must be saved.
    [[nodiscard]] bool perform(int tag) const;

  private:
    [[nodiscard]] const MenuCommand* commandOf(int tag) const;

    const Document& m_document;
    std::vector<MenuCommand> m_commands;
};

} // namespace quorvi
