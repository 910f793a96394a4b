// A field into which the program types like a keyboard. This typing changes only the field: it does not take
// the focus, write the clipboard or trigger the window's shortcuts.
#pragma once

#include <QLineEdit>

#include <optional>

namespace quorvi {

class TrialField : public QLineEdit {
    Q_OBJECT

  public:
    using QLineEdit::QLineEdit;

    /// Wide enough for a word or two; this has priority over the words of the buttons next to it.
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// Types the text in place of the selection.
    void type(const QString& text);
    /// Performs the key's usual function in a field, if it edits or moves the cursor. Copied or cut text
    /// stays within this field; pasting reads the clipboard only if no text was copied here.
    void pressKey(int key, Qt::KeyboardModifiers modifiers);

    /// Clears the field and the copied text, unless the user has changed the text of the last trial.
    void beginTrial();
    void endTrial() { m_textOfTrial = text(); }

  private:
    void copySelected();
    void pasteCopied();

    std::optional<QString> m_copied; ///< std::nullopt if no text was copied
    QString m_textOfTrial;           ///< the field's text after the last trial
};

} // namespace quorvi
