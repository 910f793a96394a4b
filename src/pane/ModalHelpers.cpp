// The three helpers that every dialog of the panel goes through.

#include <QLabel>
#include <QPushButton>

#include "pane/KyvarQuorviPane.h"
#include "resources/Interface.h"
#include "widgets/ShownText.h"

namespace quorvi {

namespace {

constexpr int kResponseOK = 1;
constexpr int kResponseCancel = 0;

/// Screen readers say the button's name in place of its text.
void nameButton(QPushButton& button, const QString& name) {
    button.setText(name);
    button.setAccessibleName(name);
    widenButton(button);
}

} // namespace

QString KyvarQuorviPane::locString(const QString& key) const {
    return QString::fromStdU16String(fServices.bundle.localizedString(key.toStdU16String(), "Localizable"));
}

PanelText KyvarQuorviPane::panelText() const {
    return [this](const char* key) { return locString(QString::fromUtf8(key)); };
}

int KyvarQuorviPane::modalDialog(QDialog* panel) {
    panel->setLayoutDirection(
        fMainView->layoutDirection()); // a sheet is a window: it does not take its parent's
    return fModalSessions.run(panel);
}

void KyvarQuorviPane::actionButtonModalOK() {
    fModalSessions.stop(kResponseOK);
}

void KyvarQuorviPane::actionButtonModalCancel() {
    fModalSessions.stop(kResponseCancel);
}

bool KyvarQuorviPane::confirmAction(const QString& messageKey, const std::optional<QString>& item,
    const QString& effect, const QString& confirmingKey) {
    // The keys of the string table separate their lines by carriage returns, which a label does not break at.
    QString question = locString(messageKey).replace(QLatin1Char('\r'), QLatin1Char('\n'));
    if (const auto end = question.indexOf(QLatin1Char('\n')); end >= 0 && !effect.isEmpty())
        question.insert(end, QLatin1Char('\n') + effect);
    const auto mark = question.indexOf(QStringLiteral("^1"));
    if (item && mark >= 0)
        question.replace(mark, 2, nameWithin(question, shownText(*item)));
    fViews->confirm.quorviTextConfirm->setText(question);
    nameButton(*fViews->confirm.quorviConfirmButtonOK, locString(confirmingKey));
    // The safe answer, also after a question that was answered otherwise.
    fViews->confirm.quorviConfirmButtonCancel->setFocus();
    return modalDialog(fViews->quorviPanelConfirm) == kResponseOK;
}

} // namespace quorvi
