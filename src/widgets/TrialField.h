// A field that a program types into as a keyboard would. What is typed there by program changes nothing but
// the field: it neither takes the focus nor the clipboard, and no shortcut of the window hears of it.
#pragma once

#include <QLineEdit>

#include <optional>

namespace quorvi {

class TrialField : public QLineEdit {
    Q_OBJECT

  public:
    using QLineEdit::QLineEdit;

    /// Wide enough for a word or two, before the buttons beside it have words.
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// Types the text in place of the selection.
    void type(const QString& text);
    /// Does what the key does in a field by the desktop's habits, if it is one that edits or moves the
    /// cursor. What is copied or cut is kept here for pasting; the clipboard is only read, and only as long
    /// as nothing was copied here.
    void pressKey(int key, Qt::KeyboardModifiers modifiers);

    /// Empties the field and forgets what was copied, unless the user has changed what was typed last.
    void beginTrial();
    void endTrial() { m_textOfTrial = text(); }

  private:
    void copySelected();
    void pasteCopied();

    std::optional<QString> m_copied; ///< nothing when nothing was
    QString m_textOfTrial;           ///< what the last trial has left
};

} // namespace quorvi
