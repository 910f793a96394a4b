#include "editors/texts/InsertTextPanel.h"

#include <QPushButton>
#include <QStringList>

#include <utility>

#include "resources/Interface.h"
#include "ui_InsertTextPanel.h"
#include "widgets/Announcement.h"
#include "widgets/ShownText.h"
#include "window/ShownStep.h"

namespace quorvi {

namespace {

constexpr int kLinesOfField = 3;

/// What is typed, with accents as one character each where there is one.
std::u16string textIn(const QPlainTextEdit& field) {
    return field.toPlainText().normalized(QString::NormalizationForm_C).toStdU16String();
}

QString onOneLine(const std::u16string& text) {
    return QString::fromStdU16String(text)
        .replace(QLatin1Char('\n'), QChar(0x23CE))
        .replace(QLatin1Char('\t'), QChar(0x21E5));
}

} // namespace

InsertTextPanel::InsertTextPanel(QWidget* parent, Macro macro)
    : QDialog(parent), m_macro(std::move(macro)), m_ui(std::make_unique<Ui::InsertTextPanel>()) {
    m_ui->setupUi(this);
    keepTextsWhole(*this);
    widenButton(*m_ui->quorviInsertTextButtonInsert);
    widenButton(*m_ui->quorviInsertTextButtonCancel);
    QPlainTextEdit& field = *m_ui->quorviFieldInsertText;
    field.setFixedHeight(kLinesOfField * field.fontMetrics().lineSpacing() + 2 * field.frameWidth() +
                         2 * qRound(field.document()->documentMargin()));
    connect(&field, &QPlainTextEdit::textChanged, this, [this] { show(steps()); });
    connect(m_ui->quorviInsertTextButtonInsert, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->quorviInsertTextButtonCancel, &QPushButton::clicked, this, &QDialog::reject);
    // Two lines from the start, so that nothing moves when there is more to say.
    m_ui->quorviTextInsertState->setMinimumHeight(2 * field.fontMetrics().lineSpacing());
    field.setFocus();
    show(steps());
}

InsertTextPanel::~InsertTextPanel() = default;

TypedTextSteps InsertTextPanel::steps() const {
    const std::u16string text = textIn(*m_ui->quorviFieldInsertText);
    if (const KeyboardLayoutRef layout = layoutInUse())
        return stepsOfTypedText(text, *layout, m_macro.room);
    return {.steps = plist::Array::create(), .typed = {}, .noRoom = 0, .untypable = text};
}

void InsertTextPanel::show(const TypedTextSteps& steps) {
    m_ui->quorviInsertTextButtonInsert->setEnabled(steps.steps.size() > 0);
    const QString state = stateOf(steps);
    if (std::exchange(m_shown, state) == state)
        return;
    m_ui->quorviTextInsertState->setText(state);
    if (isVisible())
        announce(*m_ui->quorviFieldInsertText, state);
}

QString InsertTextPanel::stateOf(const TypedTextSteps& steps) const {
    const auto filled = [this](const char* english, const QStringList& parts) {
        return filledText(m_macro.text(english), parts);
    };
    const auto name = [this](const char* english, const std::u16string& text) {
        return nameWithin(m_macro.text(english), shownText(onOneLine(text)));
    };
    const QString room = QString::number(m_macro.room);
    QStringList lines;
    if (steps.noRoom > 0 && steps.typed.empty())
        lines << filled("It does not fit. Free steps: ^1.", {room});
    else if (steps.noRoom > 0)
        lines << filled("“^1” fits. Characters that do not fit: ^2.",
            {name("“^1” fits. Characters that do not fit: ^2.", steps.typed), QString::number(steps.noRoom)});
    else if (!steps.typed.empty())
        lines << filled("All of it fits. Steps: ^1 of ^2.", {QString::number(steps.steps.size()), room});
    else
        lines << filled("Free steps: ^1. A character takes two, and Shift two more.", {room});
    if (!steps.untypable.empty())
        lines << filled("This keyboard layout cannot type: ^1",
            {name("This keyboard layout cannot type: ^1", steps.untypable)});
    return lines.join(QLatin1Char('\n'));
}

} // namespace quorvi
