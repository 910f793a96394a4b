// The helpers that every dialog of the panel goes through.

#include "pane/KyvarQuorviPane.h"

namespace quorvi {

QString KyvarQuorviPane::locString(const QString& key) const {
    return QString::fromStdU16String(fServices.bundle.localizedString(key.toStdU16String(), "Localizable"));
}

PanelText KyvarQuorviPane::panelText() const {
    return [this](const char* key) { return locString(QString::fromUtf8(key)); };
}

int KyvarQuorviPane::modalDialog(QDialog* panel) {
    return fSheets.run(panel);
}

void KyvarQuorviPane::actionButtonModalOK() {
    fSheets.accept();
}

void KyvarQuorviPane::actionButtonModalCancel() {
    fSheets.cancel();
}

bool KyvarQuorviPane::confirmAction(const QString& messageKey, const std::optional<QString>& item) {
    return fSheets.confirm(Question{messageKey.toUtf8().constData(), item});
}

} // namespace quorvi
