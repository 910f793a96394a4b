#include "platform/widgets/CheckBox.h"

#include <QScopedValueRollback>

namespace quorvi {

CheckBox::CheckBox(QWidget* parent) : QCheckBox(parent) {
    connect(this, &QCheckBox::toggled, this, [this](bool on) {
        if (!m_isExplained)
            emit clicked(on);
    });
}

void CheckBox::setChecked(bool on) {
    const QScopedValueRollback explained(m_isExplained, true);
    QCheckBox::setChecked(on);
}

void CheckBox::nextCheckState() {
    const QScopedValueRollback explained(m_isExplained, true);
    QCheckBox::nextCheckState();
}

} // namespace quorvi
