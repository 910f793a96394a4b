#include "widgets/TrialField.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include <algorithm>
#include <array>

namespace quorvi {

namespace {

struct Habit {
    QKeySequence::StandardKey keys;
    void (*perform)(QLineEdit& field);
};

// The word and line ends to which keys move or select.
constexpr std::array kHabits{
    Habit{QKeySequence::SelectAll, [](QLineEdit& field) { field.selectAll(); }},
    Habit{QKeySequence::Undo, [](QLineEdit& field) { field.undo(); }},
    Habit{QKeySequence::Redo, [](QLineEdit& field) { field.redo(); }},
    Habit{QKeySequence::MoveToNextChar, [](QLineEdit& field) { field.cursorForward(false); }},
    Habit{QKeySequence::MoveToPreviousChar, [](QLineEdit& field) { field.cursorBackward(false); }},
    Habit{QKeySequence::SelectNextChar, [](QLineEdit& field) { field.cursorForward(true); }},
    Habit{QKeySequence::SelectPreviousChar, [](QLineEdit& field) { field.cursorBackward(true); }},
    Habit{QKeySequence::MoveToNextWord, [](QLineEdit& field) { field.cursorWordForward(false); }},
    Habit{QKeySequence::MoveToPreviousWord, [](QLineEdit& field) { field.cursorWordBackward(false); }},
    Habit{QKeySequence::SelectNextWord, [](QLineEdit& field) { field.cursorWordForward(true); }},
    Habit{QKeySequence::SelectPreviousWord, [](QLineEdit& field) { field.cursorWordBackward(true); }},
    Habit{QKeySequence::MoveToStartOfLine, [](QLineEdit& field) { field.home(false); }},
    Habit{QKeySequence::MoveToEndOfLine, [](QLineEdit& field) { field.end(false); }},
    Habit{QKeySequence::SelectStartOfLine, [](QLineEdit& field) { field.home(true); }},
    Habit{QKeySequence::SelectEndOfLine, [](QLineEdit& field) { field.end(true); }},
    Habit{QKeySequence::Delete, [](QLineEdit& field) { field.del(); }},
    Habit{QKeySequence::DeleteStartOfWord,
        [](QLineEdit& field) {
            field.cursorWordBackward(true);
            field.del();
        }},
    Habit{QKeySequence::DeleteEndOfWord,
        [](QLineEdit& field) {
            field.cursorWordForward(true);
            field.del();
        }},
};

} // namespace

QSize TrialField::minimumSizeHint() const {
    constexpr int letters = 16;
    const QSize usual = QLineEdit::minimumSizeHint();
    return {
        std::max(usual.width(), letters * fontMetrics().horizontalAdvance(QLatin1Char('x'))), usual.height()};
}

void TrialField::type(const QString& text) {
    if (!text.isEmpty())
        insert(text);
}

void TrialField::pressKey(int key, Qt::KeyboardModifiers modifiers) {
    // Never sent to anybody: it is what tells which of the desktop's habits the keys are.
    const QKeyEvent event(QEvent::KeyPress, key, modifiers);
    if (event.matches(QKeySequence::Copy))
        return copySelected();
    if (event.matches(QKeySequence::Paste))
        return pasteCopied();
    if (event.matches(QKeySequence::Cut)) {
        copySelected();
        if (hasSelectedText())
            del();
        return;
    }
    if (key == Qt::Key_Backspace && !(modifiers & ~Qt::ShiftModifier))
        return backspace();
    const auto* const habit =
        std::ranges::find_if(kHabits, [&](const Habit& each) { return event.matches(each.keys); });
    if (habit != kHabits.end())
        habit->perform(*this);
}

void TrialField::copySelected() {
    if (hasSelectedText())
        m_copied = selectedText();
}

void TrialField::pasteCopied() {
    type(m_copied ? *m_copied : QGuiApplication::clipboard()->text());
}

void TrialField::beginTrial() {
    m_copied.reset();
    if (text() == m_textOfTrial)
        clear();
}

} // namespace quorvi
