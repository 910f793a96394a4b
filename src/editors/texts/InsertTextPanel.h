// The sheet into which the user types a text that becomes steps of a macro.
#pragma once

#include <QDialog>

#include <functional>
#include <memory>

#include "macros/TypedTextSteps.h"
#include "widgets/FilledText.h"

namespace Ui {
class InsertTextPanel;
}

namespace quorvi {

/// Accepted by Insert, rejected by Cancel and Escape. Says with every character how far the steps go.
class InsertTextPanel : public QDialog {
  public:
    struct Macro {
        std::size_t room; ///< steps that it still takes
        PanelText text;
    };

    /// Texts are looked up now: set setInterfaceTextLookup() before.
    InsertTextPanel(QWidget* parent, Macro macro);
    ~InsertTextPanel() override;

    /// The steps of what is typed, under the keyboard layout in use.
    [[nodiscard]] TypedTextSteps steps() const;

  private:
    void show(const TypedTextSteps& steps);
    [[nodiscard]] QString stateOf(const TypedTextSteps& steps) const;

    Macro m_macro;
    QString m_shown; ///< what it says now
    std::unique_ptr<Ui::InsertTextPanel> m_ui;
};

} // namespace quorvi
