// The list of macros: new and removed ones, and which is the current one.
#pragma once

#include <QString>

#include <functional>

#include "plist/Value.h"
#include "window/EditorContext.h"
#include "window/MenuCommands.h"
#include "window/TableList.h"

class QGridLayout;
class QLabel;
class QPushButton;
class QStackedWidget;

namespace quorvi {

class MacrosModel;
class StepsEditor;

class MacrosEditor final {
  public:
    struct Views {
        KyvarQuorviTableView& table;
        QPushButton& addButton;
        QPushButton& removeButton;
        QPushButton& gearButton;
        QStackedWidget& steps; ///< the steps of the current macro, or in their place pageNoMacro
        QWidget& pageNoMacro;
        QLabel& noMacroTitle; ///< on that page, as all of these
        QLabel& noMacro;      ///< how to begin where there are macros
        QWidget& drawing;     ///< the drawing, the text and the button where there is none
        QLabel& recordText;
        QPushButton& recordButton;
        QGridLayout& columns; ///< the list, and the steps beside it
        QLabel& heading;      ///< above the list, with the number of macros
        QLabel& count;
    };

    /// What it has others do.
    struct Others {
        std::function<bool()> isRecording;
        /// Whether it is known which mice there are; before that not even the lack of one is.
        std::function<bool()> knowsMice;
        std::function<void()> listHasChanged; ///< there are others than before, or by other names
        std::function<void()> importMacro;    ///< both are commands of the list's menu
        std::function<void()> exportMacro;
    };

    /// The editor of the steps must outlive it.
    MacrosEditor(const EditorContext& context, const Views& views, Others others, StepsEditor& steps);
    MacrosEditor(const MacrosEditor&) = delete;
    MacrosEditor& operator=(const MacrosEditor&) = delete;

    /// Derives everything but the rows from the document, from which row is selected, and from whether a
    /// recording runs.
    void show();
    /// Shows again what the current macro types: its steps may have changed.
    void showTyped();
    /// Shows what all of them type, by another keyboard layout.
    void showKeyNames();
    /// Shows the rows of the document and selects the current macro.
    void selectCurrent();

    /// Appends the macro under a name of its own, makes it current and saves, under that name of the action.
    void append(const plist::Dictionary& macro, const std::u16string& action);
    /// Appends a new one and lets its name be edited. Does nothing when there are twelve.
    void create();
    /// Appends a new one. False when there are twelve.
    bool add();
    /// Removes the current macro when the user agrees. The window may not outlive the question.
    void remove();

    /// The commands of the list's menu.
    [[nodiscard]] std::vector<MenuCommand> commands();
    [[nodiscard]] TableList& list() { return m_list; }

  private:
    [[nodiscard]] MacrosModel& model() const;
    void showHints();
    /// Where there is no macro, what says so takes the place of the list too.
    void showEmpty(bool empty);
    [[nodiscard]] bool hasRoom() const;
    [[nodiscard]] bool isSelected() const;
    void switchToSelected();

    EditorContext m_context;
    Views m_views;
    Others m_others;
    StepsEditor& m_steps;
    QString m_usualHint;  ///< what an empty list says
    QString m_usualTitle; ///< what stands in place of the steps
    bool m_showsEmpty = false;
    TableList m_list;
};

} // namespace quorvi
