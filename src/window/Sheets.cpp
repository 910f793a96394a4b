#include "window/Sheets.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>

#include <utility>

#include "resources/Interface.h"
#include "widgets/ShownText.h"

namespace quorvi {

namespace {

constexpr int kResponseOK = 1;
constexpr int kResponseCancel = 0;

/// Screen readers read the accessible name instead of the text.
void nameButton(QPushButton& button, const QString& name) {
    button.setText(name);
    button.setAccessibleName(name);
    widenButton(button);
}

} // namespace

Sheets::Sheets(const Views& views, PanelText text) : m_views(views), m_text(std::move(text)) {}

int Sheets::run(QDialog* panel) {
    // A sheet is a window: it does not inherit its parent's direction.
    panel->setLayoutDirection(m_views.mainView->layoutDirection());
    const QPointer<Sheets> self(this);
    const int code = m_sessions.run(panel);
    if (self)
        emit ended();
    return code;
}

void Sheets::accept() {
    m_sessions.stop(kResponseOK);
}

void Sheets::cancel() {
    m_sessions.stop(kResponseCancel);
}

bool Sheets::confirm(const Question& question) {
    // A label does not break its lines at carriage returns.
    QString text = m_text(question.message).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    if (!question.effect.isEmpty()) {
        const auto end = text.indexOf(QLatin1Char('\n'));
        text.insert(end < 0 ? text.size() : end, QLatin1Char('\n') + question.effect);
    }
    const auto mark = text.indexOf(QStringLiteral("^1"));
    if (question.item && mark >= 0)
        text.replace(mark, 2, nameWithin(text, shownText(*question.item)));
    m_views.question->setText(text);
    nameButton(*m_views.confirmButton, m_text(question.confirming));
    // The safe answer, even if the previous question was answered otherwise.
    m_views.cancelButton->setFocus();
    return run(m_views.confirmPanel) == kResponseOK;
}

} // namespace quorvi
